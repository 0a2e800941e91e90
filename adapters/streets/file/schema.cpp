#include "streets/file/schema.h"

#include <string>

#include "streets/file/layers.h"

namespace streets {
namespace {

constexpr const char* kTables = R"(
-- What was imported, a county or an extract each, and whose data it is.
CREATE TABLE Sources(id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL, notice TEXT NOT NULL,
  records INTEGER NOT NULL, refused INTEGER NOT NULL);

-- Names in their normal form. Two ways of writing one name are two rows.
CREATE TABLE Streets(id INTEGER PRIMARY KEY, key TEXT NOT NULL, before TEXT NOT NULL, type TEXT NOT NULL, behind TEXT NOT NULL,
  shown TEXT NOT NULL, sound TEXT NOT NULL, UNIQUE(key, before, type, behind, shown));
CREATE INDEX StreetsBySound ON Streets(sound);

-- Pieces of street by the number that their maker gave them, so that equal data have equal numbers. A piece on a border
-- belongs to both counties.
CREATE TABLE Edges(id INTEGER PRIMARY KEY, kind INTEGER NOT NULL, name TEXT NOT NULL, shape BLOB NOT NULL);
CREATE TABLE SourceEdges(source INTEGER NOT NULL, edge INTEGER NOT NULL, PRIMARY KEY(source, edge)) WITHOUT ROWID;
CREATE INDEX SourcesOfEdge ON SourceEdges(edge, source);
CREATE TABLE EdgeNames(edge INTEGER NOT NULL, street INTEGER NOT NULL, PRIMARY KEY(edge, street)) WITHOUT ROWID;
CREATE TABLE StreetEdges(street INTEGER NOT NULL, zip INTEGER NOT NULL, edge INTEGER NOT NULL, PRIMARY KEY(street, zip, edge)) WITHOUT ROWID;

-- House numbers. ZIPs are numbers, 0 where none is known; parity is 0 odd, 1 even, 2 both.
CREATE TABLE Ranges(street INTEGER NOT NULL, zip INTEGER NOT NULL, edge INTEGER NOT NULL, right INTEGER NOT NULL,
  first INTEGER NOT NULL, last INTEGER NOT NULL, prefix TEXT NOT NULL, parity INTEGER NOT NULL,
  PRIMARY KEY(street, zip, edge, right, first, last, prefix)) WITHOUT ROWID;
CREATE TABLE Points(street INTEGER NOT NULL, zip INTEGER NOT NULL, number INTEGER NOT NULL, prefix TEXT NOT NULL, suffix TEXT NOT NULL,
  longitude INTEGER NOT NULL, latitude INTEGER NOT NULL, source INTEGER NOT NULL,
  PRIMARY KEY(street, zip, number, prefix, suffix, longitude, latitude, source)) WITHOUT ROWID;
CREATE INDEX PointsOfSource ON Points(source);
-- Which streets have pieces or numbers in a ZIP.
CREATE TABLE ZipNames(zip INTEGER NOT NULL, key TEXT NOT NULL, street INTEGER NOT NULL, PRIMARY KEY(zip, key, street)) WITHOUT ROWID;

CREATE TABLE Zips(zip INTEGER PRIMARY KEY, longitude INTEGER NOT NULL, latitude INTEGER NOT NULL, city TEXT NOT NULL,
  state TEXT NOT NULL, county TEXT NOT NULL);
CREATE INDEX ZipsByCounty ON Zips(state, county COLLATE NOCASE);
CREATE VIRTUAL TABLE ZipBoxes USING rtree_i32(id, west, east, south, north);
CREATE TABLE Places(id INTEGER PRIMARY KEY, key TEXT NOT NULL, state TEXT NOT NULL, name TEXT NOT NULL,
  longitude INTEGER NOT NULL, latitude INTEGER NOT NULL, weight INTEGER NOT NULL);
CREATE INDEX PlacesByKey ON Places(key, state);
CREATE TABLE PlaceZips(place INTEGER NOT NULL, zip INTEGER NOT NULL, PRIMARY KEY(place, zip)) WITHOUT ROWID;
CREATE VIRTUAL TABLE PlaceBoxes USING rtree_i32(id, west, east, south, north, weight, weight2);

CREATE TABLE Borders(id INTEGER PRIMARY KEY, shape BLOB NOT NULL);
CREATE VIRTUAL TABLE BorderBoxes USING rtree_i32(id, west, east, south, north, layer, layer2);
)";

}  // namespace

void CreateSchema(Database& database) {
  database.Execute(kTables);
  for (const EdgeLayer& layer : kEdgeLayers)
    database.Execute("CREATE VIRTUAL TABLE " + std::string(layer.boxes) + " USING rtree_i32(id, west, east, south, north)");
  database.Execute("PRAGMA application_id=" + std::to_string(kApplicationId));
  database.Execute("PRAGMA user_version=" + std::to_string(kFormat));
}

}  // namespace streets
