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
  /// Of about so many nodes the places are kept, 16 bytes each.
  explicit NodePlaces(std::size_t most) : most_(most) {}

  bool IsFull() const noexcept { return nodes_.size() >= most_; }
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

  std::size_t most_;
  std::vector<Node> nodes_;
};

}  // namespace streets
