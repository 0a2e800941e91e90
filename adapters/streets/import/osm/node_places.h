#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// Where the nodes of some ways lie. First they are wanted, then their places come, then they are asked for.
class NodePlaces {
 public:
  /// Of more nodes than this (32 MB) the places are not kept at a time, whatever an extract holds.
  static constexpr std::size_t kMost = 2'000'000;

  bool IsFull() const noexcept { return nodes_.size() >= kMost; }
  bool IsEmpty() const noexcept { return nodes_.empty(); }
  void Want(std::span<const std::int64_t> nodes);
  /// All are wanted: places can come.
  void Close();
  void Put(std::int64_t node, const Position& at);
  /// Nothing for a node that the extract doesn't hold.
  std::optional<Position> Find(std::int64_t node) const;

 private:
  static constexpr Position kUnknown{std::numeric_limits<std::int32_t>::max(), 0};
  struct Node {
    std::int64_t id;
    Position at;
  };
  std::vector<Node>::const_iterator Search(std::int64_t node) const;

  std::vector<Node> nodes_;
};

}  // namespace streets
