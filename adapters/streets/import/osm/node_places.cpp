#include "streets/import/osm/node_places.h"

#include <algorithm>

namespace streets {

void NodePlaces::Want(std::span<const std::int64_t> nodes) {
  for (const std::int64_t node : nodes) nodes_.push_back({node, kUnknown});
}

void NodePlaces::Close() {
  std::ranges::sort(nodes_, {}, &Node::id);
  nodes_.erase(std::unique(nodes_.begin(), nodes_.end(), [](const Node& left, const Node& right) { return left.id == right.id; }), nodes_.end());
}

std::vector<NodePlaces::Node>::const_iterator NodePlaces::Search(std::int64_t node) const {
  const auto found = std::ranges::lower_bound(nodes_, node, {}, &Node::id);
  return found != nodes_.end() && found->id == node ? found : nodes_.end();
}

void NodePlaces::Put(std::int64_t node, const Position& at) {
  const auto found = Search(node);
  if (found != nodes_.end()) nodes_[static_cast<std::size_t>(found - nodes_.begin())].at = at;
}

std::optional<Position> NodePlaces::Find(std::int64_t node) const {
  const auto found = Search(node);
  if (found == nodes_.end() || found->at == kUnknown) return {};
  return found->at;
}

}  // namespace streets
