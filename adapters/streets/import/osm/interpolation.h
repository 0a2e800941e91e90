#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "streets/import/osm/addresses.h"
#include "streets/import/osm/extract_file.h"

namespace streets {

/// Lines along which houses are numbered evenly (addr:interpolation): some of their nodes bear numbers, and the houses between lie between.
/// They run beside their street, through the houses; so each number becomes a point of its own, and no line is drawn.
class Interpolation {
 public:
  /// Of more nodes the places and numbers are not kept.
  static constexpr std::size_t kMostNodes = 300'000;

  /// Says why the way can't be taken; "" when it is kept.
  std::string Add(const ExtractWay& way);
  /// Whether a way that was added goes through the node; what the node says is kept then.
  bool Offer(const ExtractNode& node);

  using Refuse = std::function<void(std::int64_t way, const std::string& why)>;
  /// When all nodes were offered.
  void Write(AddressWriter& to, const Refuse& refuse) const;

 private:
  struct Node {
    std::optional<Position> at;
    AddressTexts address;
  };
  struct Way {
    std::int64_t id;
    int step;
    int remainder;  ///< of the numbers by two; -1: both
    AddressTexts address;
    std::vector<std::int64_t> nodes;
  };
  /// A numbered node and the line to it from the one before.
  struct Stop {
    HouseNumber number;
    const Node* node;
    Line line;
  };
  std::vector<Stop> StopsOf(const Way& way) const;
  static std::string WriteBetween(const Way& way, const Stop& from, const Stop& to, AddressWriter& writer);

  std::vector<Way> ways_;
  std::unordered_map<std::int64_t, Node> nodes_;
};

}  // namespace streets
