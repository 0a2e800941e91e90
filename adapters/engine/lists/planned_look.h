#pragma once

#include "engine/lists/first_look.h"
#include "engine/rows/key_walker.h"
#include "engine/rows/row_source.h"

namespace engine {

/// How a list's first page was found: by that way its next opening needs to find nothing out, and asks but once.
struct FoundWay {
  enum class Way {
    Few,   ///< `driver` leads to few rows
    Walk,  ///< among the first `rows` in the list's order
    All,   ///< among all that fit, put in order
  } way = Way::All;
  const PlanDriver* driver = nullptr;
  std::int64_t rows = 0;
  double share = 1;  ///< about which part of the table's rows the list has
  int taken = 0;     ///< so many times, since it was found
};

/// Finds the first page of a list in a store that plans statements by what it knows of the tables (Dialect::byNoIndex). What it doesn't
/// know well is whether rows that fit stand near the list's beginning, and it takes walks for far cheaper than they may be. So the first keys
/// of all drivers are read: they are all there are, or tell how many there may be. Then the first rows of the list are walked, unless that
/// tells that the page ends too far on; when it isn't full then, one statement finds all rows that fit, by whatever way the store knows, and
/// keeps the first ones. Each of these is one question to the store.
class PlannedLook {
 public:
  /// `rows`, `bounded`: as for FirstLook; neither where no index gives the order. `all`: the plan's rows by a walk that puts them in order.
  PlannedLook(RowSource& source, KeyWalker* rows, KeyWalker* bounded, KeyWalker& all, Direction direction)
      : source_(source), rows_(rows), bounded_(bounded), all_(all), direction_(direction) {}

  FirstRows Run();

 private:
  FirstRows ByOne(std::int64_t likelyRows);
  std::optional<FirstRows> AsBefore();
  FirstRows FindOut();
  void Remember(FoundWay way) const;
  void Begin();
  bool Walk(const std::optional<FirstLook::Told>& told);
  std::int64_t Trial() const;
  double Questions() const;
  std::int64_t FirstStretch(const std::optional<FirstLook::Told>& told) const;
  bool WalkOn(std::int64_t rows);
  double LikelyShare(bool found, const std::optional<FirstLook::Told>& told) const;
  void PutAllInOrder(std::int64_t likelyRows);
  std::int64_t Hits() const { return static_cast<std::int64_t>(first_.page->Rows()); }

  RowSource& source_;
  KeyWalker* rows_;
  KeyWalker* bounded_;
  KeyWalker& all_;
  Direction direction_;
  FirstRows first_;
  std::optional<OrderPlace> reached_;  ///< where the last of the rows found stands
  std::int64_t looked_ = 0;
  bool atOnce_ = true;  ///< by one walk, so far
  std::int64_t span_ = 0;
};

}  // namespace engine
