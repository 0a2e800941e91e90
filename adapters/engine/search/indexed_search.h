#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "engine/rows/key_walker.h"
#include "engine/search/hits.h"
#include "engine/search/indexed_rows.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// Searching a list in index order. A criterion on the order column is a probe of its index; one on the row key is a look at
/// that row; all others look at the next thousand rows in list order, which finds what is common, and then once at the
/// whole table, keeping all rows that fit for the searches that follow. Where asking costs more than rows do, who searches on gets the
/// next rows that fit along with the first of them.
class IndexedSearch {
 public:
  IndexedSearch(RowSource& source, KeyWalker& walker, Direction forward, IndexedRows& list)
      : source_(source), walker_(walker), forward_(forward), list_(list) {}

  bool Find(std::string_view criterion, const Place* after, Place& found);

 private:
  void Understand(std::string_view criterion);
  bool ByRowKey(const Place* after, Place& found);
  bool ByOrderColumn(const Place* after, Place& found);
  bool ByOtherIndex(const Place* after, Place& found);
  bool ByRows(const Place* after, Place& found);

  /// The first row of the table in list order behind `after` that fits, apart from those that the list holds elsewhere.
  std::optional<Place> Probe(const Place* after, KeyBounds bounds);
  std::int64_t WantedBehind(const Place* after);
  bool KnowsNext(const Place* after) const;
  Place PlaceIn(const std::shared_ptr<const RowPage>& page, std::size_t row) const;
  std::optional<KeyBounds> PrefixBounds() const;
  bool BoundsFor(const Place* after, KeyBounds& bounds, bool& fromEnd) const;
  std::optional<bool> WalkAhead(const Place* after, Place& found);
  std::optional<bool> WalkAmong(std::int64_t rows, const Place* after, Place& found);
  void CollectAll();
  bool FromHits(const Place* after, Place& found);
  std::optional<Place> RowOf(std::optional<std::int64_t> rowKey);
  bool WithPinned(std::optional<Place> best, const Place* after, Place& found);
  bool OnRowKey() const;
  bool OnOrderColumn() const;
  std::string OtherIndex() const;

  RowSource& source_;
  KeyWalker& walker_;
  Direction forward_;
  IndexedRows& list_;
  std::string criterion_;
  CriterionPlan plan_;
  SqlText test_;
  std::unique_ptr<Hits> hits_;
  std::uint64_t hitsVersion_ = 0;

  /// Rows that fit, one behind the other, as the last probe has read them.
  struct NextRows {
    std::shared_ptr<const RowPage> page;
    std::size_t at = 0;      ///< the row that was given last
    bool ended = false;      ///< no other fits behind them
    std::uint64_t version = 0;
    std::int64_t wanted = 0;
  };
  NextRows next_;
};

}  // namespace engine
