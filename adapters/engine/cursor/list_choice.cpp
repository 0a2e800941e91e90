#include "engine/cursor/list_choice.h"

#include <algorithm>
#include <optional>

#include "engine/cursor/indexed_list.h"
#include "engine/cursor/keyset_list.h"
#include "engine/cursor/stored_list.h"
#include "platform/text.h"

namespace engine {
namespace {

using platform::FieldType;

// How an index (or the row key) puts one table's rows into the plan's order.
struct IndexOrder {
  std::vector<OrderColumn> order;
  std::string index;
  bool descending = false;
};

const platform::TableDefinition& TableOf(const SelectPlan& plan) { return plan.tables.front().table->definition; }

bool IsOneTable(const SelectPlan& plan) { return plan.tables.size() == 1 && plan.from.find(" JOIN ") == std::string::npos; }

std::optional<IndexOrder> OrderByIndex(const SelectPlan& plan) {
  if (!IsOneTable(plan) || plan.order.size() > 1) return {};
  if (plan.order.empty()) return IndexOrder{};
  const PlanOrder& key = plan.order.front();
  if (key.table != 0 || key.field < 0) return {};
  const platform::FieldDefinition& field = TableOf(plan).fields[static_cast<std::size_t>(key.field)];
  if (field.type == FieldType::Counter) return IndexOrder{{}, "", key.descending};
  for (const platform::IndexDefinition& index : TableOf(plan).indexes)
    if (index.fields.size() == 1 && platform::EqualsNoCase(index.fields.front(), field.name))
      return IndexOrder{{{key.sql, key.type}}, TableOf(plan).name + '.' + index.name, key.descending};
  return {};
}

// No table has more rows than its row keys have numbers.
bool FitsExact(RowSource& source) {
  const PlanTable& table = source.Plan().tables.front();
  const std::int64_t most = source.OwnSession().options.exactRows;
  if (most <= 0) return false;
  return source.Store().AskNumber("SELECT max(" + table.table->rowKey + ") FROM " + table.table->storeName).value_or(0) <= most;
}

}  // namespace

std::shared_ptr<RowList> ChooseList(const std::shared_ptr<RowSource>& source) {
  const SelectPlan& plan = source->Plan();
  if (plan.distinct || plan.aggregate) return std::make_shared<StoredList>(source);
  if (!IsOneTable(plan)) return std::make_shared<KeysetList>(source);

  const auto byIndex = OrderByIndex(plan);
  const bool small = FitsExact(*source);
  if (byIndex && plan.where.empty()) {
    if (small) return std::make_shared<KeysetList>(source, KeysetList::Walk{byIndex->order, byIndex->index, byIndex->descending});
    return std::make_shared<IndexedList>(source, IndexedList::Shape{byIndex->order, byIndex->descending, byIndex->index, true, 64});
  }
  if (small) return std::make_shared<KeysetList>(source);
  // Large and filtered or without an index for its order.
  if (plan.order.size() == 1 && plan.order.front().table == 0)
    return std::make_shared<KeysetList>(source, OrderColumn{plan.order.front().sql, plan.order.front().type},
                                        plan.order.front().descending);
  return std::make_shared<KeysetList>(source);
}

}  // namespace engine
