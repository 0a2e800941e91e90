#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/rows/key_walker.h"

namespace engine {

/// Rows that fit a criterion, found in any order and asked for in list order. Few are kept with their places. Of many each takes 16
/// bytes: the start of its order key and its row key; full keys are fetched only where starts tie.
class Hits {
 public:
  Hits(KeyWalker& walker, Direction forward) : walker_(walker), forward_(forward) {}

  void Add(const OrderPlace& place);
  void Add(const Query& keysOnlyRow);
  std::size_t Size() const noexcept { return entries_.size(); }

  /// The first hit behind the place in list order; from the start without one.
  std::optional<OrderPlace> FirstBehind(const OrderPlace* after);

 private:
  struct Entry {
    std::uint64_t prefix;
    std::int64_t rowKey;
    auto operator<=>(const Entry&) const = default;
  };
  std::uint64_t PrefixOf(const OrderPlace& place) const;
  void Sort();
  std::optional<OrderPlace> FirstOfRun(const OrderPlace* after) const;
  /// The hits that share a prefix, fully ordered.
  void Run(std::size_t from, std::size_t to);

  KeyWalker& walker_;
  Direction forward_;
  std::vector<Entry> entries_;
  bool sorted_ = true;
  std::vector<OrderPlace> run_;  ///< of all hits while they are few
  bool few_ = true;
  std::size_t runFrom_ = 0;
  std::size_t runTo_ = 0;
};

}  // namespace engine
