#include "printing/definition/checks.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/values/text.h"
#include "printing/definition/line_reader.h"

namespace printing {
namespace {

using platform::EqualsNoCase;

// Whether the last part has the name of one before it.
template <class Part, class NameOf>
bool IsTaken(const std::vector<Part>& parts, NameOf nameOf) {
  if (parts.empty()) return false;
  return std::any_of(parts.begin(), parts.end() - 1, [&](const Part& each) { return EqualsNoCase(nameOf(each), nameOf(parts.back())); });
}

bool HasTable(const ReportDefinition& report, std::string_view name) {
  return std::ranges::any_of(report.tables, [&](const ReportTable& table) { return EqualsNoCase(table.alias, name); });
}

void CheckJoined(const ReportDefinition& report, const Expression& field) {
  if (field.kind != ExpressionKind::Name || field.nameKind != NameKind::Field) LineReader::FailAt(field.place, "A field must stand here.");
  if (!HasTable(report, field.table)) LineReader::FailAt(field.place, "There is no table " + field.table + " up to here.");
}

// Comparisons of fields by =, joined by And; each with a field of the table itself.
void CheckJoin(const ReportDefinition& report, const ReportTable& table, const Expression& on) {
  if (on.kind == ExpressionKind::Operation && on.operation == Operator::And) {
    for (const Expression& part : on.operands) CheckJoin(report, table, part);
    return;
  }
  if (on.kind != ExpressionKind::Operation || on.operation != Operator::Equal)
    LineReader::FailAt(on.place, "Tables are joined by fields that are equal.");
  for (const Expression& field : on.operands) CheckJoined(report, field);
  const auto own = [&](const Expression& field) { return EqualsNoCase(field.table, table.alias); };
  if (std::ranges::count_if(on.operands, own) != 1)
    LineReader::FailAt(on.place, "A field of the table must be equal to one of a table before it.");
}

void CheckTables(const ReportDefinition& report) {
  if (report.tables.empty()) return;
  if (IsTaken(report.tables, [](const ReportTable& table) -> const std::string& { return table.alias; }))
    LineReader::FailAt(0, "There is a table of this name already.");
  const ReportTable& table = report.tables.back();
  const bool first = report.tables.size() == 1;
  if (first && table.on) LineReader::FailAt(table.on->place, "The first table is joined to nothing.");
  if (!first && !table.on) LineReader::FailAt(0, "How the table is joined is missing.");
  if (table.on) CheckJoin(report, table, *table.on);
}

bool HasGroup(const ReportDefinition& report, int level) { return level >= 0 && static_cast<std::size_t>(level) <= report.groups.size(); }

void CheckLabels(const ReportDefinition& report) {
  constexpr double kNearly = 0.01;
  const LabelSheet& sheet = *report.labels;
  if (sheet.width <= 0 || sheet.height <= 0) LineReader::FailAt(0, "A label needs a width and a height.");
  if ((sheet.across > 1 && sheet.pitchAcross + kNearly < sheet.width) || (sheet.down > 1 && sheet.pitchDown + kNearly < sheet.height))
    LineReader::FailAt(0, "The labels lie on one another.");
  if (sheet.left + (sheet.across - 1) * sheet.pitchAcross + sheet.width > report.pageWidth + kNearly ||
      sheet.top + (sheet.down - 1) * sheet.pitchDown + sheet.height > report.pageHeight + kNearly)
    LineReader::FailAt(0, "The labels don't fit on the paper.");
  if (std::ranges::any_of(report.bands, [](const Band& band) { return band.kind != BandKind::Detail; }))
    LineReader::FailAt(0, "On label sheets only details are printed.");
}

}  // namespace

void CheckNewest(const ReportDefinition& report) {
  CheckTables(report);
  if (IsTaken(report.formulas, [](const ReportFormula& formula) -> const std::string& { return formula.name; }))
    LineReader::FailAt(0, "There is a formula of this name already.");
  if (IsTaken(report.totals, [](const ReportTotal& total) -> const std::string& { return total.name; }))
    LineReader::FailAt(0, "There is a total of this name already.");
  if (!report.totals.empty() && !HasGroup(report, report.totals.back().group)) LineReader::FailAt(0, "There is no group of this level.");
  if (!report.bands.empty() && !HasGroup(report, report.bands.back().group)) LineReader::FailAt(0, "There is no group of this level.");
}

void CheckReport(const ReportDefinition& report) {
  if (report.tables.empty()) LineReader::FailAt(0, "The report has no table.");
  if (report.bands.empty()) LineReader::FailAt(0, "The report has no band.");
  if (report.marginLeft + report.marginRight >= report.pageWidth || report.marginTop + report.marginBottom >= report.pageHeight)
    LineReader::FailAt(0, "The margins leave no room on the paper.");
  if (report.labels) CheckLabels(report);
}

}  // namespace printing
