#include "streets/import/osm/areas.h"

#include "streets/import/osm/shapes.h"

namespace streets {
namespace {

constexpr const char* kTooMany = "the extract has too many houses of several ways";

bool IsOuter(const std::string& type, std::string_view role) {
  return type == "building" ? role == "outline" : role == "outer" || role.empty();
}

}  // namespace

std::string Areas::Add(const ExtractRelation& relation) {
  const std::string type = relation.tags["type"];
  if (type != "multipolygon" && type != "building") return "type=" + type + " has no outer ring";
  Area area{relation.id, AddressOf(relation.tags), {}};
  for (const ExtractMember& member : relation.members)
    if (member.isWay && IsOuter(type, member.role)) area.ways.push_back(member.id);
  if (area.ways.empty()) return "none of its ways is an outer ring";
  constexpr std::size_t kWay = 100;  // bytes, with its place among the others
  bytes_ += sizeof(Area) + area.address.number.size() + area.address.street.size() + area.ways.size() * kWay;
  if (bytes_ > kMostBytes) return kTooMany;
  for (const std::int64_t way : area.ways) nodesOf_.try_emplace(way);
  areas_.push_back(std::move(area));
  return "";
}

void Areas::Offer(const ExtractWay& way) {
  const auto found = nodesOf_.find(way.id);
  if (found == nodesOf_.end() || !found->second.empty()) return;
  isFull_ = isFull_ || nodes_ + way.nodes.size() > kMostNodes;
  if (isFull_) return;
  nodes_ += way.nodes.size();
  found->second.assign(way.nodes.begin(), way.nodes.end());
  places_.Want(way.nodes);
}

void Areas::Close() { places_.Close(); }

void Areas::Offer(const ExtractNode& node) {
  if (node.at) places_.Put(node.id, *node.at);
}

void Areas::Write(AddressWriter& to, const Refuse& refuse) const {
  for (const Area& area : areas_) {
    const std::string why = Take(area, to);
    if (!why.empty()) refuse(area.id, why);
  }
}

std::string Areas::Take(const Area& area, AddressWriter& to) const {
  std::vector<std::vector<std::int64_t>> ways;
  for (const std::int64_t way : area.ways) ways.push_back(nodesOf_.at(way));
  const Surrounded inside = MiddleOfRings(ways, places_);
  if (!inside.isWhole) return isFull_ ? kTooMany : "its outer ring is not whole in the file";
  return inside.middle ? to.Take(area.address, *inside.middle) : "it surrounds nothing";
}

}  // namespace streets
