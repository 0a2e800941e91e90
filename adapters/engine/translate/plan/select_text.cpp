#include "engine/translate/plan/select_text.h"

#include <algorithm>

namespace engine {

std::vector<std::string> ColumnTexts(const SelectPlan& plan) {
  std::vector<std::string> texts;
  for (const PlanColumn& column : plan.columns) texts.push_back(column.sql);
  return texts;
}

namespace {

std::string RowKey(const PlanTable& table) { return table.alias + '.' + table.table->rowKey; }

// The row keys of a plan's tables, the driving one's first.
std::vector<std::string> RowKeys(const SelectPlan& plan) {
  std::vector<std::string> keys;
  if (plan.tables.empty()) return keys;
  const auto driving = static_cast<std::size_t>(plan.driving);
  keys.push_back(RowKey(plan.tables[driving]));
  for (std::size_t i = 0; i < plan.tables.size(); ++i)
    if (i != driving) keys.push_back(RowKey(plan.tables[i]));
  return keys;
}

}  // namespace

// Of rows with equal keys the first one is shown.
std::string DistinctText(const SelectPlan& plan, const std::vector<std::string>& columns, const Dialect& dialect, std::string_view where,
                         bool ordered) {
  std::string inner;
  std::string shown;
  std::string equal;
  std::string rows;
  std::string order;
  const auto add = [](std::string& list, const std::string& item) { list += (list.empty() ? "" : ", ") + item; };
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::string place = std::to_string(i);
    add(inner, columns[i] + " AS c" + place);
    add(shown, 'c' + place);
    add(equal, (plan.columns[i].comparable.empty() ? 'c' : 'k') + place);
    if (!plan.columns[i].comparable.empty()) add(inner, plan.columns[i].comparable + " AS k" + place);
  }
  for (std::size_t i = 0; ordered && i < plan.order.size(); ++i) {
    add(inner, plan.order[i].By() + " AS o" + std::to_string(i));
    add(order, 'o' + std::to_string(i) + dialect.OrderSuffix(plan.order[i].descending));
  }
  for (const std::string& key : RowKeys(plan)) {
    const std::string name = 'r' + std::to_string(std::count(rows.begin(), rows.end(), 'r'));
    add(inner, key + " AS " + name);
    add(rows, name);
    if (ordered) add(order, name);
  }
  std::string text = "SELECT " + shown + " FROM (SELECT DISTINCT ON (" + equal + ") * FROM (SELECT " + inner + " FROM " + plan.from;
  if (!where.empty()) text += " WHERE " + std::string(where);
  text += ") AS alike ORDER BY " + equal + (rows.empty() ? "" : ", " + rows) + ") AS apart";
  return order.empty() ? text : text + " ORDER BY " + order;
}

std::string SelectText(const SelectPlan& plan, const std::vector<std::string>& columns, const Dialect& dialect, bool ordered) {
  if (plan.distinct && dialect.textKeys != nullptr) return DistinctText(plan, columns, dialect, plan.where, ordered);
  std::string text = plan.distinct ? "SELECT DISTINCT " : "SELECT ";
  for (std::size_t i = 0; i < columns.size(); ++i) text += (i == 0 ? "" : ", ") + columns[i];
  text += " FROM " + plan.from;
  if (!plan.where.empty()) text += " WHERE " + plan.where;
  if (!ordered) return text;
  for (std::size_t i = 0; i < plan.order.size(); ++i) {
    const PlanOrder& key = plan.order[i];
    text += (i == 0 ? " ORDER BY " : ", ") + key.By() + dialect.OrderSuffix(key.descending);
  }
  if (dialect.rowsInOrder || plan.distinct || plan.aggregate) return text;
  bool first = plan.order.empty();
  for (const std::string& key : RowKeys(plan)) {
    text += (first ? " ORDER BY " : ", ") + key;
    first = false;
  }
  return text;
}

}  // namespace engine
