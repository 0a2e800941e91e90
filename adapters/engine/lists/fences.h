#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/rows/key_walker.h"
#include "engine/rows/slices.h"

namespace engine {

/// Which of a table's rows pass a filter: a bit for each row key.
class PassingRows {
 public:
  void Expect(const KeySpan& span);
  void Add(std::int64_t rowKey);
  bool Has(std::int64_t rowKey) const;

 private:
  std::vector<bool> bits_;
  std::int64_t firstKey_ = 0;
};

/// Where the rows up to a place are counted, with it.
struct Fence {
  OrderPlace place;
  std::int64_t rows = 0;  ///< of the list
};

/// All fences of a list, as they were collected once.
struct CollectedPlaces {
  std::vector<Fence> fences;
  PassingRows passing;     ///< of a list with a filter,
  bool ofBounded = false;  ///< whose fences stand on rows that needn't be in it
  std::int64_t rows = 0;
  std::uint64_t version = 0;
  std::uint64_t ownVersion = 0;
  std::chrono::steady_clock::duration took{};
  std::chrono::steady_clock::time_point ended;
};

/// The same on its way.
struct CollectingPlaces {
  CollectedPlaces places;
  OrderPlace last;
  std::int64_t looked = 0;
  std::unique_ptr<PiecewiseScan> scan;  ///< of a list with a filter
  bool scanned = false;
  bool begun = false;
};

/// Places of a list in index order with the numbers of the rows up to them, collected in slices of idle time: from them a row's
/// number and the row of a number are a short walk away. Every 128th row of the table that is looked at for the list has one. While
/// somebody writes they are a little off until they are collected anew.
class Fences {
 public:
  /// `bounded`: of a list with a filter, the way through all the rows that are looked at for it; nullptr where these are the list's.
  Fences(RowSource& source, KeyWalker& walker, KeyWalker* bounded, Direction forward);

  /// One slice for the list as it stands at `version`. False when all is done, or when it is too early to do it again.
  bool Slice(std::uint64_t version);
  /// Something was written since all places were collected, but that took so long that they will do for a while. Never where asking costs
  /// nothing.
  bool Rest() const;
  /// What was collected last; nullptr before.
  const CollectedPlaces* Collected() const noexcept { return known_.get(); }
  /// Rows that the collected fences cover.
  std::int64_t Rows() const { return known_ ? known_->rows : building_->places.rows; }

  /// The last fence before the row with that number, of a list without a filter; nullptr when they don't reach so far.
  const Fence* Before(std::int64_t ordinal) const;
  /// The place with that number, when the fences reach so far.
  std::optional<OrderPlace> At(std::int64_t ordinal);
  /// The number of a place (of the first row behind it when it is gone), when the fences reach so far.
  std::optional<std::int64_t> OrdinalOf(const OrderPlace& place);

 private:
  static constexpr std::int64_t kSpacing = 128;
  static constexpr std::int64_t kSliceRows = 8192;
  /// All places are known and the list hasn't changed since.
  bool Complete(std::uint64_t version) const { return known_ && known_->version == version; }
  bool AskingIsDear() const;
  void TakeKnown();
  bool ReadOn();
  bool ReadFencesAlone();
  bool ScanOn();
  bool LookOn();
  const std::vector<Fence>& InUse() const { return known_ ? known_->fences : building_->places.fences; }
  bool KnowsPassing() const;
  std::optional<OrderPlace> Behind(const Fence* fence, std::int64_t rows);

  RowSource& source_;
  KeyWalker& walker_;
  KeyWalker* bounded_;
  Direction forward_;
  std::shared_ptr<const CollectedPlaces> known_;
  /// The first one is used as it grows; a later one replaces what is known when it is whole. Where asking costs most the lists of a
  /// statement without a filter share it: else one that is opened anew every other second would never come to the end.
  std::shared_ptr<CollectingPlaces> building_ = std::make_shared<CollectingPlaces>();
};

}  // namespace engine
