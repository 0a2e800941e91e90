#include "engine/search/keyset_search.h"

#include <algorithm>

#include "engine/rows/key_batch.h"
#include "engine/rows/slices.h"
#include "engine/text/text_order.h"
#include "engine/translate/plan/planning.h"
#include "engine/values/sql_type.h"

namespace engine {
namespace {

constexpr std::size_t kRowsBetweenPaints = 8192;

// What a row of a join is known by.
std::string KeyText(const RowSource& source, const std::int64_t* keys) {
  std::string text;
  for (std::size_t i = 0; i < source.KeyCount(); ++i)
    if (source.Shape().IsKnownByKey(i)) text.append(reinterpret_cast<const char*>(keys + i), sizeof(std::int64_t));
  return text;
}

// How many rows are looked at one by one. Of one table the one statement over all of them says the same, and is quicker
// unless there are very few rows or very many.
std::int64_t RowsToWalk(std::int64_t rows, bool oneTable) {
  constexpr std::int64_t kFew = 64;
  constexpr std::int64_t kMany = 20'000;
  if (oneTable && rows > kFew && rows <= kMany) return 0;
  return std::clamp<std::int64_t>(rows / 256, kFew, 1024);
}

}  // namespace

bool KeysetSearch::Find(std::string_view criterion, const Place* after, Place& found) {
  Understand(criterion);
  std::int64_t from = after == nullptr ? 0 : after->ordinal + 1;
  while (const auto hit = FirstFit(from)) {
    if (list_.Visit(*hit, found)) return true;
    from = *hit + 1;  // deleted by others in the meantime
  }
  return false;
}

void KeysetSearch::Understand(std::string_view criterion) {
  if (criterion == criterion_ && !plan_.where.empty()) return;
  plan_ = PlanCriterion(criterion, source_.Plan(), source_.OwnDialect());
  criterion_ = criterion;
  test_ = source_.TestFor(plan_.where);
  hitsKnown_ = false;
}

std::optional<std::int64_t> KeysetSearch::FirstFit(std::int64_t from) {
  std::int64_t hit = 0;
  std::optional<bool> answer = ByRowKey(from, hit);
  if (!answer) answer = AmongFew(from, hit);
  if (!answer) answer = ByIndex(from, hit);
  if (!answer) answer = ByOrder(from, hit);
  if (!answer && hitsKnown_ && hitsVersion_ == source_.Version()) answer = FromHits(from, hit);
  if (!answer) answer = WalkAhead(from, hit);
  if (!answer) {
    CollectHits();
    answer = FromHits(from, hit);
  }
  return *answer ? std::optional(hit) : std::nullopt;
}

bool KeysetSearch::OnField(int& field) const {
  field = plan_.shape.field;
  return plan_.shape.kind != SearchShape::Kind::Scan && plan_.shape.field >= 0 && source_.KeyCount() == 1;
}

// A criterion that names one row by its key.
std::optional<bool> KeysetSearch::ByRowKey(std::int64_t from, std::int64_t& hit) {
  const SearchShape& shape = plan_.shape;
  if (shape.kind != SearchShape::Kind::Equals || shape.field < 0 || shape.value.Kind() != platform::ValueKind::Long) return {};
  // A join has the driving table's row once where all others follow from it.
  const SelectPlan& plan = source_.Plan();
  const auto isKnown = [&](std::size_t table) { return static_cast<int>(table) == plan.driving || plan.tables[table].follows; };
  for (std::size_t i = 0; i < plan.tables.size(); ++i)
    if (!isKnown(i)) return {};
  if (shape.table != plan.driving) return {};
  const auto& definition = plan.tables[static_cast<std::size_t>(plan.driving)].table->definition;
  if (definition.fields[static_cast<std::size_t>(shape.field)].type != platform::FieldType::Counter) return {};
  const std::int64_t rowKey = plan_.shape.value.As<std::int32_t>();
  const auto ordinal = list_.OrdinalOfKey(rowKey);
  if (!ordinal || *ordinal < from || !list_.IsAlive(*ordinal)) return false;
  hit = *ordinal;
  return true;
}

// All rows of a short list, which then are there.
std::optional<bool> KeysetSearch::AmongFew(std::int64_t from, std::int64_t& hit) {
  std::optional<std::vector<std::int64_t>> fits;
  try {
    fits = list_.FitsOfFew(plan_.where);
  } catch (const platform::Error&) {
    // As in WalkAhead.
  }
  if (!fits) return {};
  const auto found = std::ranges::lower_bound(*fits, from);
  if (found == fits->end()) return false;
  hit = *found;
  return true;
}

// As long as nobody has written, the keys stand in the order of the index, and the first hit there is the first here.
std::optional<bool> KeysetSearch::ByIndex(std::int64_t from, std::int64_t& hit) {
  int field = -1;
  KeyWalker* walker = list_.Walker();
  const auto& order = source_.Plan().order;
  if (walker == nullptr || !OnField(field) || order.empty() || order.front().field != field || walker->Order().size() != 1) return {};
  list_.FillAll();
  if (!list_.InIndexOrder()) return {};

  std::optional<OrderPlace> place;
  if (from > 0) {
    if (from > list_.Size()) return false;
    place = walker->PlaceOfRow(*list_.KeysOf(from - 1));
    if (!place) return {};
  }
  KeyWalker::Request request;
  KeyBounds bounds;
  request.direction = list_.Forward();
  request.from = place ? &*place : nullptr;
  request.keysOnly = true;
  request.condition = plan_.where;
  const bool up = list_.Forward() == Direction::Up;
  if (plan_.shape.kind == SearchShape::Kind::Prefix) {
    const PrimaryRange range = PrefixRange(plan_.shape.value.As<std::string>());
    bounds = {range.lower, range.upper};
    request.bounds = &bounds;
    if (place) {
      const platform::Value& here = place->values.front();
      const bool belowAll = here.IsNull() || CompareText(here.As<std::string>(), range.lower) < 0;
      const bool aboveAll = !here.IsNull() && CompareText(here.As<std::string>(), range.upper) >= 0;
      if (up ? aboveAll : belowAll) return false;
      if (up ? belowAll : aboveAll)
        request.from = nullptr;
      else
        (up ? bounds.lower : bounds.upper).reset();
    }
  }
  std::optional<std::int64_t> rowKey;
  walker->Read(request, [&](const Query& row) {
    rowKey = row.Int(walker->RowKeyAt(true));
    return false;
  });
  if (!rowKey) return false;
  const auto ordinal = list_.OrdinalOfKey(*rowKey);
  if (!ordinal || *ordinal < from || !list_.IsAlive(*ordinal)) return {};
  hit = *ordinal;
  return true;
}

// Where the held keys are in the order of the field that is searched, the first fit is found by halving.
std::optional<bool> KeysetSearch::ByOrder(std::int64_t from, std::int64_t& hit) {
  int field = -1;
  const KeyWalker* places = list_.Places();
  const auto& order = source_.Plan().order;
  if (places == nullptr || !OnField(field) || order.size() != 1 || order.front().field != field || places->Order().size() != 1) return {};
  if (SqlTypeOf(order.front().type) != SqlType::Text) return {};
  list_.FillAll();
  if (!list_.InOrder()) return {};
  if (plan_.shape.kind == SearchShape::Kind::Prefix) range_ = PrefixRange(plan_.shape.value.As<std::string>());
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  const std::optional<std::int64_t> fit = FirstInRange(from);
  oneState.Commit();
  if (fit) hit = *fit;
  return fit.has_value();
}

std::optional<std::int64_t> KeysetSearch::FirstInRange(std::int64_t from) {
  std::int64_t first = from;
  // Who searches on is near the next fit.
  bool inRange = from > 0 && from < list_.Size() && IsInRange(from);
  if (!inRange) {
    first = list_.FirstNotBefore(from, [&](const OrderPlace* place) {
      const int side = SideOfRange(place);
      if (side >= 0) inRange = side == 0;  // the last one asked that isn't before is the first
      return side < 0;
    });
  }
  while (first < list_.Size() && inRange) {
    if (list_.IsAlive(first) && source_.Test(list_.KeysOf(first), test_)) return first;
    ++first;
    inRange = first < list_.Size() && IsInRange(first);
  }
  return {};
}

bool KeysetSearch::IsInRange(std::int64_t ordinal) const {
  const auto place = list_.Places()->PlaceOfRow(*list_.KeysOf(ordinal));
  return SideOfRange(place ? &*place : nullptr) == 0;
}

// Before (-1), in (0) or behind (1) the rows that the criterion's field can fit, in list order.
int KeysetSearch::SideOfRange(const OrderPlace* place) const {
  const int sign = list_.Forward() == Direction::Up ? 1 : -1;
  if (place == nullptr || place->values.front().IsNull()) return -sign;
  const std::string& text = place->values.front().As<std::string>();
  if (plan_.shape.kind == SearchShape::Kind::Equals)
    return sign * std::clamp(CompareText(text, plan_.shape.value.As<std::string>()), -1, 1);
  if (CompareText(text, range_.lower) < 0) return -sign;
  return CompareText(text, range_.upper) >= 0 ? sign : 0;
}

// The next rows one by one: true or false when they decide, nothing when there are more rows behind them.
std::optional<bool> KeysetSearch::WalkAhead(std::int64_t from, std::int64_t& hit) {
  const std::int64_t end = from + RowsToWalk(list_.Size(), source_.KeyCount() == 1);
  if (end == from) return {};
  if (source_.FetchesTogether()) {
    try {
      return WalkTogether(from, end, hit);
    } catch (const platform::Error&) {
      // The test may fail on a row that stands behind the one that is found: then they are asked one by one.
    }
  }
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  for (std::int64_t i = from; i < end; ++i) {
    if (!list_.Reach(i)) return false;
    if (!list_.IsAlive(i) || !source_.Test(list_.KeysOf(i), test_)) continue;
    hit = i;
    return true;
  }
  if (!list_.Reach(end)) return false;
  return {};
}

std::optional<bool> KeysetSearch::WalkTogether(std::int64_t from, std::int64_t end, std::int64_t& hit) {
  const auto driving = static_cast<std::size_t>(source_.Plan().driving);
  std::int64_t behind = std::min<std::int64_t>(end, from + KeyBatch::kPage);
  for (std::int64_t first = from; first < end; first = behind, behind = std::min<std::int64_t>(end, first + KeyBatch::kMany)) {
    std::vector<std::int64_t> keys;
    for (std::int64_t i = first; i < behind && list_.Reach(i); ++i)
      if (list_.IsAlive(i)) keys.insert(keys.end(), list_.KeysOf(i), list_.KeysOf(i) + source_.KeyCount());
    const std::vector<std::int64_t> fit = source_.TestTogether(keys, plan_.where);
    for (std::int64_t i = first; i < behind && list_.Reach(i); ++i) {
      if (!list_.IsAlive(i) || std::ranges::find(fit, list_.KeysOf(i)[driving]) == fit.end()) continue;
      hit = i;
      return true;
    }
  }
  if (!list_.Reach(end)) return false;
  return {};
}

bool KeysetSearch::IsHit(const std::int64_t* keys) const {
  const std::size_t count = source_.KeyCount();
  return count == 1 ? hits_.contains(*keys) : joinedHits_.contains(KeyText(source_, keys));
}

// All rows that fit, in whatever order the store finds them. Of one table its filter need not be asked again: which rows
// belong to the list, the list knows.
void KeysetSearch::CollectHits() {
  hitsVersion_ = source_.Version();
  hits_.clear();
  joinedHits_.clear();
  source_.Plan().tables.size() == 1 ? CollectOfOneTable() : CollectOfMany();
  hitsKnown_ = true;
}

// Those of a short list by their keys, else all of the table; piece by piece.
void KeysetSearch::CollectOfOneTable() {
  constexpr std::int64_t kScannedForOneKey = 10;
  constexpr std::int64_t kKeysWorthAsking = 1024;  // where a look at all rows is one statement
  const auto take = [this](const Query& row) { hits_.insert(row.Int(0)); };
  list_.FillAll();
  if (source_.OwnDialect().PlansByItself() && list_.Size() > kKeysWorthAsking) return CollectByOne();
  if (list_.Size() > SpanOf(source_).Width() / kScannedForOneKey) {
    PiecewiseScan all(source_, source_.KeyList(), plan_.where);
    return ReadAll(source_, all, take);
  }
  std::vector<std::int64_t> keys;
  for (std::int64_t i = 0; i < list_.Size(); ++i) keys.push_back(*list_.KeysOf(i));
  std::ranges::sort(keys);
  PiecewiseScan held(source_, source_.KeyList(), plan_.where, std::move(keys));
  ReadAll(source_, held, take);
}

void KeysetSearch::CollectByOne() {
  Query query(source_.Store(), "SELECT " + source_.KeyList() + " FROM " + source_.Plan().from + " WHERE " + plan_.where);
  while (query.Step()) {
    hits_.insert(query.Int(0));
    if (hits_.size() % kRowsBetweenPaints == 0) source_.Store().ServePainting();
  }
}

void KeysetSearch::CollectOfMany() {
  const SelectPlan& plan = source_.Plan();
  Query query(source_.Store(), std::string_view("SELECT " + source_.KeyList() + " FROM " + plan.from + " WHERE " +
                                                (plan.where.empty() ? "" : "(" + plan.where + ") AND ") + "(" + plan_.where + ")"));
  for (std::size_t rows = 1; query.Step(); ++rows) {
    RowPage row(0, source_.KeyCount());
    source_.ReadKeys(query, 0, row);
    joinedHits_.insert(KeyText(source_, row.KeysOf(0)));
    if (rows % kRowsBetweenPaints == 0) source_.Store().ServePainting();
  }
}

bool KeysetSearch::FromHits(std::int64_t from, std::int64_t& hit) {
  const auto isOwn = [&](std::int64_t i) { return std::ranges::find(list_.OwnRows(), i) != list_.OwnRows().end(); };
  const bool manyTables = source_.KeyCount() > 1;
  // Rows that a join might not deliver any more, since they were changed here, are asked themselves.
  std::optional<std::int64_t> ownHit;
  if (manyTables)
    for (const std::int64_t own : list_.OwnRows())
      if (own >= from && list_.IsAlive(own) && (!ownHit || own < *ownHit) && source_.Test(list_.KeysOf(own), test_)) ownHit = own;
  const bool none = hits_.empty() && joinedHits_.empty();
  for (std::int64_t i = from; !none && list_.Reach(i) && (!ownHit || i < *ownHit); ++i) {
    if (!list_.IsAlive(i) || !IsHit(list_.KeysOf(i)) || (manyTables && isOwn(i))) continue;
    hit = i;
    return true;
  }
  if (ownHit) hit = *ownHit;
  return ownHit.has_value();
}

}  // namespace engine
