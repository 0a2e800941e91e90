// Stretches of a walk: so many rows on, or up to a place.
#include <cassert>

#include "engine/rows/key_walker.h"

namespace engine {

std::optional<KeyWalker::Stretch> KeyWalker::Ahead(Direction direction, const OrderPlace* from, std::int64_t rows) {
  Request request;
  request.direction = direction;
  request.from = from;
  request.keysOnly = true;
  Stretch stretch{.direction = direction, .from = from, .levels = {}, .last = {}};
  std::int64_t left = rows;
  const std::vector<Level> levels = LevelsFor(request);
  for (std::size_t i = 0; i < levels.size(); ++i) {
    request.skip = left - 1;
    SqlText own;
    Query query(store_, Statement(request, levels[i], own));
    BindPlace(query, request, levels[i]);
    const int more = static_cast<int>(order_.size()) + 2;
    query.Bind(more, request.limit);
    query.Bind(more + 1, request.skip);
    if (query.Step()) {
      stretch.levels.push_back(levels[i]);
      stretch.last = PlaceAt(query, true);
      return stretch;
    }
    if (i + 1 == levels.size()) break;
    Query count(store_, std::string_view("SELECT count(*) FROM " + from_ + " WHERE " + ConditionOf(request, levels[i])));
    BindPlace(count, request, levels[i]);
    const std::int64_t here = count.Step() ? count.Int(0) : 0;
    if (here > 0) stretch.levels.push_back(levels[i]);
    left -= here;
  }
  return {};
}

void KeyWalker::ReadStretch(const Stretch& stretch, const KeyWalker& counted, std::int64_t most, const Sink& sink) {
  Request request;
  request.direction = stretch.direction;
  request.from = stretch.from;
  const int mark = static_cast<int>(order_.size()) + 2;
  std::int64_t left = most;
  for (std::size_t i = 0; i < stretch.levels.size(); ++i) {
    const Level& level = stretch.levels[i];
    const bool isLast = i + 1 == stretch.levels.size();
    SqlText& text = marked_[CodeOf(request, level)];
    if (text.text.empty()) text.text = MarkedText(request, level, counted);
    Query query(store_, text);
    BindPlace(query, request, level);
    isLast ? query.Bind(mark, stretch.last.rowKey) : query.BindNull(mark);
    while (query.Step()) {
      const bool atEnd = isLast && query.Int(RowKeyAt(false)) == stretch.last.rowKey;
      const bool taken = !atEnd || (!query.IsNull(FlagAt(false)) && query.Int(FlagAt(false)) != 0);
      if (taken && (!sink(query) || --left == 0)) return;
      if (atEnd) break;
    }
  }
}

// The last row comes in any case and says whether the filter takes it: where a stretch ends is so found by its row key, which the
// index has, without comparing each row's texts with a bound.
std::string KeyWalker::MarkedText(const Request& request, const Level& level, const KeyWalker& counted) const {
  const std::string isLast = rowKey_ + " = " + dialect_.Parameter(order_.size() + 2);
  const std::string filter = filter_.empty() ? "1 = 1" : filter_;
  const std::string condition = counted.ConditionOf(request, level);
  return "SELECT " + shape_.columnList + ", " + keyColumns_ + ", CASE WHEN " + isLast + " THEN (" + filter + ") ELSE 1 = 1 END FROM " +
         from_ + " WHERE " + (condition.empty() ? "" : condition + " AND ") + '(' + isLast + " OR (" + filter + ")) ORDER BY " +
         OrderText(request.direction, level.step == Step::NullBlock ? level.equal + 1 : level.equal);
}

// A store that plans the statement for all of its rows must see how few they are: it would put the whole table in order else. So the
// stretch is cut off first, along its index, and then filtered; that only the first ones are wanted keeps it from looking at all rows of
// the tables that the filter asks. Both numbers stand in the text: a statement without parameters is planned when it is first run and not
// again. Rows between bounds may be taken for so few that all of them would be put in order.
void KeyWalker::ReadAmongNext(Direction direction, const OrderPlace* from, std::int64_t rows, const KeyWalker& counted, std::int64_t most,
                              const Sink& sink) {
  Request request;
  request.direction = direction;
  request.from = from;
  const Level level = LevelsFor(request).front();
  const std::string first =
      counted.NextText(request, {&level, 1}, AsksKeysAlone() ? KeysAlone() : shape_.plan.tables.front().alias + ".*", rows);
  Query query(store_, std::string_view(AmongFirst(first, OrderOf(request, level), most, direction)));
  PlanAlong(query);
  BindPlace(query, request, level);
  for (std::int64_t left = most; left > 0 && query.Step(); --left)
    if (!sink(query)) return;
}

std::string KeyWalker::AmongFirst(const std::string& first, const std::string& order, std::int64_t most, Direction direction) const {
  const PlanTable& table = shape_.plan.tables.front();
  const std::string rest =
      " FROM (" + first + ") AS " + table.alias + (filter_.empty() ? "" : " WHERE " + filter_) + order + " LIMIT " + std::to_string(most);
  if (!AsksKeysAlone()) return "SELECT " + RowColumns() + PassedOn() + rest;
  const bool down = direction == Direction::Down;
  const std::string place = order_.empty() ? "" : comparable_[0] + " AS place, ";
  return "SELECT " + RowColumns() + " FROM (SELECT " + place + rowKey_ + " AS key" + rest + ") AS found JOIN " + table.table->storeName +
         " AS " + table.alias + " ON " + rowKey_ + " = found.key ORDER BY " +
         (order_.empty() ? "" : "found.place" + dialect_.OrderSuffix(down) + ", ") + "found.key" + (down ? " DESC" : "");
}

// Whether the filter asks other tables by what stands in the order's index: then the rows that it leaves out needn't be read at all.
bool KeyWalker::AsksKeysAlone() const {
  if (!shape_.plan.asksOtherTables || order_.size() > 1) return false;
  const std::string ofTable = shape_.plan.tables.front().alias + '.';
  for (std::size_t at = filter_.find(ofTable); at != std::string::npos; at = filter_.find(ofTable, at + 1)) {
    const std::string_view rest = std::string_view(filter_).substr(at);
    if (!rest.starts_with(rowKey_) && (order_.empty() || !rest.starts_with(comparable_[0]))) return false;
  }
  return true;
}

std::string KeyWalker::KeysAlone() const { return (order_.empty() ? "" : comparable_[0] + ", ") + rowKey_; }

// All of them are passed in the index, and those that are wanted fetched from the table.
void KeyWalker::ReadEvery(Direction direction, const OrderPlace* from, std::int64_t rows, std::int64_t spacing, const Sink& sink) {
  assert(order_.size() <= 1);
  Request request;
  request.direction = direction;
  request.from = from;
  const std::vector<Level> levels = LevelsFor(request);
  const PlanTable& table = shape_.plan.tables.front();
  Query query(store_, std::string_view("SELECT " + keyColumns_ + ", n FROM (SELECT k, n FROM (SELECT k, row_number() OVER () AS n, count(*) OVER () AS passed "
                                       "FROM (" + NextText(request, levels, rowKey_ + " AS k", rows) + ") AS walked) AS numbered WHERE n % " +
                                       std::to_string(spacing) + " = 1 OR n = passed) AS wanted JOIN " + table.table->storeName + " AS " + table.alias +
                                       " ON " + rowKey_ + " = k ORDER BY n"));
  query.PlanOnce();
  for (const Level& level : levels) BindPlace(query, request, level);
  while (query.Step())
    if (!sink(query)) return;
}

void KeyWalker::ReadFirst(Direction direction, std::int64_t rows, std::int64_t likelyRows, const Sink& sink) {
  Request request;
  request.direction = direction;
  const std::string within = WithinSample(direction, rows, likelyRows);
  request.condition = within;
  Query query(store_, std::string_view(SortedText(request, {}, " LIMIT " + std::to_string(rows))));
  query.ExpectFew();
  while (query.Step())
    if (!sink(query)) return;
}

// The way back from the place, which ends soon: one plan does, if it goes along the index.
std::int64_t KeyWalker::CountBefore(Direction direction, const OrderPlace& place, std::int64_t most) {
  Request request;
  request.direction = Opposite(direction);
  request.from = &place;
  const std::vector<Level> levels = LevelsFor(request);
  std::string sum;
  for (const Level& level : levels)
    sum += (sum.empty() ? "SELECT " : " + ") + ("(SELECT count(*) FROM (SELECT 1 FROM " + from_ + " WHERE " + ConditionOf(request, level)) + " ORDER BY " +
           OrderText(request.direction, level.step == Step::NullBlock ? level.equal + 1 : level.equal) + " LIMIT " + std::to_string(most) + ") AS passed)";
  Query query(store_, std::string_view(sum));
  query.PlanOnce();
  for (const Level& level : levels) BindPlace(query, request, level);
  return query.Step() ? query.Int(0) : 0;
}

std::int64_t KeyWalker::ReadFrom(std::int64_t rowKey, Direction direction, std::int64_t rows, const Sink& sink) {
  return AskFromRow(rowKey, FromRowText(direction, rows), sink);
}

void KeyWalker::ReadFirstAndFrom(std::int64_t rowKey, Direction direction, std::int64_t rows, const Sink& sink) {
  const std::string first = "SELECT " + RowColumns() + " FROM " + from_ + (filter_.empty() ? "" : " WHERE " + filter_) + " ORDER BY " +
                            OrderText(direction, 0) + " LIMIT 1";
  AskFromRow(rowKey, '(' + first + ") UNION ALL (" + FromRowText(direction, rows) + ')', sink);
}

std::string KeyWalker::FromRowText(Direction direction, std::int64_t rows) const {
  assert(order_.size() <= 1);
  const PlanTable& table = shape_.plan.tables.front();
  const std::string within = direction == Direction::Up ? " >= " : " <= ";
  const auto key = [&](const std::string& place, const std::string& own) { return order_.empty() ? own : '(' + place + ", " + own + ')'; };
  const std::string place = order_.empty() ? "" : comparable_[0];
  return "SELECT walked.* FROM (SELECT " + (order_.empty() ? "" : place + " AS place, ") + rowKey_ + " AS key FROM " +
         table.table->storeName + " AS " + table.alias + " WHERE " + rowKey_ + " = " + dialect_.Parameter(1) +
         ") AS begin CROSS JOIN LATERAL (SELECT " + RowColumns() + " FROM " + from_ + " WHERE " + key(place, rowKey_) + within +
         key("begin.place", "begin.key") + (filter_.empty() ? "" : " AND (" + filter_ + ')') + " ORDER BY " + OrderText(direction, 0) +
         " LIMIT " + std::to_string(rows) + ") AS walked";
}

std::int64_t KeyWalker::AskFromRow(std::int64_t rowKey, std::string_view sql, const Sink& sink) {
  Query query(store_, sql);
  if (filter_.empty() || inBounds_) query.PlanOnce();
  query.Bind(1, rowKey);
  std::int64_t read = 0;
  for (; query.Step(); ++read)
    if (!sink(query)) break;
  return read;
}

std::string KeyWalker::FirstKeys(Direction direction, std::int64_t rows) const {
  return "SELECT " + rowKey_ + " AS k FROM " + from_ + (filter_.empty() ? "" : " WHERE " + filter_) + " ORDER BY " +
         OrderText(direction, 0) + " LIMIT " + std::to_string(rows);
}

// Towards a place, in pieces of which each is one stretch of the index: what is left of the group of equal keys, the rows without a
// key where they come first, the keys beyond, the rows without a key where they come last.
void KeyWalker::AskUpTo(Direction direction, const OrderPlace* from, const OrderPlace& until, What what, const Sink& sink) {
  assert(order_.size() <= 1);
  const bool up = direction == Direction::Up;
  const bool fromNull = from != nullptr && !order_.empty() && from->values[0].IsNull();
  const bool untilNull = !order_.empty() && until.values[0].IsNull();
  const bool sameGroup = from != nullptr && (order_.empty() || CompareStored(order_[0].type, from->values[0], until.values[0]) == 0);
  std::vector<Step> steps;
  if (order_.empty()) {
    steps = {Step::BehindRow};
  } else {
    if (from != nullptr) steps.push_back(Step::BehindRow);
    if (!sameGroup) {
      if (up && from == nullptr) steps.push_back(Step::NullBlock);
      if (up ? !untilNull : !fromNull) steps.push_back(Step::BehindColumn);
      if (!up && untilNull && !fromNull) steps.push_back(Step::NullBlock);
    }
  }
  bool goOn = true;
  for (const Step step : steps) {
    if (!goOn) return;
    const unsigned code = static_cast<unsigned>(step) | (up ? 8U : 0U) | static_cast<unsigned>(what) << 9 | (from != nullptr ? 32U : 0U) |
                          (fromNull ? 64U : 0U) | (untilNull ? 128U : 0U) | (sameGroup ? 256U : 0U);
    SqlText& text = stretches_[code];
    if (text.text.empty()) text.text = StretchText(direction, from, until, step, what);
    Query query(store_, text);
    if (!order_.empty() && from != nullptr && !fromNull && step != Step::NullBlock) BindComparable(query, 1, from->values[0]);
    if (step == Step::BehindRow && from != nullptr) query.Bind(2, from->rowKey);
    if (!order_.empty() && step == Step::BehindColumn && !untilNull) BindComparable(query, 3, until.values[0]);
    const bool reaches = step == Step::BehindRow ? sameGroup || order_.empty() : step == Step::NullBlock ? untilNull : !untilNull;
    if (reaches) query.Bind(4, until.rowKey);
    while (goOn && query.Step()) goOn = sink(query);
  }
}

void KeyWalker::ReadUpTo(Direction direction, const OrderPlace* from, const OrderPlace& until, bool keysOnly, const Sink& sink) {
  AskUpTo(direction, from, until, keysOnly ? What::Keys : What::Rows, sink);
}

std::int64_t KeyWalker::CountUpTo(Direction direction, const OrderPlace* from, const OrderPlace& until) {
  std::int64_t rows = 0;
  AskUpTo(direction, from, until, What::Number, [&rows](const Query& number) {
    rows += number.Int(0);
    return true;
  });
  return rows;
}

std::string KeyWalker::StretchText(Direction direction, const OrderPlace* from, const OrderPlace& until, Step step, What what) const {
  const bool up = direction == Direction::Up;
  const std::string beyond = up ? " > " : " < ";
  const std::string within = up ? " <= " : " >= ";
  const std::string strictly = up ? " < " : " > ";
  const auto is = [&](const OrderPlace& place) {
    return comparable_[0] + (place.values[0].IsNull() ? " IS NULL" : " = " + dialect_.Parameter(1));
  };
  const bool untilNull = !order_.empty() && until.values[0].IsNull();
  const std::string rows = what == What::Rows ? shape_.columnList + ", " + keyColumns_ : keyColumns_;
  std::string text = "SELECT " + (what == What::Number ? "count(*)" : rows) + " FROM " + from_ + " WHERE ";
  std::string condition;
  const auto add = [&](const std::string& part) { condition += (condition.empty() ? "" : " AND ") + part; };
  const std::string untilKey = rowKey_ + within + dialect_.Parameter(4);
  std::size_t ordered = 0;
  if (step == Step::BehindRow) {
    ordered = order_.size();
    if (!order_.empty()) add(is(*from));
    if (from != nullptr) add(rowKey_ + beyond + dialect_.Parameter(2));
    if (order_.empty() || CompareStored(order_[0].type, from->values[0], until.values[0]) == 0) add(untilKey);
  } else if (step == Step::NullBlock) {
    ordered = 1;
    add(comparable_[0] + " IS NULL");
    if (untilNull) add(untilKey);
  } else {
    const std::string& column = comparable_[0];
    add(from != nullptr && !from->values[0].IsNull() ? column + beyond + dialect_.Parameter(1) : column + " IS NOT NULL");
    if (!untilNull) {
      add(column + within + dialect_.Parameter(3));
      add('(' + column + strictly + dialect_.Parameter(3) + " OR " + untilKey + ')');
    }
  }
  if (!filter_.empty()) add('(' + filter_ + ')');
  text += condition;
  return what == What::Number ? text : text + " ORDER BY " + OrderText(direction, ordered);
}

}  // namespace engine
