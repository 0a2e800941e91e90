#include "streets/import/osm/zip_finder.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "streets/address/words.h"
#include "streets/file/zip_code.h"

namespace streets {
namespace {

constexpr double kCell = 500'000;
constexpr std::int64_t kAcross = 1'000;  // more than the cells from west to east
constexpr double kFarthest = 540'000;    // 60 km along a meridian

std::int64_t Row(double coordinate) { return static_cast<std::int64_t>(std::floor(coordinate / kCell)); }
std::int64_t CellOf(std::int64_t east, std::int64_t north) { return north * kAcross + east; }

// How much shorter a degree of longitude is than one of latitude.
double Narrow(const Position& at) { return std::max(0.2, std::cos(at.latitude / 1e6 * std::numbers::pi / 180)); }

}  // namespace

ZipFinder::ZipFinder(Database* baseMap) {
  if (!baseMap) return;
  Statement zips(*baseMap, "SELECT z.zip, z.longitude, z.latitude FROM Zips z WHERE EXISTS(SELECT 1 FROM ZipBoxes b WHERE b.id = z.zip) ORDER BY z.zip");
  while (zips.Step()) {
    const Position at{zips.Int32(1), zips.Int32(2)};
    cells_[CellOf(Row(at.longitude), Row(at.latitude))].push_back({at, zips.Int32(0)});
  }
}

std::string ZipFinder::Nearest(const Position& at) const {
  Found found{at, Narrow(at), kFarthest, 0};
  // The own cell first: most have their ZIP near by, and only a few other cells can then hold a nearer one.
  Search(CellOf(Row(at.longitude), Row(at.latitude)), found);
  const double high = found.distance;
  const double wide = found.distance / found.narrow;
  for (std::int64_t north = Row(at.latitude - high); north <= Row(at.latitude + high); ++north)
    for (std::int64_t east = Row(at.longitude - wide); east <= Row(at.longitude + wide); ++east) Search(CellOf(east, north), found);
  return ZipText(found.zip);
}

void ZipFinder::Search(std::int64_t cell, Found& found) const {
  const auto zips = cells_.find(cell);
  if (zips == cells_.end()) return;
  for (const Zip& zip : zips->second) {
    const double east = (static_cast<double>(zip.at.longitude) - found.from.longitude) * found.narrow;
    const double north = static_cast<double>(zip.at.latitude) - found.from.latitude;
    const double distance = std::hypot(east, north);
    if (distance > found.distance || (distance == found.distance && found.zip != 0 && zip.number >= found.zip)) continue;
    found.distance = distance;
    found.zip = zip.number;
  }
}

std::string ZipOfTag(const std::string& written) {
  constexpr std::size_t kDigits = 5;
  for (std::size_t first = 0; first + kDigits <= written.size(); ++first) {
    if (first > 0 && written[first - 1] != ' ') continue;
    const std::size_t end = first + kDigits;
    const std::string zip = written.substr(first, kDigits);
    const bool ends = end == written.size() || written[end] == ' ' || written[end] == '-' || written[end] == ';' || written[end] == ':';
    if (ends && ZipNumber(zip) != 0) return zip;
  }
  return "";
}

}  // namespace streets
