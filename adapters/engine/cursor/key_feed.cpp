#include "engine/cursor/key_feed.h"

#include <algorithm>

#include "engine/cursor/order_prefix.h"

namespace engine {
namespace {

constexpr std::int64_t rowsBetweenPaints = 8192;

// Row keys are given in a row: their span is near the number of rows that there ever were.
std::int64_t KeySpan(RowSource& source) {
  const PlanTable& table = source.Plan().tables.front();
  const std::string from = table.table->rowKey + ") FROM " + table.table->storeName;
  return source.Store().AskNumber("SELECT (SELECT max(" + from + ") - (SELECT min(" + from + ") + 1").value_or(0);
}

}  // namespace

// ---- ordered by the store

std::string QueryFeed::Text() const {
  const SelectPlan& plan = source_.Plan();
  std::string text = "SELECT " + source_.KeyList() + " FROM " + plan.from;
  if (!plan.where.empty()) text += " WHERE " + plan.where;
  text += " ORDER BY ";
  for (const PlanOrder& key : plan.order) text += key.sql + (key.descending ? " DESC, " : ", ");
  // Equal rows stand by their row keys, in the direction of the last key; the driving table's counts first.
  const std::string direction = !plan.order.empty() && plan.order.back().descending ? " DESC" : "";
  const auto keyOf = [&](const PlanTable& table) { return table.alias + '.' + table.table->rowKey + direction; };
  text += keyOf(plan.tables[static_cast<std::size_t>(plan.driving)]);
  for (std::size_t i = 0; i < plan.tables.size(); ++i)
    if (static_cast<int>(i) != plan.driving) text += ", " + keyOf(plan.tables[i]);
  return text;
}

bool QueryFeed::More(std::vector<std::int64_t>& keys, std::size_t, RowPage*) {
  Query query(source_.Store(), std::string_view(Text()));
  RowPage page(0, source_.KeyCount());
  std::int64_t rows = 0;
  while (query.Step()) {
    source_.ReadKeys(query, 0, page);
    if (++rows % rowsBetweenPaints == 0) source_.Store().ServePainting();
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

std::int64_t WalkFeed::Estimate() { return KeySpan(source_); }

// ---- without an index

SortedFeed::SortedFeed(RowSource& source, OrderColumn order, bool descending)
    : source_(source), order_(std::move(order)), descending_(descending) {
  const PlanTable& table = source.Plan().tables.front();
  valueOf_.text = "SELECT " + order_.sql + " FROM " + table.table->storeName + " AS " + table.alias + " WHERE " + table.alias + '.' +
                  table.table->rowKey + " = ?1";
}

void SortedFeed::Collect() {
  collected_ = true;
  const SelectPlan& plan = source_.Plan();
  Query query(source_.Store(), std::string_view("SELECT " + order_.sql + ", " + source_.KeyList() + " FROM " + plan.from +
                                                (plan.where.empty() ? " NOT INDEXED" : " WHERE " + plan.where)));
  std::int64_t rows = 0;
  constexpr std::int64_t mostReserved = 1 << 20;
  if (plan.where.empty()) entries_.reserve(static_cast<std::size_t>(std::clamp<std::int64_t>(KeySpan(source_), 0, mostReserved)));
  while (query.Step()) {
    const OrderStart start = OrderStartOf(query, 0, order_.type);
    entries_.emplace_back(start.prefix, query.Int(1), !start.whole);
    if (++rows % rowsBetweenPaints == 0) source_.Store().ServePainting();
  }
  if (!entries_.empty()) ends_.push_back(entries_.size());
}

bool SortedFeed::Before(const Entry& left, const Entry& right) const {
  const bool less = left.prefix != right.prefix ? left.prefix < right.prefix : left.RowKey() < right.RowKey();
  const bool same = left.prefix == right.prefix && left.RowKey() == right.RowKey();
  return descending_ ? !less && !same : less;
}

// Halves the first unsorted piece until it is short enough to be sorted as a whole. False when it is.
bool SortedFeed::SplitFirst() {
  constexpr std::size_t shortPiece = 256;
  if (ends_.empty()) return false;
  const std::size_t end = ends_.back();
  if (end - given_ <= shortPiece) return false;
  const std::size_t middle = given_ + (end - given_) / 8;
  const auto at = [&](std::size_t place) { return entries_.begin() + static_cast<std::ptrdiff_t>(place); };
  std::nth_element(at(given_), at(middle), at(end), [&](const Entry& left, const Entry& right) { return Before(left, right); });
  // Entries of one prefix stay in one piece, since only their full keys order them.
  const std::uint64_t prefix = entries_[middle].prefix;
  const auto cut = std::partition(at(given_), at(middle), [&](const Entry& entry) { return entry.prefix != prefix; });
  const auto behind = std::partition(at(middle), at(end), [&](const Entry& entry) { return entry.prefix == prefix; });
  const auto from = static_cast<std::size_t>(cut - entries_.begin());
  const auto to = static_cast<std::size_t>(behind - entries_.begin());
  if (from == given_ && to == end) return false;  // one prefix alone
  if (to != end) ends_.push_back(to);
  if (from != given_) ends_.push_back(from);
  return true;
}

bool SortedFeed::Prepare() {
  if (!collected_) {
    Collect();
    return true;
  }
  return SplitFirst();
}

bool SortedFeed::More(std::vector<std::int64_t>& keys, std::size_t wanted, RowPage*) {
  if (!collected_) Collect();
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

// Texts that begin alike: their full keys decide. Read in row key order, in which they lie beside one another.
void SortedFeed::OrderTies(std::size_t from, std::size_t to) {
  std::vector<std::int64_t> rowKeys;
  for (std::size_t i = from; i < to; ++i) rowKeys.push_back(entries_[i].RowKey());
  std::ranges::sort(rowKeys);
  std::vector<Full> rows;
  Transaction oneState(source_.Store(), Transaction::Kind::Read);
  for (const std::int64_t rowKey : rowKeys) {
    Query query(source_.Store(), valueOf_);
    query.Bind(1, rowKey);
    rows.push_back({query.Step() ? query.Read(0, order_.type) : platform::Value(platform::Null), rowKey});
  }
  oneState.Commit();
  std::ranges::sort(rows, [&](const Full& left, const Full& right) {
    const int order = CompareStored(order_.type, left.value, right.value);
    if (order != 0) return descending_ ? order > 0 : order < 0;
    return descending_ ? left.rowKey > right.rowKey : left.rowKey < right.rowKey;
  });
  for (std::size_t i = from; i < to; ++i) entries_[i] = Entry(entries_[i].prefix, rows[i - from].rowKey, true);
}

std::int64_t SortedFeed::Estimate() { return static_cast<std::int64_t>(entries_.size()); }

}  // namespace engine
