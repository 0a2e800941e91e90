#include "streets/import/osm/street_tags.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "streets/import/osm/zip_finder.h"

namespace streets {
namespace {

using platform::MapLine;

struct Kind {
  std::string_view highway;
  MapLine line;
};

constexpr std::array<Kind, 24> kKinds{{{"motorway", MapLine::Highway},
                                       {"motorway_link", MapLine::Highway},
                                       {"trunk", MapLine::Highway},
                                       {"trunk_link", MapLine::Highway},
                                       {"primary", MapLine::MainRoad},
                                       {"primary_link", MapLine::MainRoad},
                                       {"secondary", MapLine::MainRoad},
                                       {"secondary_link", MapLine::MainRoad},
                                       {"tertiary", MapLine::Road},
                                       {"tertiary_link", MapLine::Road},
                                       {"residential", MapLine::Street},
                                       {"unclassified", MapLine::Street},
                                       {"living_street", MapLine::Street},
                                       {"road", MapLine::Street},
                                       {"service", MapLine::Street},
                                       {"busway", MapLine::Street},
                                       {"pedestrian", MapLine::Path},
                                       {"track", MapLine::Path},
                                       {"path", MapLine::Path},
                                       {"footway", MapLine::Path},
                                       {"cycleway", MapLine::Path},
                                       {"bridleway", MapLine::Path},
                                       {"steps", MapLine::Path},
                                       {"corridor", MapLine::Path}}};

// "ref" comes last: a street that has no other name is drawn by its number.
constexpr std::array<const char*, 9> kNames{"name", "name_1", "name_2", "name_3", "alt_name", "official_name", "loc_name", "old_name", "ref"};
constexpr std::array<const char*, 3> kZips{"tiger:zip_left", "tiger:zip_right", "addr:postcode"};

void AddOnce(std::string text, std::vector<std::string>& to) {
  if (!text.empty() && std::ranges::find(to, text) == to.end()) to.push_back(std::move(text));
}

// The texts that one value names: "US 1;ME 15".
template <typename Take>
void EachText(const std::string& value, std::string_view parting, const Take& take) {
  for (std::size_t begin = 0; begin <= value.size();) {
    const std::size_t end = std::min(value.find_first_of(parting, begin), value.size());
    const std::size_t first = value.find_first_not_of(' ', begin);
    if (first < end) take(value.substr(first, value.find_last_not_of(' ', end - 1) - first + 1));
    begin = end + 1;
  }
}

}  // namespace

std::optional<MapLine> KindOfHighway(const std::string& highway) {
  const auto kind = std::ranges::find(kKinds, highway, &Kind::highway);
  if (kind == kKinds.end()) return {};
  return kind->line;
}

std::vector<std::string> NamesOfStreet(const ExtractTags& tags) {
  std::vector<std::string> names;
  for (const char* key : kNames)
    if (tags.Has(key)) EachText(tags[key], ";", [&](std::string name) { AddOnce(std::move(name), names); });
  return names;
}

std::vector<std::string> ZipsOfStreet(const ExtractTags& tags) {
  std::vector<std::string> zips;
  for (const char* key : kZips)
    if (tags.Has(key)) EachText(tags[key], ";:,", [&](const std::string& zip) { AddOnce(ZipOfTag(zip), zips); });
  return zips;
}

}  // namespace streets
