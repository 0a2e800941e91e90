#include "printing/data/statement.h"

#include <optional>
#include <utility>

#include "platform/values/text.h"
#include "printing/data/dialect_text.h"
#include "printing/data/report_errors.h"
#include "printing/data/report_names.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/parser.h"

namespace printing {
namespace {

class Sorting {
 public:
  Sorting(const ReportDefinition& report, const DataTables& tables) : report_(report), tables_(tables) {}

  void Add(const Expression& field, bool descending, ReportError error, const std::string& where) {
    const Expression* meant = Meant(field);
    if (meant == nullptr) throw ReportFailure(error, where + ": rows are sorted by fields alone.");
    if (meant->kind == ExpressionKind::Constant) return;  // equal for all rows
    const std::optional<StoredField> stored = tables_.Find(meant->table, meant->name);
    if (!stored && error != ReportError::BadSortField) throw NoSuchField(*meant);
    if (!stored) throw ReportFailure(error, where + ": there is no field {" + meant->table + '.' + meant->name + "}.");
    if (stored->type == platform::FieldType::Memo) throw ReportFailure(error, where + ": rows can't be sorted by a memo.");
    keys_.push_back({*stored, descending});
  }

  std::vector<SortKey> Keys() { return std::move(keys_); }

 private:
  // The field behind formulas; nullptr for anything else.
  const Expression* Meant(const Expression& field) const {
    constexpr int kMostFormulas = 10;
    const Expression* meant = &field;
    for (int i = 0; i < kMostFormulas; ++i) {
      if (meant->kind == ExpressionKind::Constant && i > 0) return meant;
      if (meant->kind != ExpressionKind::Name || meant->nameKind == NameKind::Total) return nullptr;
      if (meant->nameKind == NameKind::Field) return meant;
      const ReportFormula* formula = FormulaNamed(report_, meant->name);
      if (formula == nullptr) return nullptr;
      meant = &formula->value;
    }
    return nullptr;
  }

  const ReportDefinition& report_;
  const DataTables& tables_;
  std::vector<SortKey> keys_;
};

void AddJobField(Sorting& sorting, int index, const std::string& text) {
  const std::string where = "sort field " + std::to_string(index);
  const bool descending = text.front() == '-';
  const bool sign = descending || text.front() == '+';
  try {
    sorting.Add(ParseExpression(std::string_view(text).substr(sign ? 1 : 0)), descending, ReportError::BadSortField, where);
  } catch (const ExpressionError& error) {
    throw ReportFailure(ReportError::BadSortField, where + ": " + error.Text());
  }
}

std::string OwnField(const ReportDefinition& report, const StoredField& field) {
  return dialect::Field(report.tables[static_cast<std::size_t>(field.table)].alias, field.name);
}

// A join's condition in the engine's words; its fields were checked to be names, here that they are there.
std::string JoinText(const ReportDefinition& report, const DataTables& tables, const Expression& on) {
  if (on.kind == ExpressionKind::Name) {
    const std::optional<StoredField> field = tables.Find(on.table, on.name);
    if (!field) throw NoSuchField(on);
    return OwnField(report, *field);
  }
  std::string text;
  const std::string_view sign = on.operation == Operator::And ? " And " : " = ";
  for (const Expression& operand : on.operands) text += (text.empty() ? "" : std::string(sign)) + JoinText(report, tables, operand);
  return on.operation == Operator::And ? text : '(' + text + ')';
}

}  // namespace

std::vector<SortKey> SortKeysOf(const ReportDefinition& report, const std::map<int, std::string>& sortFields, const DataTables& tables) {
  Sorting sorting(report, tables);
  for (std::size_t i = 0; i < report.groups.size(); ++i) {
    const SortField& key = report.groups[i].key;
    sorting.Add(key.field, key.descending, ReportError::FileExpression, "group " + std::to_string(i + 1));
  }
  bool given = false;
  for (const auto& [index, text] : sortFields) {
    if (text.empty()) continue;
    given = true;
    AddJobField(sorting, index, text);
  }
  if (given) return sorting.Keys();
  for (const SortField& key : report.sort) sorting.Add(key.field, key.descending, ReportError::FileExpression, "sort");
  return sorting.Keys();
}

std::string StatementOf(const ReportDefinition& report, const DataTables& tables, const std::vector<RowField>& fields,
                        const std::vector<std::string>& conditions, const std::vector<SortKey>& sort) {
  std::string text;
  for (const RowField& field : fields)
    text += (text.empty() ? "SELECT " : ", ") + OwnField(report, {field.table, field.name, platform::FieldType::Long});
  if (fields.empty()) text = "SELECT 1";
  for (std::size_t i = 0; i < report.tables.size(); ++i) {
    const ReportTable& table = report.tables[i];
    const std::string& path = tables.Path(static_cast<int>(i));
    text += i == 0 ? " FROM " : (table.join == JoinKind::Left ? " LEFT JOIN " : " INNER JOIN ");
    if (path != tables.Path(0)) text += dialect::Text(path) + '.';
    text += dialect::Name(table.name) + " AS " + dialect::Name(table.alias);
    if (table.on) text += " ON " + JoinText(report, tables, *table.on);
  }
  for (std::size_t i = 0; i < conditions.size(); ++i) text += (i == 0 ? " WHERE " : " And ") + conditions[i];
  for (std::size_t i = 0; i < sort.size(); ++i)
    text += (i == 0 ? " ORDER BY " : ", ") + OwnField(report, sort[i].field) + (sort[i].descending ? " DESC" : "");
  return text;
}

}  // namespace printing
