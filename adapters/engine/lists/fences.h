#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/rows/key_walker.h"
#include "engine/rows/slices.h"

namespace engine {

/// Places of a list in index order with the numbers of the rows up to them, collected in slices of idle time: from them a row's
/// number and the row of a number are a short walk away. Every 128th row of the table that is looked at for the list has one. While
/// somebody writes they are a little off until they are collected anew.
class Fences {
 public:
  /// `bounded`: of a list with a filter, the way through all the rows that are looked at for it; nullptr where these are the list's.
  Fences(RowSource& source, KeyWalker& walker, KeyWalker* bounded, Direction forward)
      : source_(source), walker_(walker), bounded_(bounded), forward_(forward) {}

  /// One slice for the list as it stands at `version`. False when all is done.
  bool Slice(std::uint64_t version);
  /// All places are known and the list hasn't changed since.
  bool Complete(std::uint64_t version) const { return done_ && version_ == version; }
  /// Rows that the collected fences cover.
  std::int64_t Rows() const { return rows_; }

  /// Where the rows up to a place are counted, with it.
  struct Fence {
    OrderPlace place;
    std::int64_t rows = 0;  ///< of the list
  };
  /// The last fence before the row with that number, of a list without a filter; nullptr when they don't reach so far.
  const Fence* Before(std::int64_t ordinal) const;
  /// The place with that number, when the fences reach so far.
  std::optional<OrderPlace> At(std::int64_t ordinal);
  /// The number of a place (of the first row behind it when it is gone), when the fences reach so far.
  std::optional<std::int64_t> OrdinalOf(const OrderPlace& place);

 private:
  static constexpr std::int64_t kSpacing = 128;
  static constexpr std::int64_t kSliceRows = 8192;
  /// Of a list with a filter: which of the table's rows pass it, a bit for each row key.
  class Passing {
   public:
    void Expect(const KeySpan& span);
    void Add(std::int64_t rowKey);
    bool Has(std::int64_t rowKey) const;

   private:
    std::vector<bool> bits_;
    std::int64_t firstKey_ = 0;
  };
  struct Collection {
    std::vector<Fence> places;  ///< of a later collection; the first one is in use already
    OrderPlace last;
    std::int64_t rows = 0;
    std::int64_t looked = 0;
    std::unique_ptr<PiecewiseScan> scan;  ///< of a list with a filter
    Passing passing;
    bool scanned = false;
  };
  bool ReadOn(std::vector<Fence>& places);
  bool ScanOn();
  bool LookOn(std::vector<Fence>& places);
  bool KnowsPassing() const;
  std::optional<OrderPlace> Behind(const Fence* fence, std::int64_t rows);

  RowSource& source_;
  KeyWalker& walker_;
  KeyWalker* bounded_;
  Direction forward_;
  std::vector<Fence> fences_;  ///< in use
  Passing passing_;            ///< as of the fences
  std::int64_t rows_ = 0;
  bool done_ = false;
  std::uint64_t version_ = 0;
  Collection building_;
  std::uint64_t buildingVersion_ = 0;
};

}  // namespace engine
