#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/rows/key_walker.h"

namespace engine {

/// Every 256th place of a list in index order, collected in slices of idle time: from them a row's number and the row of a
/// number are a short walk away. While somebody writes they are a little off until they are collected anew.
class Fences {
 public:
  Fences(KeyWalker& walker, Direction forward) : walker_(walker), forward_(forward) {}

  /// One slice for the list as it stands at `version`. False when all is done.
  bool Slice(std::uint64_t version);
  /// All places are known and the list hasn't changed since.
  bool Complete(std::uint64_t version) const { return done_ && version_ == version; }
  /// Rows that the collected fences cover.
  std::int64_t Rows() const { return rows_; }

  /// The place with that number, when the fences reach so far.
  std::optional<OrderPlace> At(std::int64_t ordinal);
  /// The number of a place (of the first row behind it when it is gone), when the fences reach so far.
  std::optional<std::int64_t> OrdinalOf(const OrderPlace& place);

 private:
  static constexpr std::int64_t kSpacing = 256;
  static constexpr std::int64_t kSliceRows = 8192;
  struct Collection {
    std::vector<OrderPlace> places;  ///< of a later collection; the first one is in use already
    OrderPlace last;
    std::int64_t rows = 0;
  };

  KeyWalker& walker_;
  Direction forward_;
  std::vector<OrderPlace> fences_;  ///< in use
  std::int64_t rows_ = 0;
  bool done_ = false;
  std::uint64_t version_ = 0;
  Collection building_;
  std::uint64_t buildingVersion_ = 0;
};

}  // namespace engine
