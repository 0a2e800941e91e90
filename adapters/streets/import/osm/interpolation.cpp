#include "streets/import/osm/interpolation.h"

#include <cstdlib>

#include "streets/import/osm/houses.h"
#include "streets/import/osm/shapes.h"

namespace streets {
namespace {

// Numbers that lie farther apart are a mistake.
constexpr std::int64_t kFarthest = 2'000;

int StepOf(const std::string& kind) {
  if (kind == "odd" || kind == "even") return 2;
  if (kind == "all") return 1;
  // "4": every fourth.
  return kind.size() == 1 && kind[0] >= '1' && kind[0] <= '9' ? kind[0] - '0' : 0;
}

int RemainderOf(const std::string& kind) { return kind == "odd" ? 1 : kind == "even" ? 0 : -1; }

const std::string& FirstOf(const std::string& one, const std::string& other, const std::string& last) {
  return !one.empty() ? one : !other.empty() ? other : last;
}

}  // namespace

std::string Interpolation::Add(const ExtractWay& way) {
  const std::string kind = way.tags["addr:interpolation"];
  const int step = StepOf(kind);
  if (step == 0) return "addr:interpolation=" + kind + " can't be counted";
  if (way.nodes.size() < 2) return "it has fewer than two nodes";
  if (nodes_.size() + way.nodes.size() > kMostNodes) return "the extract has too many lines of numbers";
  ways_.push_back({way.id, step, RemainderOf(kind), AddressOf(way.tags), {way.nodes.begin(), way.nodes.end()}});
  for (const std::int64_t node : way.nodes) nodes_.try_emplace(node);
  return "";
}

bool Interpolation::Offer(const ExtractNode& node) {
  const auto found = nodes_.find(node.id);
  if (found == nodes_.end()) return false;
  found->second = {node.at, AddressOf(node.tags)};
  return true;
}

void Interpolation::Write(AddressWriter& to, const Refuse& refuse) const {
  for (const Way& way : ways_) {
    const std::vector<Stop> stops = StopsOf(way);
    if (stops.size() < 2) {
      refuse(way.id, "fewer than two of its nodes have a number and a place");
      continue;
    }
    std::string why;
    for (std::size_t i = 1; i < stops.size() && why.empty(); ++i) why = WriteBetween(way, stops[i - 1], stops[i], to);
    if (!why.empty()) refuse(way.id, why);
  }
}

std::vector<Interpolation::Stop> Interpolation::StopsOf(const Way& way) const {
  std::vector<Stop> stops;
  Line line;
  for (const std::int64_t id : way.nodes) {
    const Node& node = nodes_.at(id);
    if (!node.at) continue;
    line.push_back(*node.at);
    const auto houses = HousesOf(node.address.number, true);
    if (houses.size() != 1) continue;
    stops.push_back({houses.front(), &node, std::move(line)});
    line = {*node.at};
  }
  return stops;
}

std::string Interpolation::WriteBetween(const Way& way, const Stop& from, const Stop& to, AddressWriter& writer) {
  const AddressTexts& first = from.node->address;
  const AddressTexts& last = to.node->address;
  const std::string& street = FirstOf(first.street, last.street, way.address.street);
  if (street.empty()) return "it has no street (addr:street)";
  if (from.number.prefix != to.number.prefix) return "its numbers begin differently";
  const std::int64_t begin = from.number.number;
  const std::int64_t end = to.number.number;
  if (std::abs(end - begin) > kFarthest) return "its numbers lie too far apart";
  const auto fits = [&](std::int64_t number) { return way.remainder < 0 || number % 2 == way.remainder; };
  if (!fits(begin) || !fits(end)) return "its numbers belie it";
  const std::string& zip = FirstOf(first.zip, last.zip, way.address.zip);
  // The ends have their own points, where they tell their street.
  if (first.street.empty()) writer.TakeHouse(street, from.number, zip, *from.node->at);
  if (last.street.empty()) writer.TakeHouse(street, to.number, zip, *to.node->at);
  const std::int64_t step = begin < end ? way.step : -way.step;
  for (std::int64_t number = begin + step; step > 0 ? number < end : number > end; number += step) {
    const double part = static_cast<double>(number - begin) / static_cast<double>(end - begin);
    writer.TakeHouse(street, {from.number.prefix, number, ""}, zip, PlaceAlong(to.line, part));
  }
  return "";
}

}  // namespace streets
