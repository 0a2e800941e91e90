#include "engine/translate/plan/bound_source.h"

#include "engine/errors.h"
#include "engine/sql/print.h"
#include "engine/translate/names/walk.h"

namespace engine {
namespace {

constexpr std::size_t kMostTables = 32;

bool HasInner(const sql::Source& source) {
  const auto* join = std::get_if<sql::Join>(&source.node);
  if (join == nullptr) return false;
  return join->kind == sql::JoinKind::Inner || HasInner(*join->left) || HasInner(*join->right);
}

// An outer join over an inner one in parentheses can be read two ways.
void RefuseInnerInside(const sql::Source& operand) {
  const auto* join = std::get_if<sql::Join>(&operand.node);
  if (join != nullptr && join->inParentheses && HasInner(operand)) throw errors::AmbiguousOuterJoins();
}

}  // namespace

BoundSources::BoundSources(const std::vector<sql::Source>& sources, Catalogue& catalogue, const std::optional<std::string>& inFile,
                           const Dialect& dialect) {
  std::vector<StatementScope::Table> tables;
  for (const sql::Source& source : sources) sources_.push_back(Bind(source, catalogue, inFile, tables));
  for (std::size_t i = 0; i < tables.size(); ++i) tables[i].alias = 't' + std::to_string(i);
  scope_.emplace(std::move(tables), dialect);
  for (const BoundSource& source : sources_) MarkNullable(source, false);
}

BoundSource BoundSources::Bind(const sql::Source& source, Catalogue& catalogue, const std::optional<std::string>& inFile,
                               std::vector<StatementScope::Table>& tables) {
  BoundSource bound;
  if (const auto* name = std::get_if<sql::TableName>(&source.node)) {
    const std::optional<std::string> file = name->file.empty() ? inFile : name->file;
    const ResolvedTable* table = file ? catalogue.FindTable(name->name, *file) : catalogue.FindTable(name->name);
    if (table == nullptr) throw errors::UnknownTable(name->name);
    if (tables.size() == kMostTables) throw errors::QueryTooComplex();
    bound.table = static_cast<int>(tables.size());
    bound.tables = TableBit(bound.table);
    tables.push_back({.table = table, .name = name->Visible(), .alias = {}});
    return bound;
  }
  const auto& join = std::get<sql::Join>(source.node);
  if (join.kind != sql::JoinKind::Inner) {
    RefuseInnerInside(*join.left);
    RefuseInnerInside(*join.right);
  }
  bound.kind = join.kind;
  bound.on = &join.on;
  bound.sides.push_back(Bind(*join.left, catalogue, inFile, tables));
  bound.sides.push_back(Bind(*join.right, catalogue, inFile, tables));
  bound.tables = bound.sides[0].tables | bound.sides[1].tables;
  conditions_.push_back(bound.on);
  return bound;
}

void BoundSources::MarkNullable(const BoundSource& source, bool nullable) {
  if (source.table >= 0) {
    if (nullable) nullable_ |= source.tables;
    return;
  }
  MarkNullable(source.sides[0], nullable || source.kind == sql::JoinKind::Right);
  MarkNullable(source.sides[1], nullable || source.kind == sql::JoinKind::Left);
}

void BoundSources::CheckConditions() {
  for (const BoundSource& source : sources_) CheckCondition(source);
}

void BoundSources::CheckCondition(const BoundSource& source) {
  if (source.table >= 0) return;
  CheckCondition(source.sides[0]);
  CheckCondition(source.sides[1]);
  ForEachField(*source.on, [&](const sql::FieldName& name) {
    const std::optional<ResolvedField> field = scope_->Resolve(name);
    if (!field) return;
    if ((source.tables & TableBit(field->table)) == 0) throw errors::JoinSyntax();
    if (field->type == platform::FieldType::Memo) throw errors::JoinOnMemo(sql::Print(sql::Expression{.node = name, .span = {}}));
  });
}

std::string BoundSources::EmitTable(int table) const {
  const StatementScope::Table& entry = scope_->Tables()[static_cast<std::size_t>(table)];
  return entry.table->storeName + " AS " + entry.alias;
}

std::string BoundSources::EmitOperand(const BoundSource& source, Emitter& emitter) const {
  const std::string text = Emit(source, emitter);
  return source.table >= 0 ? text : '(' + text + ')';
}

// Every join is written so that its composite side comes first where the kind allows: A RIGHT JOIN B is B LEFT JOIN A, and
// an inner join may be turned round. What is left needs few parentheses and no RIGHT JOIN.
std::string BoundSources::Emit(const BoundSource& source, Emitter& emitter) const {
  if (source.table >= 0) return EmitTable(source.table);
  const BoundSource* first = &source.sides[0];
  const BoundSource* second = &source.sides[1];
  if (source.kind == sql::JoinKind::Right || (source.kind == sql::JoinKind::Inner && first->table >= 0 && second->table < 0)) {
    std::swap(first, second);
  }
  const std::string_view word = source.kind == sql::JoinKind::Inner ? " INNER JOIN " : " LEFT JOIN ";
  return Emit(*first, emitter) + std::string(word) + EmitOperand(*second, emitter) + " ON " + emitter.Condition(*source.on);
}

std::string BoundSources::Emit(Emitter& emitter) const {
  std::string text;
  for (const BoundSource& source : sources_) {
    text += text.empty() ? Emit(source, emitter) : emitter.GetForms().GetDialect().joinAll + EmitOperand(source, emitter);
  }
  return text;
}

}  // namespace engine
