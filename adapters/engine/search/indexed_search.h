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
/// whole table, keeping all rows that fit for the searches that follow.
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
  std::optional<std::int64_t> Probe(const Place* after, KeyBounds bounds);
  bool BoundsFor(const Place* after, KeyBounds& bounds, bool& fromEnd) const;
  std::optional<bool> WalkAhead(const Place* after, Place& found);
  void CollectAll();
  bool FromHits(const Place* after, Place& found);
  bool WithPinned(std::optional<std::int64_t> rowKey, const Place* after, Place& found);
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
};

}  // namespace engine
