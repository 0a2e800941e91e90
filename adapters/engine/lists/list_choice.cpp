#include "engine/lists/list_choice.h"

#include <algorithm>
#include <optional>

#include "engine/lists/first_look.h"
#include "engine/lists/indexed_list.h"
#include "engine/lists/keyset_list.h"
#include "engine/lists/planned_look.h"
#include "engine/lists/stored_list.h"
#include "engine/rows/slices.h"
#include "engine/translate/names/scope.h"
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
std::int64_t MostHeldAtOnce(const RowSource& source) {
  constexpr std::int64_t kShortList = 1000;
  const EngineOptions& options = source.Context().Options();
  const bool codes = std::ranges::find(options.codeTables, TableOf(source.Plan()).name) != options.codeTables.end();
  return codes ? kShortList : std::min(options.exactRows, kShortList);
}

bool FitsExact(RowSource& source) {
  const std::int64_t most = MostHeldAtOnce(source);
  if (most <= 0 || source.Shape().knownLong) return false;
  const bool fits = SpanOf(source).last <= most;
  source.Shape().knownLong = !fits;
  return fits;
}

// Whether the rows of a filter lie so close together in the list's order that pages of it are cheap: the first page is tried
// with the work of a thousand rows, and the store must not have had to sort.
bool IsDense(RowSource& source, const IndexOrder& order) {
  constexpr std::size_t kPage = 64;
  KeyWalker& walker = *source.Shape().Walker(source.Store(), order.order, "");
  KeyWalker::Request request;
  request.direction = order.descending ? Direction::Down : Direction::Up;
  request.limit = kPage;
  request.keysOnly = true;
  return source.Store().ReadsCheaply(1000, [&] { walker.Read(request, [](const Query&) { return true; }); });
}

// The table's rows in the list's order by an index that begins with a field which the filter holds to one value, if there is
// one; else by the order's own. Its filter leaves out only what bounds on those fields do, by looking at the index alone.
WalkWay BoundedWay(const SelectPlan& plan, const IndexOrder& order) {
  WalkWay way{.order = order.order, .index = order.index, .asItLies = order.order.empty()};
  const platform::TableDefinition& table = TableOf(plan);
  const int orderField = plan.order.empty() ? -1 : plan.order.front().field;
  int fixed = -1;
  for (const platform::IndexDefinition& index : table.indexes) {
    if (order.order.empty() || index.fields.size() != 2 || FieldPlace(table, index.fields[1]) != orderField) continue;
    const int first = FieldPlace(table, index.fields[0]);
    const bool holds = std::ranges::any_of(plan.bounds, [&](const PlanBound& bound) { return bound.field == first && bound.equals; });
    if (!holds) continue;
    fixed = first;
    way.index = index.name;
    break;
  }
  for (const PlanBound& bound : plan.bounds)
    if ((bound.field == orderField && !order.order.empty()) || (bound.field == fixed && bound.equals))
      way.filter += (way.filter.empty() ? "" : " AND ") + bound.sql;
  way.inBounds = !order.order.empty() && !way.filter.empty();
  return way;
}

// Whether the store is left to find the best way to a list's first rows.
bool PlansItself(RowSource& source) { return source.OwnDialect().PlansByItself(); }

// The plan's rows, its filter as a whole, put in order by the store.
std::shared_ptr<KeyWalker> AllInOrder(RowSource& source, const std::vector<OrderColumn>& order) {
  return source.Shape().Walker(source.Store(), WalkWay{.order = order, .index = {}, .filter = source.Plan().where, .putInOrder = true});
}

// A filter on a long table with an index for the list's order. Few rows are held by their keys, many are read along the index.
std::shared_ptr<RowList> LongFiltered(const std::shared_ptr<RowSource>& source, const IndexOrder& order) {
  constexpr std::int64_t kMostHeld = 200'000;
  const SelectPlan& plan = source->Plan();
  const RowShape& shape = source->Shape();
  WalkWay way = BoundedWay(plan, order);
  const auto bounded = shape.Walker(source->Store(), way);
  const bool boundsAreAll = way.filter == plan.rowWhere;
  way.filter = plan.rowWhere;
  way.inBounds = way.inBounds && boundsAreAll;
  const auto rows = shape.Walker(source->Store(), way);
  const IndexedList::Shape indexed{order.order, order.descending, way.index, true, rows, bounded};
  if (boundsAreAll) return std::make_shared<IndexedList>(source, indexed);

  const Direction direction = order.descending ? Direction::Down : Direction::Up;
  FirstRows first = PlansItself(*source) ? PlannedLook(*source, rows.get(), bounded.get(), *AllInOrder(*source, order.order), direction).Run()
                                         : FirstLook(*source, rows.get(), bounded.get(), direction).Run();
  const bool live = source->Context().Options().exactRows <= 0 || (!first.all && first.likelyRows > kMostHeld);
  if (first.way == FirstRows::Way::Walk && live) return std::make_shared<IndexedList>(source, indexed, std::move(first));
  return std::make_shared<KeysetList>(source, KeysetList::Walk{order.order, order.index, order.descending}, std::move(first));
}

// A short table's list: the first row by itself, the keys of all others behind it, so that what others add is not in it.
std::shared_ptr<RowList> FixedAtOpening(const std::shared_ptr<RowSource>& source, const KeysetList::Walk& walk) {
  auto list = std::make_shared<KeysetList>(source, walk);
  Place first;
  list->First(first);
  list->Settle();
  return list;
}

// A list's first rows in the order of a walk, and whether its table is short.
struct Beginning {
  FirstRows first;
  bool isShort = false;
};

// A filter that leaves the rows of one number with which the table's own key begins: those of one customer. Its walk takes the number as a
// parameter, so that a store which plans each statement plans one for all customers; they are few.
struct OneNumber {
  WalkWay way;
  std::int64_t number = 0;
};

std::optional<OneNumber> OneNumberOf(const RowSource& source, const KeysetList::Walk& walk) {
  const SelectPlan& plan = source.Plan();
  const Dialect& dialect = source.OwnDialect();
  if (dialect.rowsAtOnce <= 1 || plan.bounds.size() != 1 || !plan.bounds.front().number || plan.rowWhere != plan.bounds.front().sql)
    return {};
  const platform::FieldDefinition& field = TableOf(plan).fields[static_cast<std::size_t>(plan.bounds.front().field)];
  const bool leads = std::ranges::any_of(TableOf(plan).indexes, [&](const platform::IndexDefinition& index) {
    return index.primary && platform::EqualsNoCase(index.fields.front(), field.name);
  });
  if (!leads) return {};
  WalkWay way{.order = walk.order, .index = walk.index};
  way.filter = plan.tables.front().alias + '.' + dialect.Name(field.name) + " = " +
               dialect.Parameter(static_cast<std::size_t>(KeyWalker::FilterNumberAt(walk.order)));
  return OneNumber{std::move(way), *plan.bounds.front().number};
}

// Where asking costs most, the first rows come along with the answer to whether the table is short. A filter that nothing passes says nothing
// of the table; but that was all, then.
Beginning BeginningOf(const std::shared_ptr<RowSource>& source, KeyWalker& walker, bool descending,
                      std::optional<std::int64_t> filterNumber = {}) {
  const PlanTable& table = source->Plan().tables.front();
  const std::string last = "SELECT max(" + table.table->rowKey + ") FROM " + table.table->storeName;
  Beginning beginning{.first = {.way = FirstRows::Way::Walk, .version = source->Version()}};
  FirstRows& first = beginning.first;
  first.page = std::make_shared<RowPage>(source->Fields().size() + walker.Order().size(), 1);
  KeyWalker::Request request;
  request.direction = descending ? Direction::Down : Direction::Up;
  request.limit = source->OwnDialect().rowsAtOnce;
  request.flag = last;
  request.filterNumber = filterNumber;
  std::int64_t lastKey = 0;
  const std::int64_t read = walker.Read(request, [&](const Query& row) {
    walker.AppendRow(row, *first.page);
    lastKey = row.Int(walker.FlagAt(false));
    return true;
  });
  first.all = read < request.limit;
  beginning.isShort = lastKey <= MostHeldAtOnce(*source);
  source->Shape().knownLong = !beginning.isShort;
  return beginning;
}

// Whether the length of the table is to be found out, and that together with the first rows.
bool FindsOutByRows(const RowSource& source) {
  constexpr std::int64_t kCertainly = 5;  // times as long as a short one: what the store believes may be old
  if (source.OwnDialect().rowsAtOnce <= 1 || source.Shape().knownLong) return false;
  const std::int64_t most = MostHeldAtOnce(source);
  if (most <= 0) return false;
  const ResolvedTable& table = *source.Plan().tables.front().table;
  source.Shape().knownLong = table.file->LikelyRows(table.definition.name) > kCertainly * most;
  return !source.Shape().knownLong;
}

// nullptr: a long table with a filter that leaves more rows than come at once.
std::shared_ptr<RowList> ByFirstRows(const std::shared_ptr<RowSource>& source, const KeysetList::Walk& walk,
                                     const std::optional<OneNumber>& one) {
  const RowShape& shape = source->Shape();
  KeyWalker& walker = one ? *shape.Walker(source->Store(), one->way) : *shape.Walker(source->Store(), walk.order, walk.index);
  auto [first, isShort] = BeginningOf(source, walker, walk.descending, one ? std::optional(one->number) : std::nullopt);
  if (first.all && (isShort || one)) return std::make_shared<KeysetList>(source, walk, std::move(first));
  if (isShort) return FixedAtOpening(source, walk);
  if (!source->Plan().where.empty()) return nullptr;
  return std::make_shared<IndexedList>(source, IndexedList::Shape{walk.order, walk.descending, walk.index, true}, std::move(first));
}

// All keys of one table, put in order here when that is quicker than the store's own sorting.
std::shared_ptr<RowList> HeldKeys(const std::shared_ptr<RowSource>& source) {
  const SelectPlan& plan = source->Plan();
  if (plan.order.size() != 1 || plan.order.front().table != 0) return std::make_shared<KeysetList>(source);
  if (PlansItself(*source) && plan.order.front().field >= 0) {
    const KeysetList::Walk walk{{{plan.order.front().sql, plan.order.front().type}}, "", plan.order.front().descending};
    const auto all = AllInOrder(*source, walk.order);
    if (FindsOutByRows(*source)) {
      auto [few, isShort] = BeginningOf(source, *all, walk.descending);
      if (isShort && few.all) return std::make_shared<KeysetList>(source, walk, std::move(few));
    }
    if (FitsExact(*source)) return std::make_shared<KeysetList>(source, walk.order.front(), walk.descending);
    FirstRows first = PlannedLook(*source, nullptr, nullptr, *all, walk.descending ? Direction::Down : Direction::Up).Run();
    return std::make_shared<KeysetList>(source, walk, std::move(first));
  }
  return std::make_shared<KeysetList>(source, OrderColumn{plan.order.front().sql, plan.order.front().type}, plan.order.front().descending);
}

std::shared_ptr<RowList> NewList(const std::shared_ptr<RowSource>& source) {
  const SelectPlan& plan = source->Plan();
  if (plan.distinct || plan.aggregate) return std::make_shared<StoredList>(source);
  if (!plan.oneTable) return std::make_shared<KeysetList>(source);

  const auto byIndex = OrderByIndex(plan);
  if (!byIndex) return HeldKeys(source);
  // With a filter the store may know a better index than that of the order alone.
  const std::string index = plan.where.empty() ? byIndex->index : "";
  const KeysetList::Walk walk{byIndex->order, index, byIndex->descending};
  const std::optional<OneNumber> one = byIndex->behindOthers ? std::nullopt : OneNumberOf(*source, walk);
  if (one || (!byIndex->behindOthers && FindsOutByRows(*source)))
    if (auto list = ByFirstRows(source, walk, one)) return list;
  if (!byIndex->behindOthers && FitsExact(*source)) return FixedAtOpening(source, walk);
  if (!plan.where.empty()) {
    const bool byRow = !plan.asksOtherTables || plan.asksByRow;
    if (!byIndex->behindOthers && byRow) return LongFiltered(source, *byIndex);
    if (!IsDense(*source, *byIndex)) return HeldKeys(source);
    if (byIndex->behindOthers) return std::make_shared<KeysetList>(source, walk);
  }
  return std::make_shared<IndexedList>(source, IndexedList::Shape{byIndex->order, byIndex->descending, index, true});
}

// What such a filter takes changes without anybody's writing.
bool AsksTheTime(const SelectPlan& plan) { return plan.where.find("now()") != std::string::npos; }

}  // namespace

std::shared_ptr<RowList> ChooseList(const std::shared_ptr<RowSource>& source) {
  std::weak_ptr<RowList>& last = source->Shape().lastList;
  std::shared_ptr<RowList> list;
  const bool canLast = !source->Plan().where.empty() && !AsksTheTime(source->Plan());
  const auto older = last.lock();
  if (older && canLast) list = older->OpenAgain(source);
  if (!list) {
    list = NewList(source);
    if (const auto row = older ? older->RowGoneTo() : std::nullopt) list->BeginAlsoAt(*row);
  }
  last = list;
  return list;
}

}  // namespace engine
