#include "streets/ground/drawn_file.h"

#include <algorithm>
#include <cmath>

#include "streets/file/database.h"
#include "streets/index/shape.h"
#include "streets/file/zip_code.h"
#include "streets/ground/simplify.h"

namespace streets {
namespace {

using platform::MapBox;
using platform::MapLine;
using platform::MapPoint;
using platform::MapText;

constexpr int kFiner = 10;               // a file's units in one of the map's
constexpr double kZipsUpTo = 100;        // map units a pixel
constexpr double kUnitsPerWeight = 150;  // so many ZIPs a place must have, to be named, as a pixel holds times this

const std::string kInBox = " b WHERE b.west <= ?1 AND b.east >= ?2 AND b.south <= ?3 AND b.north >= ?4";

bool HasRows(Database& file, const std::string& table) { return file.Ask("SELECT EXISTS(SELECT 1 FROM " + table + ")") != 0; }

std::vector<Statement> EdgeStatements(Database& file) {
  std::vector<Statement> statements;
  for (const EdgeLayer& layer : kEdgeLayers) {
    statements.emplace_back(file, "SELECT e.shape, e.name FROM Edges e, (SELECT b.id FROM " + std::string(layer.boxes) + kInBox +
                                      ") found WHERE e.id = found.id");
  }
  return statements;
}

// A box in a file's units, in the order of the statements' places.
struct FileBox {
  explicit FileBox(const MapBox& box)
      : east(std::int64_t{box.east} * kFiner), west(std::int64_t{box.west} * kFiner), north(std::int64_t{box.north} * kFiner), south(std::int64_t{box.south} * kFiner) {}
  std::int64_t east;
  std::int64_t west;
  std::int64_t north;
  std::int64_t south;
};

std::int32_t Rounded(std::int32_t fine) { return static_cast<std::int32_t>(std::lround(fine / double{kFiner})); }
MapPoint PointOf(std::int32_t longitude, std::int32_t latitude) { return {Rounded(latitude), Rounded(longitude)}; }

int BorderLevel(double unitsPerPixel) {
  int level = 0;
  for (std::size_t i = 0; i < kBorderLevels.size(); ++i)
    if (unitsPerPixel >= kBorderLevels[i]) level = static_cast<int>(i);
  return level;
}

}  // namespace

DrawnFile::DrawnFile(Database& file)
    : hasEdges_(HasRows(file, "Edges")),
      hasBorders_(HasRows(file, "Borders")),
      hasZips_(HasRows(file, "Zips")),
      edges_(EdgeStatements(file)),
      borders_(file, "SELECT o.shape, '' FROM Borders o, (SELECT b.id FROM BorderBoxes" + kInBox +
                         " AND b.layer >= ?5 AND b.layer <= ?5) found WHERE o.id = found.id"),
      places_(file, "SELECT p.longitude, p.latitude, p.name, p.weight FROM Places p, (SELECT b.id FROM PlaceBoxes" + kInBox +
                        " AND b.weight >= ?5) found WHERE p.id = found.id"),
      zips_(file, "SELECT b.west, b.south, b.id FROM ZipBoxes" + kInBox),
      notices_(file, "SELECT DISTINCT notice FROM Sources WHERE notice <> '' ORDER BY notice") {}

void DrawnFile::Lines(MapLine kind, const MapBox& box, double unitsPerPixel, const platform::MapGround::TakeLine& take) {
  const FileBox in(box);
  if (kind == MapLine::State || kind == MapLine::County) {
    if (!hasBorders_ || (kind == MapLine::County && unitsPerPixel > kCountiesUpTo)) return;
    borders_.With(in.east, in.west, in.north, in.south, BorderLayer(kind == MapLine::State, BorderLevel(unitsPerPixel)));
    Draw(borders_, kind, unitsPerPixel, take);
    return;
  }
  const EdgeLayer* layer = LayerOf(kind);
  if (!hasEdges_ || !layer || unitsPerPixel > layer->coarsest) return;
  Statement& rows = edges_[static_cast<std::size_t>(layer - kEdgeLayers.data())];
  rows.With(in.east, in.west, in.north, in.south);
  Draw(rows, kind, unitsPerPixel, take);
}

void DrawnFile::Draw(Statement& rows, MapLine kind, double unitsPerPixel, const platform::MapGround::TakeLine& take) {
  const Resetting leaving(rows);
  const double tolerance = unitsPerPixel * kFiner / 2;
  while (rows.Step()) {
    UnpackShape(rows.Bytes(0), line_);
    points_.clear();
    for (const Position& at : Simplified(line_, tolerance)) points_.push_back(PointOf(at.longitude, at.latitude));
    if (points_.size() > 1) take(kind, points_, std::string(rows.Text(1)));
  }
}

void DrawnFile::Texts(const MapBox& box, double unitsPerPixel, std::vector<Text>& texts) {
  if (!hasZips_) return;
  const FileBox in(box);
  const Resetting leaving(places_);
  places_.With(in.east, in.west, in.north, in.south, static_cast<std::int64_t>(std::max(1.0, unitsPerPixel / kUnitsPerWeight)));
  while (places_.Step()) {
    texts.push_back({MapText::Place, places_.Int(3), PointOf(places_.Int32(0), places_.Int32(1)), std::string(places_.Text(2))});
  }
  if (unitsPerPixel > kZipsUpTo) return;
  const Resetting leavingZips(zips_);
  zips_.With(in.east, in.west, in.north, in.south);
  while (zips_.Step()) texts.push_back({MapText::Zip, 0, PointOf(zips_.Int32(0), zips_.Int32(1)), ZipText(zips_.Int(2))});
}

void DrawnFile::Notices(std::vector<std::string>& notices) {
  const Resetting leaving(notices_);
  while (notices_.Step()) {
    std::string notice(notices_.Text(0));
    if (std::ranges::find(notices, notice) == notices.end()) notices.push_back(std::move(notice));
  }
}

}  // namespace streets
