#include "streets/import/osm/street_pieces.h"

#include <algorithm>

#include "streets/address/street_name.h"
#include "streets/import/osm/shapes.h"
#include "streets/import/osm/street_tags.h"

namespace streets {
namespace {

// Numbers of pieces: beyond those of the Census; the lowest bits tell pieces of one way apart.
constexpr std::int64_t kFirstPiece = std::int64_t{1} << 40;
constexpr int kPieceBits = 6;
constexpr std::size_t kMostPieces = std::size_t{1} << kPieceBits;
constexpr std::int64_t kWaysEnd = std::int64_t{1} << 41;

}  // namespace

std::string StreetWriter::Take(const ExtractWay& way, const NodePlaces& places) {
  const std::string highway = way.tags["highway"];
  const auto kind = KindOfHighway(highway);
  if (!kind) return "highway=" + highway + " is no street";
  if (way.id <= 0 || way.id >= kWaysEnd) return "its number can't be kept";
  if (way.nodes.size() < 2) return "it has fewer than two nodes";
  std::vector<Line> lines = LinesOf(way.nodes, places);
  const auto missing = std::ranges::count_if(way.nodes, [&](std::int64_t node) { return !places.Find(node); });
  if (lines.empty()) return missing > 0 ? "too few of its nodes are in the file" : "its line has no length";
  if (lines.size() > kMostPieces) lines.resize(kMostPieces);
  std::int64_t piece = kFirstPiece + (way.id << kPieceBits);
  for (const Line& line : lines) Write(piece++, *kind, way.tags, line);
  return missing > 0 ? std::to_string(missing) + " of its nodes are not in the file" : "";
}

void StreetWriter::Write(std::int64_t piece, platform::MapLine kind, const ExtractTags& tags, const Line& line) {
  ++pieces_;
  if (!writer_) return;
  const std::vector<std::string> names = NamesOfStreet(tags);
  const std::vector<std::string> zips = ZipsOf(tags, line);
  writer_->Edge(piece, kind, names.front(), line);
  for (const std::string& name : names) {
    const std::int64_t street = writer_->Street(NormalStreet(name));
    for (const std::string& zip : zips) writer_->Name(piece, street, zip);
  }
}

// Never none: "" is one.
std::vector<std::string> StreetWriter::ZipsOf(const ExtractTags& tags, const Line& line) const {
  std::vector<std::string> zips = ZipsOfStreet(tags);
  if (!zips.empty()) return zips;
  for (const Position& at : {line.front(), PlaceAlong(line, 0.5), line.back()}) {
    std::string zip = zips_.Nearest(at);
    if (std::ranges::find(zips, zip) == zips.end()) zips.push_back(std::move(zip));
  }
  return zips;
}

}  // namespace streets
