#include "engine/lists/list_choice.h"

#include <algorithm>
#include <optional>

#include "engine/lists/indexed_list.h"
#include "engine/lists/keyset_list.h"
#include "engine/lists/stored_list.h"
#include "engine/rows/slices.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldType;

// How an index (or the row key) puts one table's rows into the plan's order.
struct IndexOrder {
  std::vector<OrderColumn> order;
  std::string index;
  bool descending = false;
  bool behindOthers = false;  ///< the order's field follows others in the index, which the filter may fix
};

const platform::TableDefinition& TableOf(const SelectPlan& plan) { return plan.tables.front().table->definition; }

// Whether an index has the field behind others: it gives the order where a filter fixes those, as the work tables' lists do.
bool FollowsInAnIndex(const platform::TableDefinition& table, const std::string& field) {
  return std::ranges::any_of(table.indexes, [&](const platform::IndexDefinition& index) {
    const auto found = std::ranges::find_if(index.fields, [&](const auto& name) { return platform::EqualsNoCase(name, field); });
    return found != index.fields.end() && found != index.fields.begin();
  });
}

std::optional<IndexOrder> OrderByIndex(const SelectPlan& plan) {
  if (!plan.oneTable || plan.order.size() > 1) return {};
  if (plan.order.empty()) return IndexOrder{};
  const PlanOrder& key = plan.order.front();
  if (key.table != 0 || key.field < 0) return {};
  const platform::FieldDefinition& field = TableOf(plan).fields[static_cast<std::size_t>(key.field)];
  if (field.type == FieldType::Counter) return IndexOrder{{}, "", key.descending, false};
  for (const platform::IndexDefinition& index : TableOf(plan).indexes)
    if (index.fields.size() == 1 && platform::EqualsNoCase(index.fields.front(), field.name))
      return IndexOrder{{{key.sql, key.type}}, index.name, key.descending, false};
  if (!plan.where.empty() && FollowsInAnIndex(TableOf(plan), field.name))
    return IndexOrder{{{key.sql, key.type}}, "", key.descending, true};
  return {};
}

// No table has more rows than its row keys have numbers. Where an index gives the order, pages of it are so cheap that only
// the keys of short lists are worth reading.
bool FitsExact(RowSource& source) {
  constexpr std::int64_t kShortList = 1000;
  const std::int64_t most = std::min(source.Context().Options().exactRows, kShortList);
  if (most <= 0 || source.Shape().knownLong) return false;
  const bool fits = SpanOf(source).last <= most;
  source.Shape().knownLong = !fits;
  return fits;
}

// Whether the rows of a filter lie so close together in the list's order that pages of it are cheap: the first page is tried
// with the work of a thousand rows, and the store must not have had to sort. Few: those are all, and stay in `known`.
enum class Density { Dense, Few, Thin };
Density DensityOf(RowSource& source, const IndexOrder& order, KeysetList::Known& known) {
  constexpr std::size_t kPage = 64;
  KeyWalker& walker = *source.Shape().Walker(source.Store(), order.order, "");
  KeyWalker::Request request;
  request.direction = order.descending ? Direction::Down : Direction::Up;
  request.limit = kPage;
  request.keysOnly = true;
  known.version = source.RecentVersion();
  const bool cheap = source.Store().ReadsCheaply(1000, [&] {
    walker.Read(request, [&](const Query& row) {
      known.keys.push_back(row.Int(walker.RowKeyAt(true)));
      return true;
    });
  });
  if (!cheap) return Density::Thin;
  return known.keys.size() == kPage || source.Context().Options().exactRows <= 0 ? Density::Dense : Density::Few;
}

// All keys of one table, put in order here when that is quicker than the store's own sorting.
std::shared_ptr<RowList> HeldKeys(const std::shared_ptr<RowSource>& source) {
  const SelectPlan& plan = source->Plan();
  if (plan.order.size() != 1 || plan.order.front().table != 0) return std::make_shared<KeysetList>(source);
  return std::make_shared<KeysetList>(source, OrderColumn{plan.order.front().sql, plan.order.front().type}, plan.order.front().descending);
}

}  // namespace

std::shared_ptr<RowList> ChooseList(const std::shared_ptr<RowSource>& source) {
  const SelectPlan& plan = source->Plan();
  if (plan.distinct || plan.aggregate) return std::make_shared<StoredList>(source);
  if (!plan.oneTable) return std::make_shared<KeysetList>(source);

  const auto byIndex = OrderByIndex(plan);
  if (!byIndex) return HeldKeys(source);
  // With a filter the store may know a better index than that of the order alone.
  const std::string index = plan.where.empty() ? byIndex->index : "";
  const bool filtered = !plan.where.empty();
  const KeysetList::Walk walk{byIndex->order, index, byIndex->descending};
  if (!byIndex->behindOthers && FitsExact(*source)) return std::make_shared<KeysetList>(source, walk);
  if (filtered) {
    KeysetList::Known known;
    const Density density = DensityOf(*source, *byIndex, known);
    if (density == Density::Thin) return HeldKeys(source);
    if (density == Density::Few) return std::make_shared<KeysetList>(source, walk, std::move(known));
    if (byIndex->behindOthers) return std::make_shared<KeysetList>(source, walk);
  }
  return std::make_shared<IndexedList>(source, IndexedList::Shape{byIndex->order, byIndex->descending, index, true});
}

}  // namespace engine
