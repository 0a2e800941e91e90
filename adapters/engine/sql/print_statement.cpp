#include "engine/sql/print.h"

namespace engine::sql {
namespace {

template <class Items, class Show>
std::string Separated(const Items& items, Show show) {
  std::string text;
  for (const auto& item : items) {
    if (!text.empty()) text += ", ";
    text += show(item);
  }
  return text;
}

std::string TextOf(const std::string& content) { return Print(Expression{.node = Literal{content}, .span = {}}); }

std::string InClause(const std::optional<std::string>& file) { return file ? " IN " + TextOf(*file) : ""; }

std::string WhereClause(const std::optional<Expression>& where) { return where ? " WHERE " + Print(*where) : ""; }

std::string PrintItem(const SelectItem& item) {
  if (const Star* star = std::get_if<Star>(&item)) return star->table.empty() ? "*" : PrintName(star->table) + ".*";
  const Computed& computed = std::get<Computed>(item);
  return Print(computed.expression) + (computed.alias.empty() ? "" : " AS " + PrintName(computed.alias));
}

std::string PrintSelect(const Select& select) {
  std::string text = "SELECT ";
  if (select.duplicates == Duplicates::Distinct) text += "DISTINCT ";
  if (select.duplicates == Duplicates::DistinctRow) text += "DISTINCTROW ";
  text += Separated(select.items, PrintItem);
  text += " FROM " + Separated(select.sources, [](const Source& source) { return Print(source); });
  text += InClause(select.inFile) + WhereClause(select.where);
  if (!select.order.empty()) {
    text +=
        " ORDER BY " + Separated(select.order, [](const OrderKey& key) { return Print(key.expression) + (key.descending ? " DESC" : ""); });
  }
  return text;
}

std::string PrintJoin(const Join& join) {
  std::string_view words = " INNER JOIN ";
  if (join.kind == JoinKind::Left) words = " LEFT JOIN ";
  if (join.kind == JoinKind::Right) words = " RIGHT JOIN ";
  std::string text = Print(*join.left) + std::string(words) + Print(*join.right) + " ON " + Print(join.on);
  return join.inParentheses ? '(' + text + ')' : text;
}

struct StatementPrinter {
  std::string operator()(const Select& select) const { return PrintSelect(select); }

  std::string operator()(const Insert& insert) const {
    std::string text = "INSERT INTO " + PrintName(insert.table);
    if (insert.fields) text += " (" + Separated(*insert.fields, PrintName) + ")";
    text += InClause(insert.inFile);
    if (const Select* select = std::get_if<Select>(&insert.rows)) return text + ' ' + PrintSelect(*select);
    const auto show = [](const Expression& value) { return Print(value); };
    return text + " VALUES (" + Separated(std::get<ValueList>(insert.rows), show) + ")";
  }

  std::string operator()(const Delete& remove) const {
    return "DELETE " + (remove.qualifier.empty() ? "*" : PrintName(remove.qualifier) + ".*") + " FROM " + PrintName(remove.table) +
           InClause(remove.inFile) + WhereClause(remove.where);
  }

  std::string operator()(const Update& update) const {
    const auto show = [](const Assignment& assignment) {
      return Print(Expression{.node = assignment.field, .span = {}}) + " = " + Print(assignment.value);
    };
    return "UPDATE " + Print(update.source) + " SET " + Separated(update.assignments, show) + WhereClause(update.where);
  }
};

}  // namespace

std::string Print(const Source& source) {
  if (const Join* join = std::get_if<Join>(&source.node)) return PrintJoin(*join);
  const TableName& table = std::get<TableName>(source.node);
  return (table.file.empty() ? "" : TextOf(table.file) + '.') + PrintName(table.name) + (table.alias.empty() ? "" : " AS " + PrintName(table.alias));
}

std::string Print(const Statement& statement) { return std::visit(StatementPrinter{}, statement); }

}  // namespace engine::sql
