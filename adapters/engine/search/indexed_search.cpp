#include "engine/search/indexed_search.h"

#include <algorithm>

#include "engine/rows/slices.h"
#include "engine/text/text_order.h"
#include "engine/translate/plan/planning.h"
#include "engine/values/field_values.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;

constexpr std::int64_t kFewHits = 256;  // of another index: taken without a walk
constexpr std::int64_t kFirstSliceKeys = 20'000;
constexpr std::size_t kRowsBetweenPaints = 8192;

// How many rows are looked at in list order, before the whole table is: few beside its size, since each lies elsewhere.
std::int64_t RowsToWalk(std::int64_t rows) { return rows <= kFirstSliceKeys ? 0 : std::min<std::int64_t>(rows / 512, 1024); }

}  // namespace

bool IndexedSearch::Find(std::string_view criterion, const Place* after, Place& found) {
  Understand(criterion);
  if (OnRowKey()) return ByRowKey(after, found);
  if (OnOrderColumn()) return ByOrderColumn(after, found);
  if (!OtherIndex().empty()) return ByOtherIndex(after, found);
  return ByRows(after, found);
}

void IndexedSearch::Understand(std::string_view criterion) {
  if (criterion == criterion_ && !plan_.where.empty()) return;
  plan_ = PlanCriterion(criterion, source_.Plan(), source_.OwnDialect());
  criterion_ = criterion;
  test_ = {};
  hits_.reset();
  next_ = {};
}

// ---- ways to search

bool IndexedSearch::OnRowKey() const {
  if (plan_.shape.kind != SearchShape::Kind::Equals || plan_.shape.field < 0) return false;
  const auto& table = source_.Plan().tables.front().table->definition;
  return table.fields[static_cast<std::size_t>(plan_.shape.field)].type == FieldType::Counter;
}

bool IndexedSearch::OnOrderColumn() const {
  if (plan_.shape.kind == SearchShape::Kind::Scan || walker_.Order().size() != 1) return false;
  const auto& order = source_.Plan().order;
  return !order.empty() && order.front().field == plan_.shape.field;
}

std::string IndexedSearch::OtherIndex() const {
  if (plan_.shape.kind == SearchShape::Kind::Scan || plan_.shape.field < 0) return {};
  const auto& table = source_.Plan().tables.front().table->definition;
  const std::string& field = table.fields[static_cast<std::size_t>(plan_.shape.field)].name;
  for (const auto& index : table.indexes)
    if (platform::EqualsNoCase(index.fields.front(), field)) return index.name;
  return {};
}

bool IndexedSearch::ByRowKey(const Place* after, Place& found) {
  const Value& wanted = plan_.shape.value;
  if (wanted.Kind() != platform::ValueKind::Long) return ByRows(after, found);
  const std::int64_t rowKey = wanted.As<std::int32_t>();
  Place place;
  if (!list_.RowByKey(rowKey, place)) return false;
  if (!list_.IsPinned(rowKey) && !walker_.InFilter(rowKey)) return false;
  if (after != nullptr && list_.ComparePlaces(place, *after) <= 0) return false;
  found = std::move(place);
  return true;
}

bool IndexedSearch::ByOrderColumn(const Place* after, Place& found) {
  if (plan_.shape.kind != SearchShape::Kind::Prefix) return WithPinned(Probe(after, {}), after, found);
  const std::optional<KeyBounds> bounds = PrefixBounds();
  return WithPinned(bounds ? Probe(after, *bounds) : std::nullopt, after, found);
}

// Where texts stand that begin as they are looked for and as the list's own filter has them; nothing when there are none.
std::optional<KeyBounds> IndexedSearch::PrefixBounds() const {
  PrimaryRange range = PrefixRange(plan_.shape.value.As<std::string>());
  for (const PlanBound& bound : source_.Plan().bounds) {
    if (bound.field != plan_.shape.field || !bound.start) continue;
    PrimaryRange own = PrefixRange(*bound.start);
    if (CompareText(own.lower, range.lower) > 0) range.lower = std::move(own.lower);
    if (CompareText(own.upper, range.upper) < 0) range.upper = std::move(own.upper);
  }
  if (CompareText(range.lower, range.upper) >= 0) return {};
  return KeyBounds{std::move(range.lower), std::move(range.upper)};
}

// A criterion on an index other than the list's: few hits are simply sorted; many are common enough for a walk.
bool IndexedSearch::ByOtherIndex(const Place* after, Place& found) {
  const std::uint64_t version = source_.Version();
  if (hits_ && hitsVersion_ == version) return FromHits(after, found);

  std::string condition = "(" + plan_.where + ")";
  const auto& field = source_.Plan().tables.front().table->definition.fields[static_cast<std::size_t>(plan_.shape.field)];
  const Dialect& dialect = source_.OwnDialect();
  const PlanTable& table = source_.Plan().tables.front();
  const std::string column = dialect.Comparable(table.table->definition, field, table.alias);
  std::string lower;
  std::string upper;
  if (plan_.shape.kind == SearchShape::Kind::Prefix) {
    const PrimaryRange range = PrefixRange(plan_.shape.value.As<std::string>());
    lower = dialect.Comparable(range.lower);
    upper = dialect.Comparable(range.upper);
    condition += " AND " + column + " >= " + dialect.Parameter(1) + " AND " + column + " < " + dialect.Parameter(2);
  }
  if (!source_.Plan().rowWhere.empty()) condition += " AND (" + source_.Plan().rowWhere + ")";
  const std::string hint = dialect.Along(source_.Plan().tables.front().table->definition.name, OtherIndex());
  const std::string all = "SELECT " + walker_.KeyColumns() + " FROM " + source_.Plan().from + hint + " WHERE " + condition;
  const auto collect = [&](const std::string& text) {
    auto hits = std::make_unique<Hits>(walker_, forward_);
    Query query(source_.Store(), std::string_view(text));
    if (plan_.shape.kind == SearchShape::Kind::Prefix) {
      query.Bind(1, std::string_view(lower));
      query.Bind(2, std::string_view(upper));
    }
    while (query.Step()) {
      hits->Add(query);
      if (hits->Size() % kRowsBetweenPaints == 0) source_.Store().ServePainting();
    }
    return hits;
  };
  auto hits = collect(all + " LIMIT " + std::to_string(kFewHits + 1));
  if (static_cast<std::int64_t>(hits->Size()) > kFewHits) {
    if (const auto near = WalkAhead(after, found)) return *near;
    hits = collect(all);
  }
  hits_ = std::move(hits);
  hitsVersion_ = version;
  return FromHits(after, found);
}

bool IndexedSearch::ByRows(const Place* after, Place& found) {
  const std::uint64_t version = source_.Version();
  if (hits_ && hitsVersion_ == version) return FromHits(after, found);
  if (const auto near = WalkAhead(after, found)) return *near;
  CollectAll();
  return FromHits(after, found);
}

// ---- their parts

// Where a probe begins and ends. A place before the bounds is no start: the index is entered at the bound itself.
bool IndexedSearch::BoundsFor(const Place* after, KeyBounds& bounds, bool& fromEnd) const {
  fromEnd = after == nullptr;
  if (after == nullptr) return true;
  const FieldType type = walker_.Order().front().type;
  const Value& here = after->order.front();
  const bool up = forward_ == Direction::Up;
  if (plan_.shape.kind == SearchShape::Kind::Equals) {
    const auto& table = source_.Plan().tables.front().table->definition;
    const Value wanted =
        ConvertForField(source_.Context().OwnClock(), table.fields[static_cast<std::size_t>(plan_.shape.field)], plan_.shape.value);
    const int order = CompareStored(type, here, wanted);
    if (up ? order > 0 : order < 0) return false;
    fromEnd = order != 0;
    return true;
  }
  const bool belowAll = here.IsNull() || CompareText(here.As<std::string>(), *bounds.lower) < 0;
  const bool aboveAll = !here.IsNull() && CompareText(here.As<std::string>(), *bounds.upper) >= 0;
  if (up ? aboveAll : belowAll) return false;
  fromEnd = up ? belowAll : aboveAll;
  if (!fromEnd) (up ? bounds.lower : bounds.upper).reset();
  return true;
}

Place IndexedSearch::PlaceIn(const std::shared_ptr<const RowPage>& page, std::size_t row) const {
  Place place;
  place.keys.assign(1, *page->KeysOf(row));
  for (std::size_t i = 0; i < walker_.Order().size(); ++i) place.order.push_back(page->Cell(row, source_.Fields().size() + i));
  place.page = page;
  place.row = row;
  return place;
}

// Whether what follows the row is known from the probe before.
bool IndexedSearch::KnowsNext(const Place* after) const {
  if (after == nullptr || !next_.page || after->added > 0 || next_.at >= next_.page->Rows() || !list_.PinnedRows().empty()) return false;
  if (*next_.page->KeysOf(next_.at) != after->keys[0] || next_.version != source_.Version()) return false;
  return next_.ended || next_.at + 1 < next_.page->Rows();
}

// One row, and more and more of them where asking costs most and somebody searches on from the row that was found.
std::int64_t IndexedSearch::WantedBehind(const Place* after) {
  constexpr std::int64_t kFirstFew = 4;
  const std::int64_t most = source_.OwnDialect().rowsAtOnce;
  const bool goesOn = after != nullptr && next_.page && next_.at < next_.page->Rows() && *next_.page->KeysOf(next_.at) == after->keys[0];
  next_.wanted = goesOn ? std::min(most, std::max(kFirstFew, 4 * next_.wanted)) : 1;
  return std::max<std::int64_t>(1, std::min(most, next_.wanted));
}

std::optional<Place> IndexedSearch::Probe(const Place* after, KeyBounds bounds) {
  if (after != nullptr && after->added > 0) return {};
  if (KnowsNext(after)) {
    if (next_.at + 1 == next_.page->Rows()) return {};
    return PlaceIn(next_.page, ++next_.at);
  }
  bool fromEnd = true;
  if (!BoundsFor(after, bounds, fromEnd)) return {};
  OrderPlace place;
  if (after != nullptr) place = {after->order, after->keys[0]};
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = fromEnd ? nullptr : &place;
  request.equalsOnly = !fromEnd && plan_.shape.kind == SearchShape::Kind::Equals;
  const std::int64_t wanted = WantedBehind(after);
  request.limit = wanted + static_cast<std::int64_t>(list_.PinnedRows().size());
  std::string like;
  std::string pattern;
  if (plan_.shape.kind == SearchShape::Kind::Prefix) {
    // The pattern apart from the statement, which so need not be prepared for each search.
    const Dialect& dialect = source_.OwnDialect();
    like = dialect.LikeTest(walker_.Order().front().sql, dialect.Parameter(static_cast<std::size_t>(walker_.ConditionTextAt())));
    pattern = dialect.LikeForm(plan_.shape.pattern);
    request.conditionText = pattern;
  }
  request.condition = like.empty() ? std::string_view(plan_.where) : like;
  if (bounds.lower || bounds.upper) request.bounds = &bounds;
  const bool keepsNext = source_.OwnDialect().rowsAtOnce > 1;
  if (keepsNext) next_.version = source_.Version();
  const auto page = source_.NewPage(walker_.Order().size());
  const auto isShort = [&] { return static_cast<std::int64_t>(page->Rows()) < wanted; };
  walker_.Read(request, [&](const Query& row) {
    if (!list_.IsPinned(row.Int(walker_.RowKeyAt(false)))) walker_.AppendRow(row, *page);
    return isShort();
  });
  next_.ended = isShort();
  next_.at = 0;
  next_.page = keepsNext ? page : nullptr;
  if (page->Rows() == 0) return {};
  return PlaceIn(page, 0);
}

// The next rows in list order: true or false when they decide, nothing when there are more rows behind them.
std::optional<bool> IndexedSearch::WalkAhead(const Place* after, Place& found) {
  const std::int64_t rows = RowsToWalk(list_.Count());
  if (rows == 0) return {};
  if (source_.OwnDialect().PlansByItself()) return WalkAmong(rows, after, found);
  std::optional<std::int64_t> hit;
  bool ended = true;
  if (after == nullptr || after->added == 0) {
    OrderPlace place;
    if (after != nullptr) place = {after->order, after->keys[0]};
    KeyWalker::Request request;
    request.direction = forward_;
    request.from = after == nullptr ? nullptr : &place;
    request.limit = rows;
    request.keysOnly = true;
    request.flag = plan_.where;
    const std::int64_t read = walker_.Read(request, [&](const Query& row) {
      const std::int64_t rowKey = row.Int(walker_.RowKeyAt(true));
      const int flag = walker_.FlagAt(true);
      if (!row.IsNull(flag) && row.Int(flag) != 0 && !list_.IsPinned(rowKey)) hit = rowKey;
      return !hit.has_value();
    });
    ended = read < request.limit;
  }
  if (!hit && !ended) return {};
  return WithPinned(RowOf(hit), after, found);
}

// The same by one statement that gives no other row than the one that fits. It doesn't tell whether the list ends there.
std::optional<bool> IndexedSearch::WalkAmong(std::int64_t rows, const Place* after, Place& found) {
  if (after != nullptr && after->added > 0) return WithPinned({}, after, found);
  OrderPlace place;
  if (after != nullptr) place = {after->order, after->keys[0]};
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = after == nullptr ? nullptr : &place;
  request.limit = 1 + static_cast<std::int64_t>(list_.PinnedRows().size());
  request.among = rows;
  const std::string condition = '(' + plan_.where + ')';
  request.condition = condition;
  const auto page = source_.NewPage(walker_.Order().size());
  walker_.Read(request, [&](const Query& row) {
    if (!list_.IsPinned(row.Int(walker_.RowKeyAt(false)))) walker_.AppendRow(row, *page);
    return page->Rows() == 0;
  });
  if (page->Rows() == 0) return {};
  return WithPinned(PlaceIn(page, 0), after, found);
}

// The whole table in the order in which it lies.
void IndexedSearch::CollectAll() {
  const SelectPlan& plan = source_.Plan();
  const bool byOne = source_.OwnDialect().PlansByItself();
  std::optional<Transaction> oneState;
  if (!byOne) oneState.emplace(source_.Store(), Transaction::Kind::Read);
  hitsVersion_ = source_.Version();
  hits_ = std::make_unique<Hits>(walker_, forward_);
  const auto take = [this](const Query& row) { hits_->Add(row); };
  const auto with = [&](const std::string& filter) { return (filter.empty() ? "" : "(" + filter + ") AND ") + ("(" + plan_.where + ")"); };
  // A filter that asks other tables as a whole would ask them anew for each piece.
  if (byOne || (plan.asksOtherTables && !plan.asksByRow) || SpanOf(source_).Width() <= kShortestCut) {
    Query all(source_.Store(), "SELECT " + walker_.KeyColumns() + " FROM " + plan.from +
                                   (plan.where.empty() ? source_.OwnDialect().withoutIndex : "") + " WHERE " + with(plan.where));
    while (all.Step()) {
      take(all);
      if (hits_->Size() % kRowsBetweenPaints == 0) source_.Store().ServePainting();
    }
  } else {
    PiecewiseScan scan(source_, walker_.KeyColumns(), with(plan.rowWhere));
    ReadAll(source_, scan, take);
  }
  if (oneState) oneState->Commit();
}

bool IndexedSearch::FromHits(const Place* after, Place& found) {
  OrderPlace place;
  if (after != nullptr) place = {after->order, after->keys[0]};
  std::optional<Place> best;
  if (after == nullptr || after->added == 0) {
    auto next = hits_->FirstBehind(after == nullptr ? nullptr : &place);
    for (; next; next = hits_->FirstBehind(&*next)) {
      if (!list_.IsPinned(next->rowKey)) best = RowOf(next->rowKey);
      if (best) break;  // else it has been deleted since
    }
  }
  return WithPinned(std::move(best), after, found);
}

std::optional<Place> IndexedSearch::RowOf(std::optional<std::int64_t> rowKey) {
  Place place;
  if (!rowKey || !list_.RowByKey(*rowKey, place)) return {};
  return place;
}

// Rows that the list holds in their places are looked at one by one and compared with what the table gave.
bool IndexedSearch::WithPinned(std::optional<Place> best, const Place* after, Place& found) {
  for (const std::int64_t pinned : list_.PinnedRows()) {
    Place other;
    if (!list_.RowByKey(pinned, other)) continue;
    if (after != nullptr && list_.ComparePlaces(other, *after) <= 0) continue;
    if (best && list_.ComparePlaces(other, *best) >= 0) continue;
    if (test_.text.empty()) test_ = source_.TestFor(plan_.where);
    if (source_.Test(&pinned, test_)) best = std::move(other);
  }
  if (!best) return false;
  found = std::move(*best);
  return true;
}

}  // namespace engine
