#include "printing/data/field_uses.h"

#include <set>
#include <string>
#include <utility>

#include "platform/values/text.h"
#include "printing/data/report_names.h"

namespace printing {
namespace {

class Collector {
 public:
  explicit Collector(const ReportDefinition& report) : report_(report) {}

  void Visit(const Expression& expression) {
    if (expression.kind == ExpressionKind::Name) {
      if (expression.nameKind == NameKind::Field) VisitField(expression);
      if (expression.nameKind == NameKind::Formula) VisitFormula(expression.name);
    }
    for (const Expression& operand : expression.operands) Visit(operand);
  }

  std::vector<const Expression*> Fields() { return std::move(fields_); }

 private:
  void VisitField(const Expression& field) {
    if (seenFields_.emplace(platform::ToLowerAscii(field.table), platform::ToLowerAscii(field.name)).second) fields_.push_back(&field);
  }
  void VisitFormula(const std::string& name) {
    const ReportFormula* formula = FormulaNamed(report_, name);
    if (formula != nullptr && seenFormulas_.insert(formula).second) Visit(formula->value);
  }

  const ReportDefinition& report_;
  std::set<std::pair<std::string, std::string>> seenFields_;
  std::set<const ReportFormula*> seenFormulas_;
  std::vector<const Expression*> fields_;
};

void Add(std::vector<const Expression*>& all, const std::optional<Expression>& one) {
  if (one) all.push_back(&*one);
}

}  // namespace

std::vector<const Expression*> FieldsOf(const ReportDefinition& report, std::span<const Expression* const> expressions) {
  Collector collector(report);
  for (const Expression* each : expressions) collector.Visit(*each);
  return collector.Fields();
}

std::vector<const Expression*> ExpressionsOfRows(const ReportDefinition& report) {
  std::vector<const Expression*> all;
  for (const ReportGroup& group : report.groups) all.push_back(&group.key.field);
  for (const ReportTotal& total : report.totals) {
    all.push_back(&total.value);
    Add(all, total.when);
  }
  for (const Band& band : report.bands) {
    Add(all, band.suppress);
    Add(all, band.newPageBefore);
    Add(all, band.newPageAfter);
    for (const Element& element : band.elements) {
      all.push_back(&element.value);
      Add(all, element.suppress);
    }
  }
  return all;
}

}  // namespace printing
