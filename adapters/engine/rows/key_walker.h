#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/rows/row_source.h"

namespace engine {

/// Ascending or against it, always in terms of the keys themselves.
enum class Direction { Up, Down };
inline Direction Opposite(Direction direction) { return direction == Direction::Up ? Direction::Down : Direction::Up; }

/// A place between rows or on one: the values of the order columns and the row key.
struct OrderPlace {
  std::vector<platform::Value> values;
  std::int64_t rowKey = 0;
};

/// Bounds on the first order column: lower <= key < upper; either may be missing.
struct KeyBounds {
  std::optional<std::string> lower;
  std::optional<std::string> upper;
};

/// Reads one table in the order of some columns and, among equals, of its row key: from an end or from behind a place, in
/// either direction, by one statement for each number of leading columns that stay equal, or by one for all of them where the store
/// can (Dialect::rowValues). So a page costs the same wherever it stands, also inside a large group of equal keys, and nothing stays
/// open between pages.
class KeyWalker {
 public:
  KeyWalker(Store& store, const RowShape& shape, WalkWay way);

  Store& OwnStore() const noexcept { return store_; }
  const std::vector<OrderColumn>& Order() const noexcept { return order_; }
  /// "t0.a, t0.key": the order columns and the row key.
  const std::string& KeyColumns() const noexcept { return keyColumns_; }

  struct Request {
    Direction direction = Direction::Up;
    const OrderPlace* from = nullptr;  ///< nullptr: from the end where the direction starts
    std::int64_t limit = 1;
    std::int64_t skip = 0;       ///< rows left out first; from an end, or where CanSkip
    bool keysOnly = false;       ///< rows without their columns
    bool equalsOnly = false;     ///< only rows whose order columns equal those of `from`
    std::string_view condition;  ///< one more condition on the rows, "" for none
    std::int64_t among = 0;      ///< it is asked of so many rows alone; 0: of as many as it takes
    /// The text behind the parameter ConditionTextAt(), if the condition has that.
    std::optional<std::string_view> conditionText{};
    std::string_view flag;  ///< an expression delivered behind the keys, "" for none
    /// The number behind the parameter FilterNumberAt(), if the walk's filter has that: one plan does for all of them.
    std::optional<std::int64_t> filterNumber{};
    const KeyBounds* bounds = nullptr;
  };
  /// Takes one row; false ends the reading. Keys-only rows start with the order columns, others with the columns; then the
  /// order columns (others), the row key, the flag.
  using Sink = std::function<bool(const Query& row)>;
  /// Whether rows can be left out behind its place: where one statement finds all of them.
  bool CanSkip(const Request& request) const { return LevelsFor(request).size() == 1; }
  /// Returns the number of rows read.
  std::int64_t Read(const Request& request, const Sink& sink);

  /// The next rows behind a place, by number.
  struct Stretch;
  /// `rows` of them behind `from` (nullptr: from the end where the direction starts); nothing when there are fewer. Reads keys alone.
  std::optional<Stretch> Ahead(Direction direction, const OrderPlace* from, std::int64_t rows);
  /// Reads those of the stretch that this walk's filter takes, and no more than `most` of them. `counted`: the walk of the same table and
  /// order that gave it.
  void ReadStretch(const Stretch& stretch, const KeyWalker& counted, std::int64_t most, const Sink& sink);
  /// Reads those of the next `rows` rows of `counted` (a walk of the same table and order) that this walk's filter takes, and no more
  /// than `most` of them, by one statement: from an end, or from behind a place where CanSkip. For stores that plan by themselves.
  void ReadAmongNext(Direction direction, const OrderPlace* from, std::int64_t rows, const KeyWalker& counted, std::int64_t most, const Sink& sink);
  /// Of the next `rows` rows, in keys alone, the first and every `spacing`th behind it, and the last; each with its number among them, from
  /// 1, in the place of a flag. For walks of at most one order column, in stores that compare rows as wholes.
  void ReadEvery(Direction direction, const OrderPlace* from, std::int64_t rows, std::int64_t spacing, const Sink& sink);
  /// The first rows of a walk that puts them in order; for stores that plan by themselves. `likelyRows`: among about how many; 0 where that
  /// isn't known.
  void ReadFirst(Direction direction, std::int64_t rows, std::int64_t likelyRows, const Sink& sink);
  /// A SELECT of the row keys, as "k", of the first rows.
  std::string FirstKeys(Direction direction, std::int64_t rows) const;

  /// Reads the rows behind `from` (nullptr: from the end where the direction starts) up to and with `until`, without limit. For walks of at
  /// most one order column.
  void ReadUpTo(Direction direction, const OrderPlace* from, const OrderPlace& until, bool keysOnly, const Sink& sink);
  /// How many rows that would read.
  std::int64_t CountUpTo(Direction direction, const OrderPlace* from, const OrderPlace& until);
  /// How many rows stand before the place in that direction; `most` or more of them where there are more. For stores that plan by themselves.
  std::int64_t CountBefore(Direction direction, const OrderPlace& place, std::int64_t most);

  /// The columns of a full row.
  std::string RowColumns() const { return shape_.columnList + ", " + keyColumns_; }
  /// The row with that key, as a full row, whatever the list's filter says; false when it is gone.
  bool ReadRow(std::int64_t rowKey, const Sink& sink);
  /// The row with that key, if it is in the list, and those behind it: up to `rows` of them. Finds nothing where its order column is Null, nor
  /// others where theirs is. For walks of at most one order column, in stores that compare rows as wholes; their number.
  std::int64_t ReadFrom(std::int64_t rowKey, Direction direction, std::int64_t rows, const Sink& sink);
  /// The walk's first row, and behind it the same.
  void ReadFirstAndFrom(std::int64_t rowKey, Direction direction, std::int64_t rows, const Sink& sink);
  /// The same as ReadRow for several rows, in any order.
  void ReadRows(std::span<const std::int64_t> rowKeys, const Sink& sink);
  /// Where the table has the row with that key now; nothing when it is gone.
  std::optional<OrderPlace> PlaceOfRow(std::int64_t rowKey);
  /// Whether the list's filter takes the row; true without a filter.
  bool InFilter(std::int64_t rowKey);
  /// Rows that stand below the place.
  std::int64_t CountBelow(const OrderPlace& place);
  std::int64_t CountAll();

  int ConditionTextAt() const { return static_cast<int>(order_.size()) + 6; }
  /// For a walk in that order.
  static int FilterNumberAt(std::span<const OrderColumn> order) { return static_cast<int>(order.size()) + 7; }

  /// Where the parts stand in a row of a full read.
  int OrderAt(bool keysOnly) const { return keysOnly ? 0 : static_cast<int>(shape_.plan.columns.size()); }
  int RowKeyAt(bool keysOnly) const { return OrderAt(keysOnly) + static_cast<int>(order_.size()); }
  int FlagAt(bool keysOnly) const { return RowKeyAt(keysOnly) + 1; }
  OrderPlace PlaceAt(const Query& row, bool keysOnly) const;
  /// Puts a full row behind the others of a page whose rows hold the columns and the order columns.
  void AppendRow(const Query& row, RowPage& page) const;

  /// Order of two places, Null lowest: below, equal to or above 0.
  int Compare(const OrderPlace& left, const OrderPlace& right) const;

 private:
  /// Which rows one statement takes: the first `equal` columns as in `from`, the next one beyond it; BehindPlace: the column and the
  /// row key together beyond it.
  enum class Step { All, BehindRow, BehindColumn, NotNull, NullBlock, BehindPlace };
  struct Level {
    Step step = Step::All;
    std::size_t equal = 0;
  };
  std::vector<Level> LevelsFor(const Request& request) const;
  bool IsStraight(const Request& request) const;
  void PlanAlong(Query& query) const;
  bool OnePlanDoes(const Request& request) const;
  std::int64_t Within(const Request& request) const;
  std::uint64_t CodeOf(const Request& request, const Level& level) const;
  SqlText& Statement(const Request& request, const Level& level, SqlText& own);
  SqlText& Joined(const Request& request, const std::vector<Level>& levels, SqlText& own);
  std::int64_t Take(Query& query, const Request& request, std::int64_t most, const Sink& sink, bool& goOn) const;
  std::string MarkedText(const Request& request, const Level& level, const KeyWalker& counted) const;
  enum class What { Rows, Keys, Number };
  void AskUpTo(Direction direction, const OrderPlace* from, const OrderPlace& until, What what, const Sink& sink);
  std::string StretchText(Direction direction, const OrderPlace* from, const OrderPlace& until, Step step, What what) const;
  const SqlText& Ready(SqlText& text, std::string_view columns, bool filtered) const;
  void BindPlace(Query& query, const Request& request, const Level& level) const;
  std::string FromRowText(Direction direction, std::int64_t rows) const;
  std::int64_t AskFromRow(std::int64_t rowKey, std::string_view sql, const Sink& sink);
  std::string StatementText(const Request& request, const Level& level) const;
  std::string SortedText(const Request& request, const Level& level, const std::string& limit) const;
  std::string WithinSample(Direction direction, std::int64_t rows, std::int64_t likelyRows) const;
  std::string PlacedText(const Request& request, const Level& level) const;
  std::string PassedOn() const;
  std::string AmongFirst(const std::string& first, const std::string& order, std::int64_t most, Direction direction) const;
  bool AsksKeysAlone() const;
  std::string KeysAlone() const;
  std::string NextText(const Request& request, std::span<const Level> levels, const std::string& columns, std::int64_t rows) const;
  std::string OrderOf(const Request& request, const Level& level) const;
  std::string AmongText(const Request& request, std::span<const Level> levels) const;
  std::string ConditionOf(const Request& request, const Level& level) const;
  std::string OrderText(Direction direction, std::size_t from) const;
  std::string ComparableOf(const OrderColumn& column) const;
  void BindComparable(Query& query, int parameter, const platform::Value& value) const;

  Store& store_;
  const Dialect& dialect_;
  const RowShape& shape_;
  std::vector<OrderColumn> order_;
  std::vector<std::string> comparable_;  ///< what each of them is compared and ordered by
  bool putInOrder_ = false;
  bool inBounds_ = false;
  std::string filter_;
  std::vector<platform::FieldType> orderTypes_;
  std::vector<platform::FieldType> rowTypes_;  ///< of the columns and the order columns
  std::string rowKey_;
  std::string from_;
  std::string keyColumns_;
  SqlText row_;
  std::unordered_map<std::size_t, SqlText> rows_;  ///< by the number of keys
  SqlText placeOfRow_;
  SqlText inFilter_;
  SqlText count_;
  std::unordered_map<std::uint64_t, SqlText> statements_;  ///< those without conditions of their own
  std::unordered_map<unsigned, SqlText> stretches_;
  std::unordered_map<std::uint64_t, SqlText> marked_;  ///< of stretches by number
};

struct KeyWalker::Stretch {
  Direction direction = Direction::Up;
  const OrderPlace* from = nullptr;
  std::vector<Level> levels;  ///< the last of them as far as `last`
  OrderPlace last;            ///< where its last row stands
};

/// Order of two stored values of one type, Null lowest.
int CompareStored(platform::FieldType type, const platform::Value& left, const platform::Value& right);

}  // namespace engine
