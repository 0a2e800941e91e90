#include "streets/index/indexed_file.h"

#include "streets/file/database.h"
#include "streets/file/file_error.h"
#include "streets/index/shape.h"
#include "streets/file/zip_code.h"

namespace streets {
namespace {

// The name's parts in the order in which NameOf takes them.
#define STREET_NAME "s.id, s.before, s.key, s.type, s.behind, s.shown"
constexpr const char* kNamedInZip =
    "SELECT " STREET_NAME " FROM ZipNames n CROSS JOIN Streets s ON s.id = n.street WHERE n.zip = ?1 AND n.key = ?2";
constexpr const char* kNamed = "SELECT " STREET_NAME " FROM Streets s WHERE s.key = ?1";
constexpr const char* kBetweenInZip =
    "SELECT " STREET_NAME " FROM ZipNames n CROSS JOIN Streets s ON s.id = n.street WHERE n.zip = ?1 AND n.key >= ?2 AND n.key < ?3";
constexpr const char* kBetween = "SELECT " STREET_NAME " FROM Streets s WHERE s.key >= ?1 AND s.key < ?2";
constexpr const char* kSounding = "SELECT " STREET_NAME " FROM Streets s WHERE s.sound = ?1";
#undef STREET_NAME
constexpr const char* kRangesInZip = "SELECT edge, right, first, last, prefix, parity, zip FROM Ranges WHERE street = ?1 AND zip = ?2";
constexpr const char* kRanges = "SELECT edge, right, first, last, prefix, parity, zip FROM Ranges WHERE street = ?1";
constexpr const char* kPointsInZip = "SELECT number, prefix, suffix, longitude, latitude, zip FROM Points WHERE street = ?1 AND zip = ?2";
constexpr const char* kPoints = "SELECT number, prefix, suffix, longitude, latitude, zip FROM Points WHERE street = ?1";
constexpr const char* kPlaces =
    "SELECT id, name, state, longitude, latitude FROM Places WHERE key = ?1 AND (?2 = '' OR state = ?2) "
    "ORDER BY weight DESC, state, longitude, latitude";

bool HasRows(Database& file, const std::string& table) { return file.Ask("SELECT EXISTS(SELECT 1 FROM " + table + ")") != 0; }

// Runs `all` without ZIPs, else `inZip` for each, and gives every row.
template <typename Key, typename Row>
void EachRow(Statement& all, Statement& inZip, const Key& key, IndexedFile::Zips zips, const Row& row) {
  if (zips.empty()) {
    const Resetting leaving(all);
    all.With(key);
    while (all.Step()) row(all);
  }
  const Resetting leaving(inZip);
  for (const std::int32_t zip : zips) {
    inZip.With(key, zip);
    while (inZip.Step()) row(inZip);
  }
}

}  // namespace

IndexedFile::IndexedFile(Database& file, std::int64_t tag)
    : tag_(tag),
      hasStreets_(HasRows(file, "Streets")),
      hasZips_(HasRows(file, "Zips")),
      hasPoints_(HasRows(file, "Points")),
      begin_(file, "BEGIN"),
      end_(file, "COMMIT"),
      namedInZip_(file, kNamedInZip),
      named_(file, kNamed),
      betweenInZip_(file, kBetweenInZip),
      between_(file, kBetween),
      sounding_(file, kSounding),
      rangesInZip_(file, kRangesInZip),
      ranges_(file, kRanges),
      pointsInZip_(file, kPointsInZip),
      points_(file, kPoints),
      edgesInZip_(file, "SELECT edge FROM StreetEdges WHERE street = ?1 AND zip = ?2"),
      edges_(file, "SELECT edge FROM StreetEdges WHERE street = ?1"),
      shape_(file, "SELECT shape FROM Edges WHERE id = ?1"),
      zip_(file, "SELECT longitude, latitude, city, state, county FROM Zips WHERE zip = ?1"),
      places_(file, kPlaces),
      placeZips_(file, "SELECT zip FROM PlaceZips WHERE place = ?1"),
      county_(file, "SELECT zip FROM Zips WHERE state = ?1 AND county = ?2 COLLATE NOCASE ORDER BY zip") {}

IndexedFile::~IndexedFile() {
  try {
    End();
  } catch (const FileError&) {
    // A failure has ended it.
  }
}

void IndexedFile::Begin() {
  begin_.Run();
  together_ = true;
}

void IndexedFile::End() {
  if (!together_) return;
  together_ = false;
  end_.Run();
}

StreetName IndexedFile::NameOf(const Statement& row) const {
  return {row.Int(0) | tag_,         std::string(row.Text(1)), std::string(row.Text(2)),
          std::string(row.Text(3)), std::string(row.Text(4)), std::string(row.Text(5))};
}

HouseRange IndexedFile::RangeOf(const Statement& row, std::int64_t street) const {
  return {row.Int(0) | tag_, street | tag_, row.Int(1) != 0, std::string(row.Text(4)), row.Int(2), row.Int(3), static_cast<Parity>(row.Int(5) & 3),
          ZipText(row.Int(6))};
}

AddressPoint IndexedFile::PointOf(const Statement& row, std::int64_t street) const {
  return {street | tag_,
          {std::string(row.Text(1)), row.Int(0), std::string(row.Text(2))},
          {row.Int32(3), row.Int32(4)},
          ZipText(row.Int(5))};
}

void IndexedFile::Named(const std::string& key, Zips zips, std::vector<StreetName>& answer) {
  if (!hasStreets_) return;
  const auto add = [&](const Statement& row) { answer.push_back(NameOf(row)); };
  if (zips.empty()) {
    const Resetting leaving(named_);
    named_.With(key);
    while (named_.Step()) add(named_);
  }
  const Resetting leaving(namedInZip_);
  for (const std::int32_t zip : zips) {
    namedInZip_.With(zip, key);
    while (namedInZip_.Step()) add(namedInZip_);
  }
}

void IndexedFile::Between(const std::string& first, const std::string& end, Zips zips, std::vector<StreetName>& answer) {
  if (!hasStreets_) return;
  if (zips.empty()) {
    const Resetting leaving(between_);
    between_.With(first, end);
    while (between_.Step()) answer.push_back(NameOf(between_));
  }
  const Resetting leaving(betweenInZip_);
  for (const std::int32_t zip : zips) {
    betweenInZip_.With(zip, first, end);
    while (betweenInZip_.Step()) answer.push_back(NameOf(betweenInZip_));
  }
}

void IndexedFile::Sounding(const std::string& code, std::vector<StreetName>& answer) {
  if (!hasStreets_) return;
  const Resetting leaving(sounding_);
  sounding_.With(code);
  while (sounding_.Step()) answer.push_back(NameOf(sounding_));
}

void IndexedFile::Ranges(std::int64_t street, Zips zips, std::vector<HouseRange>& answer) {
  EachRow(ranges_, rangesInZip_, street, zips, [&](const Statement& row) { answer.push_back(RangeOf(row, street)); });
}

void IndexedFile::Points(std::int64_t street, Zips zips, std::vector<AddressPoint>& answer) {
  if (!hasPoints_) return;
  EachRow(points_, pointsInZip_, street, zips, [&](const Statement& row) { answer.push_back(PointOf(row, street)); });
}

void IndexedFile::Edges(std::int64_t street, Zips zips, std::vector<std::int64_t>& answer) {
  EachRow(edges_, edgesInZip_, street, zips, [&](const Statement& row) { answer.push_back(row.Int(0) | tag_); });
}

void IndexedFile::Shape(std::int64_t edge, Line& answer) {
  const Resetting leaving(shape_);
  if (shape_.With(edge).Step()) UnpackShape(shape_.Bytes(0), answer);
}

void IndexedFile::Zip(std::int32_t zip, std::optional<ZipArea>& answer) {
  if (!hasZips_ || answer) return;
  const Resetting leaving(zip_);
  if (!zip_.With(zip).Step()) return;
  answer = ZipArea{ZipText(zip), {zip_.Int32(0), zip_.Int32(1)}, std::string(zip_.Text(2)), std::string(zip_.Text(3)), std::string(zip_.Text(4))};
}

void IndexedFile::Places(const std::string& name, const std::string& state, std::vector<Place>& answer) {
  if (!hasZips_) return;
  const Resetting leaving(places_);
  const Resetting leavingZips(placeZips_);
  places_.With(name, state);
  while (places_.Step()) {
    Place place{std::string(places_.Text(1)), std::string(places_.Text(2)), {places_.Int32(3), places_.Int32(4)}, {}};
    placeZips_.With(places_.Int(0));
    while (placeZips_.Step()) place.zips.push_back(ZipText(placeZips_.Int(0)));
    answer.push_back(std::move(place));
  }
}

void IndexedFile::ZipsOfCounty(const std::string& state, const std::string& county, std::vector<std::string>& answer) {
  if (!hasZips_) return;
  const Resetting leaving(county_);
  county_.With(state, county);
  while (county_.Step()) answer.push_back(ZipText(county_.Int(0)));
}

}  // namespace streets
