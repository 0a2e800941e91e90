#include "engine/rows/slices.h"

#include <chrono>

namespace engine {

KeySpan SpanOf(const RowSource& source) {
  const PlanTable& table = source.Plan().tables.front();
  const auto end = [&](const char* function) {
    return std::string("(SELECT ") + function + '(' + table.table->rowKey + ") FROM " + table.table->storeName + ')';
  };
  Query query(source.Store(), "SELECT " + end("min") + ", " + end("max"));
  if (!query.Step() || query.IsNull(0)) return {};
  return {query.Int(0), query.Int(1)};
}

void ReadBySlices(RowSource& source, const std::string& columns, const std::string& condition,
                  const std::function<void(const Query& row)>& take) {
  const PlanTable& table = source.Plan().tables.front();
  const Dialect& dialect = source.OwnDialect();
  const std::string rowKey = table.alias + '.' + table.table->rowKey;
  SqlText slice("SELECT " + columns + " FROM " + source.Plan().from + dialect.withoutIndex + " WHERE " +
                (condition.empty() ? "" : "(" + condition + ") AND ") + rowKey + " > " + dialect.Parameter(1) + " AND " + rowKey +
                " <= " + dialect.Parameter(2));
  Transaction oneState(source.Store(), Transaction::Kind::Read);
  const KeySpan span = SpanOf(source);
  std::int64_t width = kShortestCut;
  for (std::int64_t from = span.first - 1; from < span.last;) {
    const auto begun = std::chrono::steady_clock::now();
    {
      Query query(source.Store(), slice);
      query.Bind(1, from);
      query.Bind(2, from + width);
      while (query.Step()) take(query);
    }
    from += width;
    source.Store().ServePainting();
    // Keys can lie thinly: empty stretches are crossed faster.
    width = std::chrono::steady_clock::now() - begun < std::chrono::milliseconds(1) ? width * 2 : kShortestCut;
  }
  oneState.Commit();
}

}  // namespace engine
