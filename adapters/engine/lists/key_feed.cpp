#include "engine/lists/key_feed.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "engine/rows/key_batch.h"
#include "engine/rows/order_prefix.h"
#include "engine/rows/slices.h"

namespace engine {
namespace {

constexpr std::int64_t kRowsBetweenPaints = 8192;

// Whether the other tables of a join only add columns: each row of the driving table comes once, whatever they hold.
bool OnlyLooksUp(const SelectPlan& plan) {
  if (plan.tables.size() < 2 || plan.asksOtherTables || !plan.where.empty()) return false;
  for (std::size_t i = 0; i < plan.tables.size(); ++i) {
    const PlanTable& table = plan.tables[i];
    if (static_cast<int>(i) == plan.driving ? table.nullable : !(table.follows && table.nullable)) return false;
  }
  return std::ranges::all_of(plan.order, [&](const PlanOrder& key) { return key.table == plan.driving && key.field >= 0; });
}

}  // namespace

// ---- ordered by the store

std::string QueryFeed::Text() const {
  const SelectPlan& plan = source_.Plan();
  const PlanTable& driving = plan.tables[static_cast<std::size_t>(plan.driving)];
  const bool alone = OnlyLooksUp(plan);
  std::string text =
      alone ? "SELECT " + driving.alias + '.' + driving.table->rowKey + " FROM " + driving.table->storeName + " AS " + driving.alias
            : "SELECT " + source_.KeyList() + " FROM " + plan.from;
  if (!plan.where.empty()) text += " WHERE " + plan.where;
  text += " ORDER BY ";
  for (const PlanOrder& key : plan.order) text += key.By() + source_.OwnDialect().OrderSuffix(key.descending) + ", ";
  // Equal rows stand by their row keys, in the direction of the last key; the driving table's counts first.
  const std::string direction = !plan.order.empty() && plan.order.back().descending ? " DESC" : "";
  const auto keyOf = [&](const PlanTable& table) { return table.alias + '.' + table.table->rowKey + direction; };
  text += keyOf(driving);
  for (std::size_t i = 0; !alone && i < plan.tables.size(); ++i)
    if (static_cast<int>(i) != plan.driving) text += ", " + keyOf(plan.tables[i]);
  return text;
}

bool QueryFeed::More(std::vector<std::int64_t>& keys, std::size_t, RowPage*) {
  Query query(source_.Store(), std::string_view(Text()));
  RowPage page(0, source_.KeyCount());
  const bool alone = OnlyLooksUp(source_.Plan());
  std::int64_t rows = 0;
  while (query.Step()) {
    if (alone)
      for (std::size_t i = 0; i < page.keysPerRow; ++i)
        page.keys.push_back(static_cast<int>(i) == source_.Plan().driving ? query.Int(0) : kNoRowKey);
    else
      source_.ReadKeys(query, 0, page);
    if (++rows % kRowsBetweenPaints == 0) source_.Store().ServePainting();
  }
  keys.insert(keys.end(), page.keys.begin(), page.keys.end());
  return false;
}

// ---- in the order of an index

bool WalkFeed::More(std::vector<std::int64_t>& keys, std::size_t wanted, RowPage* rows) {
  const OrderPlace from = last_;
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = begun_ ? &from : nullptr;
  request.limit = static_cast<std::int64_t>(wanted);
  request.keysOnly = rows == nullptr;
  std::int64_t number = 0;
  const std::int64_t read = walker_.Read(request, [&](const Query& row) {
    keys.push_back(row.Int(walker_.RowKeyAt(request.keysOnly)));
    if (rows != nullptr) {
      source_.ReadCells(row, 0, *rows);
      rows->keys.push_back(keys.back());
    }
    if (++number == request.limit) last_ = walker_.PlaceAt(row, request.keysOnly);
    return true;
  });
  begun_ = true;
  return read == request.limit;
}

std::int64_t WalkFeed::Estimate() { return SpanOf(source_).Width(); }

// ---- without an index

SortedFeed::SortedFeed(RowSource& source, OrderColumn order, bool descending, DrivenKeys driven)
    : source_(source), order_(std::move(order)), descending_(descending), driven_(std::move(driven)) {
  const PlanTable& table = source.Plan().tables.front();
  if (order_.sql.empty()) order_ = {table.alias + '.' + table.table->rowKey, platform::FieldType::Long};
  valueOf_.text = "SELECT " + order_.sql + " FROM " + table.table->storeName + " AS " + table.alias + " WHERE " + table.alias + '.' +
                  table.table->rowKey + " = " + source.OwnDialect().Parameter(1);
}

// All rows, those of the shortest driver, or, where other tables can't be asked row by row, whatever way the store knows.
void SortedFeed::Begin(bool waitedFor) {
  begun_ = true;
  const SelectPlan& plan = source_.Plan();
  const std::string columns = order_.sql + ", " + source_.KeyList();
  if (plan.where.empty()) {
    constexpr std::int64_t kMostReserved = 1 << 23;
    entries_.reserve(static_cast<std::size_t>(std::clamp<std::int64_t>(SpanOf(source_).Width(), 0, kMostReserved)));
    return CollectAll("SELECT " + columns + " FROM " + plan.from + source_.OwnDialect().withoutIndex);
  }
  const bool byOne = waitedFor && driven_.driver == nullptr && source_.OwnDialect().PlansByItself();
  if (byOne || (plan.asksOtherTables && !plan.asksByRow))
    return CollectAll("SELECT " + columns + " FROM " + plan.from + " WHERE " + plan.where);
  if (driven_.driver == nullptr && !plan.drivers.empty()) {
    FirstLook look(source_, nullptr, nullptr, descending_ ? Direction::Down : Direction::Up);
    // In idle time the rows of this table are looked at piece by piece; another's would all be looked at in one go.
    if (!known_.empty()) look.ByIndexesAlone();
    driven_ = look.Run().driven;
  }
  if (driven_.driver != nullptr)
    scan_ = std::make_unique<PiecewiseScan>(source_, columns, driven_.driver->rest, driven_.keys);
  else
    scan_ = std::make_unique<PiecewiseScan>(source_, columns, plan.rowWhere);
  driven_.keys = {};  // the scan has them in less room
  if (likelyRows_ > 0) entries_.reserve(static_cast<std::size_t>(likelyRows_) + static_cast<std::size_t>(likelyRows_) / 4);
}

// A part of the collecting; false when there is nothing left to collect.
bool SortedFeed::CollectSome(bool waitedFor) {
  if (collected_) return false;
  if (!begun_)
    Begin(waitedFor);
  else if (scan_ && !scan_->Next([this](const Query& row) { Take(row); }))
    scan_.reset();
  if (scan_) return true;
  collected_ = true;
  known_ = {};
  if (!entries_.empty()) ends_.push_back(entries_.size());
  return true;
}

void SortedFeed::CollectAll(const std::string& text) {
  Query query(source_.Store(), std::string_view(text));
  while (query.Step()) {
    Take(query);
    if (entries_.size() % kRowsBetweenPaints == 0) source_.Store().ServePainting();
  }
}

void SortedFeed::Take(const Query& row) {
  const std::int64_t key = row.Int(1);
  if (!known_.empty() && known_.contains(key)) return;
  const OrderStart start = OrderStartOf(row, 0, order_.type);
  entries_.emplace_back(start.prefix, key, !start.whole);
}

bool SortedFeed::Before(const Entry& left, const Entry& right) const {
  const bool less = left.prefix != right.prefix ? left.prefix < right.prefix : left.RowKey() < right.RowKey();
  const bool same = left.prefix == right.prefix && left.RowKey() == right.RowKey();
  return descending_ ? !less && !same : less;
}

// Brings the entries of a piece that stand in its first eighth, near enough, to its front, by what `key` takes of them; where
// the others begin. Entries of one key stay together, and so some may be all.
template <class Key>
std::size_t SortedFeed::Divide(std::size_t from, std::size_t to, Key key) {
  constexpr std::size_t kEntriesBetweenPaints = 1 << 19;
  std::array<decltype(key(entries_[from])), 64> some{};
  for (std::size_t i = 0; i < some.size(); ++i) some[i] = key(entries_[from + (to - from) * i / some.size()]);
  const auto eighth = some.begin() + (descending_ ? some.size() - some.size() / 8 : some.size() / 8);
  std::ranges::nth_element(some, eighth);
  const auto bringForward = [&](bool withEighth) {
    std::size_t cut = from;
    for (std::size_t i = from; i < to; ++i) {
      const auto own = key(entries_[i]);
      if (own == *eighth ? withEighth : descending_ ? own > *eighth : own < *eighth) std::swap(entries_[cut++], entries_[i]);
      // Only before the first rows: later the windows have the list, and would read on in it.
      if (given_ == 0 && i % kEntriesBetweenPaints == 0) source_.Store().ServePainting();
    }
    return cut;
  };
  const std::size_t cut = bringForward(true);
  return cut == to ? bringForward(false) : cut;
}

// Cuts a part off the first unsorted piece until it is short enough to be sorted as a whole. False when it is.
bool SortedFeed::SplitFirst() {
  constexpr std::size_t kShortPiece = 256;
  if (ends_.empty()) return false;
  const std::size_t end = ends_.back();
  if (end - given_ <= kShortPiece) return false;
  const auto all = [&](auto test) {
    return std::all_of(entries_.begin() + static_cast<std::ptrdiff_t>(given_), entries_.begin() + static_cast<std::ptrdiff_t>(end), test);
  };
  const std::uint64_t start = entries_[given_].prefix;
  if (!all([start](const Entry& entry) { return entry.prefix == start; })) {
    ends_.push_back(Divide(given_, end, [](const Entry& entry) { return entry.prefix; }));
    return true;
  }
  // Equal keys stand by their row keys; where the start is not the whole key, only the full keys order them.
  if (!PrefixDecides(order_.type) && !all([](const Entry& entry) { return !entry.Partial(); })) return false;
  ends_.push_back(Divide(given_, end, [](const Entry& entry) { return entry.RowKey(); }));
  return true;
}

bool SortedFeed::Prepare() { return CollectSome() || SplitFirst(); }

bool SortedFeed::More(std::vector<std::int64_t>& keys, std::size_t wanted, RowPage*) {
  if (!collected_) {
    Transaction oneState(source_.Store(), Transaction::Kind::Read);
    while (CollectSome(true)) source_.Store().ServePainting();
    oneState.Commit();
  }
  keys.reserve(keys.size() + entries_.size() - given_);  // all that will come: a growing list would hold it twice
  std::size_t delivered = 0;
  while (delivered < wanted && !ends_.empty()) {
    while (SplitFirst()) {
    }
    const std::size_t end = ends_.back();
    ends_.pop_back();
    const auto at = [&](std::size_t place) { return entries_.begin() + static_cast<std::ptrdiff_t>(place); };
    std::sort(at(given_), at(end), [&](const Entry& left, const Entry& right) { return Before(left, right); });
    if (!PrefixDecides(order_.type))
      for (std::size_t from = given_, to = given_; from < end; from = to) {
        while (to < end && entries_[to].prefix == entries_[from].prefix) ++to;
        const bool partial = std::any_of(at(from), at(to), [](const Entry& entry) { return entry.Partial(); });
        if (to - from > 1 && partial) OrderTies(from, to);
      }
    for (std::size_t i = given_; i < end; ++i) keys.push_back(entries_[i].RowKey());
    delivered += end - given_;
    given_ = end;
  }
  if (!ends_.empty()) return true;
  entries_ = {};
  given_ = 0;
  return false;
}

// A row that is gone has none.
std::vector<SortedFeed::Full> SortedFeed::ValuesOf(const std::vector<std::int64_t>& rowKeys) {
  std::vector<Full> rows;
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  if (source_.OwnDialect().rowsAtOnce <= 1) {
    for (const std::int64_t rowKey : rowKeys) {
      Query query(source_.Store(), valueOf_);
      query.Bind(1, rowKey);
      rows.push_back({query.Step() ? query.Read(0, order_.type) : platform::Value(platform::Null), rowKey});
    }
    oneState.Commit();
    return rows;
  }
  const PlanTable& table = source_.Plan().tables.front();
  const std::string key = table.alias + '.' + table.table->rowKey;
  const std::string text = "SELECT " + order_.sql + ", " + key + " FROM " + table.table->storeName + " AS " + table.alias + " WHERE " + key;
  for (KeyBatch batch; batch.End() < rowKeys.size();) {
    batch = KeyBatch::From(batch.End(), rowKeys.size());
    std::unordered_map<std::int64_t, platform::Value> values;
    Query query(source_.Store(), text + InParameters(source_.OwnDialect(), batch.parameters));
    batch.Bind(query, [&](std::size_t row) { return rowKeys[row]; });
    while (query.Step()) values.emplace(query.Int(1), query.Read(0, order_.type));
    for (std::size_t i = batch.first; i < batch.End(); ++i) {
      const auto value = values.find(rowKeys[i]);
      rows.push_back({value == values.end() ? platform::Value(platform::Null) : value->second, rowKeys[i]});
    }
  }
  oneState.Commit();
  return rows;
}

// Texts that begin alike: their full keys decide. Read in row key order, in which they lie beside one another.
void SortedFeed::OrderTies(std::size_t from, std::size_t to) {
  std::vector<std::int64_t> rowKeys;
  for (std::size_t i = from; i < to; ++i) rowKeys.push_back(entries_[i].RowKey());
  std::ranges::sort(rowKeys);
  std::vector<Full> rows = ValuesOf(rowKeys);
  std::ranges::sort(rows, [&](const Full& left, const Full& right) {
    const int order = CompareStored(order_.type, left.value, right.value);
    if (order != 0) return descending_ ? order > 0 : order < 0;
    return descending_ ? left.rowKey > right.rowKey : left.rowKey < right.rowKey;
  });
  for (std::size_t i = from; i < to; ++i) entries_[i] = Entry(entries_[i].prefix, rows[i - from].rowKey, true);
}

std::int64_t SortedFeed::Estimate() { return std::max(likelyRows_, static_cast<std::int64_t>(entries_.size())); }

}  // namespace engine
