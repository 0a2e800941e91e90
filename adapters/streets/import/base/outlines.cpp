#include "streets/import/base/outlines.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>

#include "streets/file/file_error.h"

namespace streets {
namespace {

using Json = nlohmann::json;

constexpr double kFine = 1e6;

// Arcs are ways from point to point in steps of the topology's own grid.
std::vector<Line> ReadArcs(const Json& topology) {
  const Json& scale = topology.at("transform").at("scale");
  const Json& origin = topology.at("transform").at("translate");
  const auto fine = [&](std::int64_t step, std::size_t axis) {
    const double degrees = static_cast<double>(step) * scale.at(axis).get<double>() + origin.at(axis).get<double>();
    if (!(std::abs(degrees) <= 180)) throw FileError("a point lies off the earth");
    return static_cast<std::int32_t>(std::lround(degrees * kFine));
  };
  std::vector<Line> arcs;
  for (const Json& arc : topology.at("arcs")) {
    Line line;
    std::int64_t east = 0;
    std::int64_t north = 0;
    for (const Json& step : arc) {
      east += step.at(0).get<std::int32_t>();
      north += step.at(1).get<std::int32_t>();
      line.push_back({fine(east, 0), fine(north, 1)});
    }
    if (line.empty()) throw FileError("an arc has no points");
    arcs.push_back(std::move(line));
  }
  return arcs;
}

std::size_t ArcOf(std::int64_t number, std::size_t arcs) {
  const auto arc = static_cast<std::size_t>(number < 0 ? ~number : number);
  if (arc >= arcs) throw FileError("a border has an arc that is not there");
  return arc;
}

// A ring is a row of arcs; one with a negative number is walked backwards. Where two meet, the point is there once.
Line RingOf(const Json& numbers, const std::vector<Line>& arcs) {
  Line ring;
  for (const Json& each : numbers) {
    const auto number = each.get<std::int64_t>();
    Line arc = arcs[ArcOf(number, arcs.size())];
    if (number < 0) std::ranges::reverse(arc);
    ring.insert(ring.end(), arc.begin() + (ring.empty() ? 0 : 1), arc.end());
  }
  return ring;
}

void TakeBox(Outline& outline) {
  outline.box = {INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
  for (const Line& ring : outline.rings) {
    for (const Position& at : ring) {
      outline.box = {std::min(outline.box[0], at.longitude), std::min(outline.box[1], at.latitude), std::max(outline.box[2], at.longitude),
                     std::max(outline.box[3], at.latitude)};
    }
  }
}

// A polygon's arcs are its rings, several polygons have one level more.
template <typename Each>
void EachRing(const Json& geometry, const Each& each) {
  const std::string type = geometry.at("type").get<std::string>();
  if (type == "Polygon") {
    for (const Json& ring : geometry.at("arcs")) each(ring);
  } else if (type == "MultiPolygon") {
    for (const Json& polygon : geometry.at("arcs"))
      for (const Json& ring : polygon) each(ring);
  }
}

std::vector<Outline> ReadObjects(const Json& topology, const char* object, const std::vector<Line>& arcs) {
  std::vector<Outline> outlines;
  for (const Json& geometry : topology.at("objects").at(object).at("geometries")) {
    Outline outline{geometry.at("id").get<std::string>(), geometry.at("properties").at("name").get<std::string>(), {}, {}};
    EachRing(geometry, [&](const Json& ring) { outline.rings.push_back(RingOf(ring, arcs)); });
    TakeBox(outline);
    outlines.push_back(std::move(outline));
  }
  return outlines;
}

std::vector<Border> BordersOf(const Json& topology, const std::vector<Line>& arcs) {
  std::vector<bool> ofState(arcs.size(), false);
  for (const Json& geometry : topology.at("objects").at("states").at("geometries")) {
    EachRing(geometry, [&](const Json& ring) {
      for (const Json& number : ring) ofState[ArcOf(number.get<std::int64_t>(), arcs.size())] = true;
    });
  }
  std::vector<Border> borders;
  for (std::size_t i = 0; i < arcs.size(); ++i) borders.push_back({ofState[i], arcs[i]});
  return borders;
}

constexpr std::array<std::pair<std::string_view, std::string_view>, 56> kStates{
    {{"01", "AL"}, {"02", "AK"}, {"04", "AZ"}, {"05", "AR"}, {"06", "CA"}, {"08", "CO"}, {"09", "CT"}, {"10", "DE"}, {"11", "DC"}, {"12", "FL"},
     {"13", "GA"}, {"15", "HI"}, {"16", "ID"}, {"17", "IL"}, {"18", "IN"}, {"19", "IA"}, {"20", "KS"}, {"21", "KY"}, {"22", "LA"}, {"23", "ME"},
     {"24", "MD"}, {"25", "MA"}, {"26", "MI"}, {"27", "MN"}, {"28", "MS"}, {"29", "MO"}, {"30", "MT"}, {"31", "NE"}, {"32", "NV"}, {"33", "NH"},
     {"34", "NJ"}, {"35", "NM"}, {"36", "NY"}, {"37", "NC"}, {"38", "ND"}, {"39", "OH"}, {"40", "OK"}, {"41", "OR"}, {"42", "PA"}, {"44", "RI"},
     {"45", "SC"}, {"46", "SD"}, {"47", "TN"}, {"48", "TX"}, {"49", "UT"}, {"50", "VT"}, {"51", "VA"}, {"53", "WA"}, {"54", "WV"}, {"55", "WI"},
     {"56", "WY"}, {"60", "AS"}, {"66", "GU"}, {"69", "MP"}, {"72", "PR"}, {"78", "VI"}}};

}  // namespace

bool Outline::Holds(const Position& at) const {
  if (at.longitude < box[0] || at.latitude < box[1] || at.longitude > box[2] || at.latitude > box[3]) return false;
  bool inside = false;
  for (const Line& ring : rings) {
    for (std::size_t i = 1; i < ring.size(); ++i) {
      const Position& from = ring[i - 1];
      const Position& to = ring[i];
      if ((from.latitude > at.latitude) == (to.latitude > at.latitude)) continue;
      const double share = (1.0 * at.latitude - from.latitude) / (1.0 * to.latitude - from.latitude);
      if (at.longitude < from.longitude + share * (1.0 * to.longitude - from.longitude)) inside = !inside;
    }
  }
  return inside;
}

Outlines ParseOutlines(std::string_view text, const std::string& path) {
  try {
    const Json topology = Json::parse(text);
    const std::vector<Line> arcs = ReadArcs(topology);
    return {ReadObjects(topology, "states", arcs), ReadObjects(topology, "counties", arcs), BordersOf(topology, arcs)};
  } catch (const Json::exception& problem) {
    throw FileError(path + " is not a topology of states and counties: " + problem.what());
  } catch (const FileError& problem) {
    throw FileError(path + ": " + problem.what() + ".");
  }
}

Outlines ReadOutlines(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw FileError(path + " can't be opened.");
  std::ostringstream text;
  text << file.rdbuf();
  return ParseOutlines(text.view(), path);
}

std::string_view StateOfNumber(std::string_view number) {
  for (const auto& state : kStates)
    if (number.substr(0, 2) == state.first) return state.second;
  return "";
}

}  // namespace streets
