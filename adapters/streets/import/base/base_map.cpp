#include "streets/import/base/base_map.h"

#include <algorithm>
#include <filesystem>

#include "streets/address/place_key.h"
#include "streets/file/layers.h"
#include "streets/file/zip_code.h"
#include "streets/ground/simplify.h"
#include "streets/import/base/outlines.h"
#include "streets/import/base/zip_areas.h"
#include "streets/import/base/zip_sources.h"
#include "streets/import/source_writer.h"
#include "streets/index/shape.h"

namespace streets {
namespace {

// The licence of the list of post offices asks for its name where the map's sources are shown.
constexpr const char* kNotice = "Places and ZIP codes: GeoNames (www.geonames.org), CC BY 4.0";

constexpr double kFiner = 10;  // the file's units in one of the map's

void WriteSource(Database& file, const SourceName& source, std::size_t records) {
  Statement(file, "INSERT INTO Sources(code, name, notice, records, refused) VALUES(?1, ?2, ?3, ?4, 0)")
      .With(std::string_view(source.code), std::string_view(source.name), std::string_view(source.notice), static_cast<std::int64_t>(records))
      .Run();
}

// Each level leaves out what can't be seen where it is used.
void WriteBorders(Database& file, const std::vector<Border>& borders) {
  Statement shape(file, "INSERT INTO Borders(id, shape) VALUES(?1, ?2)");
  Statement box(file, "INSERT INTO BorderBoxes(id, west, east, south, north, layer, layer2) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?6)");
  std::int64_t id = 0;
  for (const Border& border : borders) {
    const auto lies = std::ranges::minmax(border.line, {}, &Position::longitude);
    const auto stands = std::ranges::minmax(border.line, {}, &Position::latitude);
    for (std::size_t level = 0; level < kBorderLevels.size(); ++level) {
      const auto packed = PackShape(Simplified(border.line, kBorderLevels[level] * kFiner / 2));
      shape.With(++id, std::span<const std::byte>(packed)).Run();
      box.With(id, lies.min.longitude, lies.max.longitude, stands.min.latitude, stands.max.latitude,
               BorderLayer(border.state, static_cast<int>(level)))
          .Run();
    }
  }
}

// Those with an area have a box: boxes of post offices alone would be drawn one upon the other.
void WriteZips(Database& file, const std::vector<ZipArea>& zips, const ZipPoints& areas) {
  Statement row(file, "INSERT INTO Zips(zip, longitude, latitude, city, state, county) VALUES(?1, ?2, ?3, ?4, ?5, ?6)");
  Statement box(file, "INSERT INTO ZipBoxes(id, west, east, south, north) VALUES(?1, ?2, ?2, ?3, ?3)");
  for (const ZipArea& zip : zips) {
    const std::int32_t number = ZipNumber(zip.zip);
    row.With(number, zip.at.longitude, zip.at.latitude, std::string_view(zip.city), std::string_view(zip.state), std::string_view(zip.county)).Run();
    if (areas.contains(zip.zip)) box.With(number, zip.at.longitude, zip.at.latitude).Run();
  }
}

void WritePlaces(Database& file, const std::vector<Place>& places) {
  Statement row(file, "INSERT INTO Places(id, key, state, name, longitude, latitude, weight) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7)");
  Statement box(file, "INSERT INTO PlaceBoxes(id, west, east, south, north, weight, weight2) VALUES(?1, ?2, ?2, ?3, ?3, ?4, ?4)");
  Statement zip(file, "INSERT INTO PlaceZips(place, zip) VALUES(?1, ?2)");
  std::int64_t id = 0;
  for (const Place& place : places) {
    ++id;
    const std::string key = PlaceKey(place.name);
    const auto weight = static_cast<std::int64_t>(place.zips.size());
    row.With(id, std::string_view(key), std::string_view(place.state), std::string_view(place.name), place.at.longitude, place.at.latitude, weight).Run();
    box.With(id, place.at.longitude, place.at.latitude, weight).Run();
    for (const std::string& each : place.zips) zip.With(id, ZipNumber(each)).Run();
  }
}

}  // namespace

BaseMapCounts WriteBaseMap(const std::string& folder, Database& file) {
  const auto in = [&](const char* name) { return (std::filesystem::path(folder) / name).string(); };
  const Outlines outlines = ReadOutlines(in("counties-10m.json"));
  const ZipPoints areas = ReadZipPoints(in("zip-points.csv"));
  const std::vector<ZipArea> zips = BelievedZips(areas, ReadPostOffices(in("zip-places.tsv")), outlines);
  const std::vector<Place> places = PlacesOf(zips);
  Transaction all(file);
  WriteSource(file, {"base:borders", "Borders of states and counties, points of ZIP areas (Census)", ""}, outlines.borders.size());
  WriteSource(file, {"base:places", "Places and names of ZIP codes (GeoNames)", kNotice}, places.size());
  WriteBorders(file, outlines.borders);
  WriteZips(file, zips, areas);
  WritePlaces(file, places);
  all.Commit();
  return {outlines.borders.size(), zips.size(), places.size()};
}

}  // namespace streets
