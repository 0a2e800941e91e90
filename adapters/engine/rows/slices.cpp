#include "engine/rows/slices.h"

#include <algorithm>
#include <chrono>

namespace engine {

KeySpan SpanOf(const RowSource& source) {
  const ResolvedTable& table = *source.Plan().tables.front().table;
  return SpanOf(source.Store(), table.rowKey, table.storeName);
}

KeySpan SpanOf(Store& store, const std::string& key, const std::string& table) {
  const auto end = [&](const char* function) { return std::string("(SELECT ") + function + '(' + key + ") FROM " + table + ')'; };
  Query query(store, "SELECT " + end("min") + ", " + end("max"));
  if (!query.Step() || query.IsNull(0)) return {};
  return {query.Int(0), query.Int(1)};
}

namespace {

constexpr std::size_t kFewKeys = 8;
constexpr std::size_t kManyKeys = 64;
constexpr std::size_t kMostKeys = 256;  // where asking costs most
constexpr std::int64_t kFirstWidth = 4096;
constexpr std::int64_t kLeastWidth = 256;
constexpr std::chrono::milliseconds kPiece{4};

std::string RowKeyOf(const RowSource& source) {
  const PlanTable& table = source.Plan().tables.front();
  return table.alias + '.' + table.table->rowKey;
}

std::size_t KeysAtOnce(const RowSource& source, std::size_t keys) {
  if (keys <= kFewKeys) return keys <= 1 ? 1 : kFewKeys;
  return keys <= kManyKeys || source.OwnDialect().rowsAtOnce <= 1 ? kManyKeys : kMostKeys;
}

std::string Beside(const std::string& condition) { return condition.empty() ? "" : "(" + condition + ") AND "; }

}  // namespace

PiecewiseScan::PiecewiseScan(RowSource& source, const std::string& columns, const std::string& condition)
    : source_(source), width_(kFirstWidth) {
  const Dialect& dialect = source.OwnDialect();
  const std::string rowKey = RowKeyOf(source);
  text_.text = "SELECT " + columns + " FROM " + source.Plan().from + dialect.withoutIndex + " WHERE " + Beside(condition) + rowKey + " > " +
               dialect.Parameter(1) + " AND " + rowKey + " <= " + dialect.Parameter(2);
}

PiecewiseScan::PiecewiseScan(RowSource& source, const std::string& columns, const std::string& condition,
                             const std::vector<std::int64_t>& keys)
    : source_(source), keysAtOnce_(KeysAtOnce(source, keys.size())), keys_(keys), byKeys_(true), anyRow_(condition.empty()) {
  text_.text = "SELECT " + columns + " FROM " + source.Plan().from + source.OwnDialect().withoutIndex + " WHERE " + Beside(condition) +
               RowKeyOf(source) + " IN (";
  for (std::size_t i = 1; i <= keysAtOnce_; ++i) text_.text += (i == 1 ? "" : ", ") + source.OwnDialect().Parameter(i);
  text_.text += ')';
}

bool PiecewiseScan::Next(const Take& take) { return byKeys_ ? NextKeys(take) : NextStretch(take); }

bool PiecewiseScan::NextStretch(const Take& take) {
  if (!begun_) {
    const KeySpan span = SpanOf(source_);
    from_ = span.first - 1;
    last_ = span.last;
    begun_ = true;
  }
  if (from_ >= last_) return false;
  const auto start = std::chrono::steady_clock::now();
  {
    Query query(source_.Store(), text_);
    query.Bind(1, from_);
    query.Bind(2, from_ + width_);
    while (query.Step()) take(query);
  }
  from_ += width_;
  // Keys can lie thinly: empty stretches are crossed faster. A condition can ask other tables of every row.
  const auto spent = std::chrono::steady_clock::now() - start;
  if (spent < kPiece / 4)
    width_ *= 2;
  else if (spent > kPiece)
    width_ = std::max(width_ / 4, kLeastWidth);
  return from_ < last_;
}

bool PiecewiseScan::NextKeys(const Take& take) {
  const auto start = std::chrono::steady_clock::now();
  while (!keys_.AtEnd() && std::chrono::steady_clock::now() - start < kPiece) {
    Query query(source_.Store(), text_);
    if (anyRow_) query.PlanOnce();
    for (std::size_t i = 0; i < keysAtOnce_; ++i)
      keys_.AtEnd() ? query.BindNull(static_cast<int>(i) + 1) : query.Bind(static_cast<int>(i) + 1, keys_.Take());
    while (query.Step()) take(query);
  }
  return !keys_.AtEnd();
}

void ReadAll(RowSource& source, PiecewiseScan& scan, const PiecewiseScan::Take& take) {
  Transaction oneState(source.Store(), Transaction::Kind::Read);
  while (scan.Next(take)) source.Store().ServePainting();
  oneState.Commit();
}

}  // namespace engine
