#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "streets/import/osm/addresses.h"
#include "streets/import/osm/extract_file.h"
#include "streets/import/osm/node_places.h"

namespace streets {

/// Houses whose walls are several ways, told by a relation (a building with a court): each lies in the middle of its outer ring. First
/// relations are added, then all ways are offered, then all nodes.
class Areas {
 public:
  /// Of more nodes the places are not kept, and of relations and their ways not more than that many bytes.
  static constexpr std::size_t kMostNodes = 1'000'000;
  static constexpr std::size_t kMostBytes = std::size_t{24} << 20;

  /// Says why the relation can't be taken; "" when it is kept.
  std::string Add(const ExtractRelation& relation);
  bool IsEmpty() const noexcept { return areas_.empty(); }
  void Offer(const ExtractWay& way);
  /// All ways were offered: nodes can come.
  void Close();
  void Offer(const ExtractNode& node);

  using Refuse = std::function<void(std::int64_t relation, const std::string& why)>;
  /// When all nodes were offered.
  void Write(AddressWriter& to, const Refuse& refuse) const;

 private:
  struct Area {
    std::int64_t id;
    AddressTexts address;
    std::vector<std::int64_t> ways;  ///< the outer ones
  };
  std::string Take(const Area& area, AddressWriter& to) const;

  std::vector<Area> areas_;
  std::unordered_map<std::int64_t, std::vector<std::int64_t>> nodesOf_;  ///< of ways
  std::size_t bytes_ = 0;
  std::size_t nodes_ = 0;
  bool isFull_ = false;
  NodePlaces places_{kMostNodes};
};

}  // namespace streets
