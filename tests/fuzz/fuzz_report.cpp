#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "printing/data/report_names.h"
#include "printing/definition/report_file.h"
#include "printing/expressions/expression_error.h"

// Any text as a report file, and as the part that it uses: only the reader's own error comes out, and what was read can be made ready
// or is refused.

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

const printing::TextRules& Rules() {
  static const printing::TextRules rules{[](std::string_view left, std::string_view right) { return left.compare(right); },
                                         [](const std::string&) { return [](std::string_view text) { return text.empty(); }; }};
  return rules;
}

void CheckExpression(const printing::Expression& expression, printing::Names& names, const printing::EvaluationState& state) {
  Require(expression.height <= printing::kHighestExpression);
  try {
    const platform::Value value = printing::MakeReady(expression, names, Rules()).Evaluate(state);
    Require(!value.IsEmpty());
  } catch (const printing::ExpressionError&) {
  }
}

void CheckReport(const printing::ReportDefinition& report) {
  std::vector<printing::RowField> fields;
  for (std::size_t i = 0; i < report.tables.size(); ++i)
    fields.push_back({static_cast<int>(i), i % 2 == 0 ? "A" : "B", static_cast<printing::ValueType>(i % 4)});
  const std::vector<platform::Value> row(fields.size(), platform::Null);
  const std::vector<platform::Value> totals(report.totals.size(), platform::Null);
  printing::SystemValues system;
  system.fill(platform::Null);
  const printing::EvaluationState state{row, totals, &system};
  printing::ReportNames names(report, fields, Rules());
  for (const printing::ReportFormula& formula : report.formulas) CheckExpression(formula.value, names, state);
  for (const printing::Band& band : report.bands) {
    Require(band.group <= static_cast<int>(report.groups.size()));
    for (const printing::Element& element : band.elements) {
      const bool shows = element.kind == printing::ElementKind::Text || element.kind == printing::ElementKind::Field;
      if (shows) CheckExpression(element.value, names, state);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::size_t parting = text.find("\n~\n");
  const std::string part(parting == std::string_view::npos ? std::string_view() : text.substr(parting + 3));
  try {
    CheckReport(printing::ReadReportFile(text.substr(0, parting), [&](const std::string&) { return part; }));
  } catch (const printing::ReportFileError& error) {
    Require(error.Line() >= 1);
  }
  return 0;
}
