
#include "engine/errors.h"
#include "engine/sql/lexer.h"
#include "engine/sql/parser.h"
#include "engine/translate/plan/planning.h"
#include "engine/translate/plan/select_planner.h"

namespace engine {
namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool StartsStatement(sql::Keyword keyword) {
  using enum sql::Keyword;
  return keyword == Select || keyword == Insert || keyword == Delete || keyword == Update;
}

// The table that the whole source names: the text itself, or one name in brackets. nullptr for a statement.
const ResolvedTable* BareTable(std::string_view source, Catalogue& catalogue) {
  const std::vector<sql::Token> tokens = sql::Lex(source);
  if (StartsStatement(tokens.front().keyword) && tokens.size() > 2) return nullptr;
  if (const ResolvedTable* table = source.empty() ? nullptr : catalogue.FindTable(source)) return table;
  const sql::Token& name = tokens.front();
  const bool oneName = tokens.size() == 2 && (name.kind == sql::TokenKind::Word || name.kind == sql::TokenKind::Bracketed);
  if (!oneName || StartsStatement(name.keyword)) return nullptr;
  const ResolvedTable* table = name.kind == sql::TokenKind::Bracketed ? catalogue.FindTable(name.text) : nullptr;
  if (table == nullptr) throw errors::ObjectNotFound(name.text);
  return table;
}

}  // namespace

SelectPlan PlanWholeTable(const ResolvedTable& table, const Dialect& dialect) {
  SelectPlan plan;
  plan.oneTable = true;
  plan.tables.push_back({.table = &table, .alias = "t0", .name = table.definition.name});
  plan.from = table.storeName + " AS t0";
  for (std::size_t i = 0; i < table.definition.fields.size(); ++i) {
    const platform::FieldDefinition& field = table.definition.fields[i];
    plan.columns.push_back({.name = field.name,
                            .type = field.type,
                            .size = field.size,
                            .sql = "t0." + dialect.Name(field.name),
                            .table = 0,
                            .field = static_cast<int>(i)});
  }
  return plan;
}

SelectPlan PlanSelect(std::string_view source, Catalogue& catalogue, const Dialect& dialect) {
  if (const ResolvedTable* table = BareTable(Trimmed(source), catalogue)) return PlanWholeTable(*table, dialect);
  const sql::Statement statement = sql::ParseStatement(source);
  const auto* select = std::get_if<sql::Select>(&statement);
  if (select == nullptr) throw errors::InvalidOperation();
  return SelectPlanner(*select, catalogue, dialect, SelectPlanner::Cells::Empty).Run();
}

}  // namespace engine
