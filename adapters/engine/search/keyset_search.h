#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "engine/search/keyset_rows.h"
#include "engine/text/text_order.h"
#include "engine/translate/plan/plan.h"

namespace engine {

/// Searching a list of held keys: row by row for the next rows, then by one statement whose hits are kept for the
/// searches that follow. A list in index order is entered by the index when the criterion is on its order column.
class KeysetSearch {
 public:
  KeysetSearch(RowSource& source, KeysetRows& list) : source_(source), list_(list) {}

  bool Find(std::string_view criterion, const Place* after, Place& found);

 private:
  void Understand(std::string_view criterion);
  std::optional<std::int64_t> FirstFit(std::int64_t from);
  std::optional<bool> ByIndex(std::int64_t from, std::int64_t& hit);
  std::optional<bool> ByOrder(std::int64_t from, std::int64_t& hit);
  int SideOfRange(const OrderPlace* place) const;
  bool IsInRange(std::int64_t ordinal) const;
  std::optional<std::int64_t> FirstInRange(std::int64_t from);
  std::optional<bool> ByRowKey(std::int64_t from, std::int64_t& hit);
  std::optional<bool> AmongFew(std::int64_t from, std::int64_t& hit);
  std::optional<bool> WalkAhead(std::int64_t from, std::int64_t& hit);
  std::optional<bool> WalkTogether(std::int64_t from, std::int64_t end, std::int64_t& hit);
  void CollectHits();
  void CollectOfOneTable();
  void CollectByOne();
  void CollectOfMany();
  bool FromHits(std::int64_t from, std::int64_t& hit);
  bool OnField(int& field) const;
  bool IsHit(const std::int64_t* keys) const;

  RowSource& source_;
  KeysetRows& list_;
  std::string criterion_;
  CriterionPlan plan_;
  PrimaryRange range_;  ///< of a criterion with a fixed start
  SqlText test_;
  bool hitsKnown_ = false;
  std::uint64_t hitsVersion_ = 0;
  std::unordered_set<std::int64_t> hits_;       ///< of one table
  std::unordered_set<std::string> joinedHits_;  ///< of several
};

}  // namespace engine
