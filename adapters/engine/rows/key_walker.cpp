#include "engine/rows/key_walker.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "engine/rows/key_batch.h"
#include "engine/text/text_order.h"

namespace engine {
namespace {

using platform::FieldType;
using platform::Value;

template <class T>
int CompareAs(const Value& left, const Value& right) {
  const T& a = left.As<T>();
  const T& b = right.As<T>();
  return a < b ? -1 : b < a ? 1 : 0;
}

}  // namespace

int CompareStored(FieldType type, const Value& left, const Value& right) {
  if (left.IsNull() || right.IsNull()) return (left.IsNull() ? 0 : 1) - (right.IsNull() ? 0 : 1);
  switch (type) {
    case FieldType::Boolean:
      return CompareAs<bool>(right, left);  // True is -1
    case FieldType::Byte:
      return CompareAs<std::uint8_t>(left, right);
    case FieldType::Short:
      return CompareAs<std::int16_t>(left, right);
    case FieldType::Long:
    case FieldType::Counter:
      return CompareAs<std::int32_t>(left, right);
    case FieldType::Currency:
      return CompareAs<platform::Currency>(left, right);
    case FieldType::Double:
      return CompareAs<double>(left, right);
    case FieldType::Date:
      return CompareAs<platform::Date>(left, right);
    case FieldType::Text:
    case FieldType::Memo:
      return CompareText(left.As<std::string>(), right.As<std::string>());
  }
  return 0;
}

KeyWalker::KeyWalker(Store& store, const RowShape& shape, WalkWay way)
    : store_(store),
      dialect_(store.OwnDialect()),
      shape_(shape),
      order_(std::move(way.order)),
      putInOrder_(way.putInOrder),
      inBounds_(way.inBounds),
      filter_(std::move(way.filter)),
      rowTypes_(shape.types) {
  const PlanTable& table = shape.plan.tables.front();
  rowKey_ = table.alias + '.' + table.table->rowKey;
  from_ = shape.plan.from;
  if (!way.index.empty())
    from_ += dialect_.Along(table.table->definition.name, way.index);
  else if (way.asItLies || (order_.empty() && filter_.empty()))
    from_ += dialect_.withoutIndex;
  for (const OrderColumn& column : order_) {
    keyColumns_ += column.sql + ", ";
    comparable_.push_back(ComparableOf(column));
    orderTypes_.push_back(column.type);
    rowTypes_.push_back(column.type);
  }
  keyColumns_ += rowKey_;
}

// A walk's columns are fields of its table; a store that compares keys has one for each text.
std::string KeyWalker::ComparableOf(const OrderColumn& column) const {
  const PlanTable& table = shape_.plan.tables.front();
  if (dialect_.textKeys == nullptr) return column.sql;
  for (const platform::FieldDefinition& field : table.table->definition.fields)
    if (table.alias + '.' + dialect_.Name(field.name) == column.sql) return dialect_.Comparable(table.table->definition, field, table.alias);
  return column.sql;
}

void KeyWalker::BindComparable(Query& query, int parameter, const Value& value) const {
  if (dialect_.textKeys != nullptr && value.IsText())
    query.Bind(parameter, std::string_view(dialect_.Comparable(value.As<std::string>())));
  else
    query.Bind(parameter, value);
}

// Only the list's own pages are read without exception; the other statements are put together when they are first needed.
const SqlText& KeyWalker::Ready(SqlText& text, std::string_view columns, bool filtered) const {
  if (!text.text.empty()) return text;
  const SelectPlan& plan = shape_.plan;
  const PlanTable& table = plan.tables.front();
  text.text.append("SELECT ").append(columns).append(" FROM ");
  text.text += filtered ? plan.from : table.table->storeName + " AS " + table.alias;
  text.text += " WHERE " + rowKey_ + " = " + dialect_.Parameter(1);
  if (filtered && !filter_.empty()) text.text += " AND (" + filter_ + ")";
  return text;
}

bool KeyWalker::ReadRow(std::int64_t rowKey, const Sink& sink) {
  if (row_.text.empty()) Ready(row_, RowColumns(), false);
  Query query(store_, row_);
  query.PlanOnce();
  query.Bind(1, rowKey);
  if (!query.Step()) return false;
  sink(query);
  return true;
}

void KeyWalker::ReadRows(std::span<const std::int64_t> rowKeys, const Sink& sink) {
  if (dialect_.rowsAtOnce <= 1) {
    for (const std::int64_t rowKey : rowKeys) ReadRow(rowKey, sink);
    return;
  }
  for (KeyBatch batch; batch.End() < rowKeys.size();) {
    batch = KeyBatch::From(batch.End(), rowKeys.size());
    SqlText& text = rows_[batch.parameters];
    if (text.text.empty()) {
      const PlanTable& table = shape_.plan.tables.front();
      text.text = "SELECT " + shape_.columnList + ", " + keyColumns_ + " FROM " + table.table->storeName + " AS " + table.alias + " WHERE " +
                  rowKey_ + InParameters(dialect_, batch.parameters);
    }
    Query query(store_, text);
    query.PlanOnce();
    batch.Bind(query, [&](std::size_t row) { return rowKeys[row]; });
    while (query.Step()) sink(query);
  }
}

std::optional<OrderPlace> KeyWalker::PlaceOfRow(std::int64_t rowKey) {
  Ready(placeOfRow_, keyColumns_, false);
  Query query(store_, placeOfRow_);
  query.PlanOnce();
  query.Bind(1, rowKey);
  if (!query.Step()) return {};
  return PlaceAt(query, true);
}

bool KeyWalker::InFilter(std::int64_t rowKey) {
  if (filter_.empty()) return true;
  Ready(inFilter_, rowKey_, true);
  Query query(store_, inFilter_);
  query.Bind(1, rowKey);
  return query.Step();
}

std::int64_t KeyWalker::CountAll() {
  const SelectPlan& plan = shape_.plan;
  if (count_.text.empty()) count_.text = "SELECT count(*) FROM " + plan.from + (plan.where.empty() ? "" : " WHERE " + plan.where);
  Query query(store_, count_);
  return query.Step() ? query.Int(0) : 0;
}

std::int64_t KeyWalker::CountBelow(const OrderPlace& place) {
  Request request;
  request.direction = Direction::Down;
  request.from = &place;
  const std::vector<Level> levels = LevelsFor(request);
  if (dialect_.rowValues) {
    std::string sum = "SELECT ";
    for (const Level& level : levels)
      sum += (level.step == levels.front().step ? "(SELECT count(*) FROM " : " + (SELECT count(*) FROM ") + from_ + " WHERE " +
             ConditionOf(request, level) + ')';
    Query query(store_, std::string_view(sum));
    for (const Level& level : levels) BindPlace(query, request, level);
    return query.Step() ? query.Int(0) : 0;
  }
  std::int64_t count = 0;
  Transaction oneState(store_, Transaction::Kind::Read);
  for (const Level& level : levels) {
    Query query(store_, std::string_view("SELECT count(*) FROM " + from_ + " WHERE " + ConditionOf(request, level)));
    BindPlace(query, request, level);
    if (query.Step()) count += query.Int(0);
  }
  oneState.Commit();
  return count;
}

void KeyWalker::BindPlace(Query& query, const Request& request, const Level& level) const {
  if (request.from == nullptr) return;
  for (std::size_t i = 0; i < order_.size(); ++i)
    if ((i < level.equal && !request.from->values[i].IsNull()) ||
        (i == level.equal && (level.step == Step::BehindColumn || level.step == Step::BehindPlace)))
      BindComparable(query, static_cast<int>(i) + 1, request.from->values[i]);
  if (level.step == Step::BehindRow || level.step == Step::BehindPlace) query.Bind(static_cast<int>(order_.size()) + 1, request.from->rowKey);
}

std::int64_t KeyWalker::Read(const Request& request, const Sink& sink) {
  std::int64_t left = request.limit;
  const std::vector<Level> levels = LevelsFor(request);
  bool goOn = left > 0;
  if (levels.size() > 1 && dialect_.rowValues) {
    SqlText own;
    Query query(store_, Joined(request, levels, own));
    if (OnePlanDoes(request)) query.PlanOnce();
    if (request.among > 0) PlanAlong(query);
    for (const Level& level : levels) BindPlace(query, request, level);
    return Take(query, request, left, sink, goOn);
  }
  std::optional<Transaction> oneState;
  if (levels.size() > 1 && left > 1) oneState.emplace(store_, Transaction::Kind::Read);
  for (const Level& level : levels) {
    if (left == 0 || !goOn) break;
    SqlText own;
    Query query(store_, Statement(request, level, own));
    if (OnePlanDoes(request)) query.PlanOnce();
    if (request.among > 0) PlanAlong(query);
    BindPlace(query, request, level);
    left -= Take(query, request, left, sink, goOn);
  }
  if (oneState) oneState->Commit();
  return request.limit - left;
}

// The rows of a statement, as far as they are wanted; their number.
std::int64_t KeyWalker::Take(Query& query, const Request& request, std::int64_t most, const Sink& sink, bool& goOn) const {
  const int more = static_cast<int>(order_.size()) + 2;
  query.Bind(more, most);
  query.Bind(more + 1, request.skip);
  if (request.bounds != nullptr) {
    if (request.bounds->lower) BindComparable(query, more + 2, *request.bounds->lower);
    if (request.bounds->upper) BindComparable(query, more + 3, *request.bounds->upper);
  }
  if (request.conditionText) query.Bind(ConditionTextAt(), *request.conditionText);
  if (request.filterNumber) query.Bind(FilterNumberAt(order_), *request.filterNumber);
  std::int64_t taken = 0;
  while (goOn && taken < most && query.Step()) {
    ++taken;
    goOn = sink(query);
  }
  return taken;
}

// From the longest run of equal columns to none: together the statements deliver the rows in order.
std::vector<KeyWalker::Level> KeyWalker::LevelsFor(const Request& request) const {
  if (request.from == nullptr) return {{Step::All, 0}};
  std::vector<Level> levels{{Step::BehindRow, order_.size()}};
  if (request.equalsOnly) return levels;
  if (dialect_.rowValues && order_.size() == 1 && !request.from->values[0].IsNull()) {
    levels = {{Step::BehindPlace, 0}};
    // A row value never finds Nulls.
    if (request.direction == Direction::Down && request.bounds == nullptr) levels.push_back({Step::NullBlock, 0});
    return levels;
  }
  for (std::size_t equal = order_.size(); equal-- > 0;) {
    const bool isNull = request.from->values[equal].IsNull();
    if (request.direction == Direction::Up) {
      levels.push_back({isNull ? Step::NotNull : Step::BehindColumn, equal});
    } else if (!isNull) {
      levels.push_back({Step::BehindColumn, equal});
      // Rows without a value stand below all values; bounds are on values.
      if (request.bounds == nullptr || equal > 0) levels.push_back({Step::NullBlock, equal});
    }
  }
  return levels;
}

// Other tables without an index for the question would be looked through for each row.
void KeyWalker::PlanAlong(Query& query) const {
  if (!shape_.plan.asksOtherTables || shape_.plan.asksByRow) query.PlanAlong();
}

// Rows straight along an index, however the list is asked for them: a store that plans by itself needs to do so once for them. Where the
// values matter, as those of a place do beside a filter, it is left to see them.
bool KeyWalker::IsStraight(const Request& request) const {
  const bool conditionIsKnown = request.condition.empty() || request.conditionText.has_value();
  if (!dialect_.PlansByItself() || putInOrder_ || !conditionIsKnown || !request.flag.empty() || request.among > 0) return false;
  return filter_.empty() || inBounds_ || request.from == nullptr;
}

// Not how many rows a filter's bounds leave: it takes them for so few at times that it would put all of them in order for a page. A plan for
// any number of rows goes along the index.
bool KeyWalker::OnePlanDoes(const Request& request) const {
  return request.filterNumber || (IsStraight(request) && (inBounds_ || Within(request) > 0));
}

// So many rows it sees in the statement, that they are few; 0 where it doesn't.
std::int64_t KeyWalker::Within(const Request& request) const {
  constexpr std::int64_t kFew = 1'024;
  if (!IsStraight(request) || inBounds_ || request.limit > kFew || request.skip > kFew - request.limit) return 0;
  return static_cast<std::int64_t>(std::bit_ceil(static_cast<std::uint64_t>(request.limit + request.skip)));
}

std::uint64_t KeyWalker::CodeOf(const Request& request, const Level& level) const {
  std::uint64_t code = static_cast<std::uint64_t>(level.step) | (request.direction == Direction::Up ? 0U : 8U) |
                       (request.keysOnly ? 16U : 0U) | static_cast<std::uint64_t>(level.equal) << 5 |
                       static_cast<std::uint64_t>(Within(request)) << 48 | (request.skip > 0 ? std::uint64_t{1} << 47 : 0);
  for (std::size_t i = 0; i < level.equal; ++i)
    if (request.from->values[i].IsNull()) code |= std::uint64_t{1} << (16 + i);
  return code;
}

SqlText& KeyWalker::Statement(const Request& request, const Level& level, SqlText& own) {
  if (!request.condition.empty() || !request.flag.empty() || request.bounds != nullptr) {
    own.text = StatementText(request, level);
    return own;
  }
  SqlText& kept = statements_[CodeOf(request, level)];
  if (kept.text.empty()) kept.text = StatementText(request, level);
  return kept;
}

// All of them as one: each part gives as many rows as are wanted at most.
SqlText& KeyWalker::Joined(const Request& request, const std::vector<Level>& levels, SqlText& own) {
  const bool single = !request.condition.empty() || !request.flag.empty() || request.bounds != nullptr;
  constexpr std::uint64_t kJoined = std::uint64_t{1} << 63;
  SqlText& text = single ? own : statements_[CodeOf(request, levels.front()) | kJoined];
  if (!text.text.empty()) return text;
  if (request.among > 0) {
    text.text = AmongText(request, levels);
    return text;
  }
  for (const Level& level : levels) text.text += (text.text.empty() ? "(" : " UNION ALL (") + StatementText(request, level) + ')';
  text.text += " LIMIT " + dialect_.Parameter(order_.size() + 2);
  return text;
}

OrderPlace KeyWalker::PlaceAt(const Query& row, bool keysOnly) const {
  OrderPlace place;
  place.values.reserve(order_.size());
  row.Append(place.values, OrderAt(keysOnly), orderTypes_);
  place.rowKey = row.Int(RowKeyAt(keysOnly));
  return place;
}

void KeyWalker::AppendRow(const Query& row, RowPage& page) const {
  row.Pack(page.cells, 0, rowTypes_);
  page.keys.push_back(row.Int(RowKeyAt(false)));
}

int KeyWalker::Compare(const OrderPlace& left, const OrderPlace& right) const {
  for (std::size_t i = 0; i < order_.size(); ++i)
    if (const int order = CompareStored(order_[i].type, left.values[i], right.values[i]); order != 0) return order;
  return left.rowKey < right.rowKey ? -1 : right.rowKey < left.rowKey ? 1 : 0;
}

}  // namespace engine
