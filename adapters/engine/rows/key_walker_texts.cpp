// The texts of a walk's statements.
#include <bit>
#include <cmath>
#include <cstdint>

#include "engine/rows/key_walker.h"

namespace engine {

using platform::FieldType;

std::string KeyWalker::StatementText(const Request& request, const Level& level) const {
  if (request.among > 0) return AmongText(request, {&level, 1});
  const std::string limit = " LIMIT " + dialect_.Parameter(order_.size() + 2) + " OFFSET " + dialect_.Parameter(order_.size() + 3);
  if (putInOrder_ && !request.keysOnly) return SortedText(request, level, limit);
  if (request.skip > 0 && !request.keysOnly && level.step == Step::BehindPlace && Within(request) > 0) return PlacedText(request, level);
  std::string text = "SELECT ";
  if (!request.keysOnly) text += shape_.columnList + ", ";
  text += keyColumns_;
  if (!request.flag.empty()) text.append(", (").append(request.flag).append(")");
  text += " FROM " + from_;
  const std::string condition = ConditionOf(request, level);
  if (!condition.empty()) text += " WHERE " + condition;
  // Columns that are held equal order nothing: without them the store reads straight along the index.
  const std::size_t ordered = level.step == Step::NullBlock ? level.equal + 1 : level.equal;
  text += " ORDER BY " + OrderText(request.direction, ordered);
  if (const std::int64_t rows = Within(request); rows > 0) text = "SELECT * FROM (" + text + " LIMIT " + std::to_string(rows) + ") AS walked";
  return text + limit;
}

// What is left out is walked by its keys alone, which the index has: the rows themselves are read from there on.
std::string KeyWalker::PlacedText(const Request& request, const Level& level) const {
  const std::string order = " ORDER BY " + OrderText(request.direction, level.equal);
  const std::string within = " LIMIT " + std::to_string(Within(request));
  const std::string from = request.direction == Direction::Up ? " >= " : " <= ";
  return "SELECT walked.* FROM (SELECT * FROM (SELECT " + comparable_[0] + " AS place, " + rowKey_ + " AS key FROM " + from_ + " WHERE " +
         ConditionOf(request, level) + order + within + ") AS near LIMIT 1 OFFSET " + dialect_.Parameter(order_.size() + 3) +
         ") AS begin CROSS JOIN LATERAL (SELECT " + shape_.columnList + ", " + keyColumns_ + " FROM " + from_ +
         " WHERE (" + comparable_[0] + ", " + rowKey_ + ')' + from + "(begin.place, begin.key)" + order + within + ") AS walked LIMIT " +
         dialect_.Parameter(order_.size() + 2);
}

// Only the keys are put in order: a store that sorts whole rows forms each of them first.
std::string KeyWalker::SortedText(const Request& request, const Level& level, const std::string& limit) const {
  const PlanTable& table = shape_.plan.tables.front();
  const std::string condition = ConditionOf(request, level);
  const std::string order = " ORDER BY " + OrderText(request.direction, level.step == Step::NullBlock ? level.equal + 1 : level.equal);
  return "SELECT " + shape_.columnList + ", " + keyColumns_ + (request.flag.empty() ? "" : ", (" + std::string(request.flag) + ')') +
         " FROM (SELECT " + rowKey_ + " AS k FROM " + from_ + (condition.empty() ? "" : " WHERE " + condition) + order + limit + ") AS sorted JOIN " +
         table.table->storeName + " AS " + table.alias + " ON " + rowKey_ + " = sorted.k" + order;
}

// Of the rows that lie first in the table, as many as are wanted stand so far on in the order: no row beyond is among the first ones. That
// is known before any row needs a key of its own.
std::string KeyWalker::WithinSample(Direction direction, std::int64_t rows, std::int64_t likelyRows) const {
  constexpr std::int64_t kLeastSampled = 2'000;
  if (!filter_.empty() || order_.size() != 1 || dialect_.textKeys == nullptr || likelyRows < kLeastSampled) return "";
  const bool down = direction == Direction::Down;
  const std::string last = down ? "CASE WHEN count(k) = " + std::to_string(rows) + " THEN min(k) END" : "max(k)";
  const TextKeys::Rough place = dialect_.textKeys->ofFieldRoughly(comparable_[0], order_[0].sql, last, down);
  if (place.row.empty()) return "";
  // Each row of the sample and each row within its bound costs a key: so both are few.
  const auto sample = std::bit_floor(static_cast<std::uint64_t>(std::sqrt(static_cast<double>(rows) * static_cast<double>(likelyRows))));
  return place.row + (down ? " >= " : " <= ") + "(SELECT " + place.bound + " FROM (SELECT k FROM (SELECT " + comparable_[0] +
         " AS k FROM " + from_ + " LIMIT " + std::to_string(sample) + ") AS sample ORDER BY k" + dialect_.OrderSuffix(down) + " LIMIT " +
         std::to_string(rows) + ") AS first)";
}

// The next rows along the index, and no more of them: where several parts hold them, no more than so many of all parts together.
std::string KeyWalker::NextText(const Request& request, std::span<const Level> levels, const std::string& columns, std::int64_t rows) const {
  const std::string few = " LIMIT " + std::to_string(rows);
  std::string text;
  for (const Level& level : levels) {
    const std::string condition = ConditionOf(request, level);
    text += (text.empty() ? "" : ") UNION ALL (") + ("SELECT " + columns + " FROM " + from_) + (condition.empty() ? "" : " WHERE " + condition) +
            OrderOf(request, level) + few;
  }
  return levels.size() == 1 ? text : '(' + text + ')' + few;
}

// Behind the columns of a statement that reads rows of another SELECT's. Columns of those that nobody asks for would become Nulls, for
// which each row is formed anew, with all columns; rows that are asked for as a whole are passed on as they are. No row ever computes it.
// Beside other tables each row would be put together as a whole for the join.
std::string KeyWalker::PassedOn() const {
  if (shape_.plan.asksOtherTables) return "";
  return ", CASE WHEN " + rowKey_ + " IS NULL THEN " + shape_.plan.tables.front().alias + " IS NULL END";
}

// The rows are cut off along the index first, so that a store which plans for itself asks no others. A row that fits behind others which
// weren't looked at isn't the next one.
std::string KeyWalker::AmongText(const Request& request, std::span<const Level> levels) const {
  const std::string& alias = shape_.plan.tables.front().alias;
  Request all = request;
  all.condition = {};
  const std::string order = levels.size() == 1 ? OrderOf(request, levels.front()) : " ORDER BY " + OrderText(request.direction, 0);
  return "SELECT " + (request.keysOnly ? "" : shape_.columnList + ", ") + keyColumns_ + PassedOn() + " FROM (" +
         NextText(all, levels, alias + ".*", request.among) + ") AS " + alias + " WHERE " + std::string(request.condition) + order +
         " LIMIT " + dialect_.Parameter(order_.size() + 2) + " OFFSET " + dialect_.Parameter(order_.size() + 3);
}

// Columns that are held equal order nothing.
std::string KeyWalker::OrderOf(const Request& request, const Level& level) const {
  return " ORDER BY " + OrderText(request.direction, level.step == Step::NullBlock ? level.equal + 1 : level.equal);
}

std::string KeyWalker::ConditionOf(const Request& request, const Level& level) const {
  std::string text;
  const auto add = [&](std::string_view condition) {
    if (!text.empty()) text += " AND ";
    text += condition;
  };
  const std::string beyond = request.direction == Direction::Up ? " > " : " < ";
  for (std::size_t i = 0; i < level.equal; ++i)
    add(comparable_[i] + (request.from->values[i].IsNull() ? " IS NULL" : " = " + dialect_.Parameter(i + 1)));
  if (level.step == Step::BehindRow) add(rowKey_ + beyond + dialect_.Parameter(order_.size() + 1));
  if (level.step == Step::BehindPlace)
    add('(' + comparable_[0] + ", " + rowKey_ + ')' + beyond + '(' + dialect_.Parameter(1) + ", " + dialect_.Parameter(2) + ')');
  if (level.step == Step::BehindColumn) add(comparable_[level.equal] + beyond + dialect_.Parameter(level.equal + 1));
  if (level.step == Step::NotNull) add(comparable_[level.equal] + " IS NOT NULL");
  if (level.step == Step::NullBlock) add(comparable_[level.equal] + " IS NULL");
  if (request.bounds != nullptr) {
    // A row's bound where the walk begins keeps it on its index: two bounds of the key alone promise so few rows that they might be sorted.
    const bool asRow = order_.size() == 1 && IsStraight(request);
    const std::string beforeAllRows = std::to_string(-INT64_MAX);
    const auto bound = [&](bool isStart, const char* compare, std::size_t parameter) {
      add(asRow && isStart ? '(' + comparable_[0] + ", " + rowKey_ + ')' + compare + '(' + dialect_.Parameter(parameter) + ", " + beforeAllRows + ')'
                           : comparable_[0] + compare + dialect_.Parameter(parameter));
    };
    const bool up = request.direction == Direction::Up;
    if (request.bounds->lower) bound(up, " >= ", order_.size() + 4);
    if (request.bounds->upper) bound(!up, " < ", order_.size() + 5);
  }
  if (!filter_.empty()) add("(" + filter_ + ")");
  if (!request.condition.empty()) add("(" + std::string(request.condition) + ")");
  return text;
}

std::string KeyWalker::OrderText(Direction direction, std::size_t from) const {
  const bool down = direction == Direction::Down;
  std::string text;
  // By an expression of a field instead of the field no index gives the order.
  const auto ordered = [this](const std::string& key, FieldType type) { return putInOrder_ ? dialect_.byNoIndex(key, type) : key; };
  for (std::size_t i = from; i < order_.size(); ++i) text += ordered(comparable_[i], order_[i].type) + dialect_.OrderSuffix(down) + ", ";
  return text + ordered(rowKey_, FieldType::Counter) + (down ? " DESC" : "");
}

}  // namespace engine
