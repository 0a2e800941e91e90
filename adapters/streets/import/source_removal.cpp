#include "streets/import/source_removal.h"

#include <string>

#include "streets/file/layers.h"

namespace streets {
namespace {

// Edges that no other source has, and the names and ZIPs that they leave.
constexpr const char* kCollect = R"(
DELETE FROM temp.Gone; DELETE FROM temp.Touched; DELETE FROM temp.TouchedZips;
INSERT INTO temp.Gone SELECT s.edge FROM SourceEdges s WHERE s.source = $source
  AND NOT EXISTS(SELECT 1 FROM SourceEdges o WHERE o.edge = s.edge AND o.source <> $source);
INSERT OR IGNORE INTO temp.Touched SELECT n.street FROM temp.Gone g CROSS JOIN EdgeNames n ON n.edge = g.edge;
INSERT OR IGNORE INTO temp.Touched SELECT street FROM Points WHERE source = $source;
INSERT OR IGNORE INTO temp.TouchedZips SELECT r.zip, t.street FROM temp.Touched t CROSS JOIN Ranges r ON r.street = t.street;
INSERT OR IGNORE INTO temp.TouchedZips SELECT e.zip, t.street FROM temp.Touched t CROSS JOIN StreetEdges e ON e.street = t.street;
INSERT OR IGNORE INTO temp.TouchedZips SELECT p.zip, t.street FROM temp.Touched t CROSS JOIN Points p ON p.street = t.street;
)";

constexpr const char* kTakeOut = R"(
DELETE FROM Ranges WHERE street IN (SELECT street FROM temp.Touched) AND edge IN (SELECT edge FROM temp.Gone);
DELETE FROM StreetEdges WHERE street IN (SELECT street FROM temp.Touched) AND edge IN (SELECT edge FROM temp.Gone);
DELETE FROM EdgeNames WHERE edge IN (SELECT edge FROM temp.Gone);
DELETE FROM Edges WHERE id IN (SELECT edge FROM temp.Gone);
DELETE FROM SourceEdges WHERE source = $source;
DELETE FROM Points WHERE source = $source;
DELETE FROM Sources WHERE id = $source;
)";

constexpr const char* kForget = R"(
DELETE FROM ZipNames WHERE (zip, key, street) IN
  (SELECT z.zip, s.key, z.street FROM temp.TouchedZips z CROSS JOIN Streets s ON s.id = z.street
   WHERE NOT EXISTS(SELECT 1 FROM Ranges r WHERE r.street = z.street AND r.zip = z.zip)
     AND NOT EXISTS(SELECT 1 FROM StreetEdges e WHERE e.street = z.street AND e.zip = z.zip)
     AND NOT EXISTS(SELECT 1 FROM Points p WHERE p.street = z.street AND p.zip = z.zip));
DELETE FROM Streets WHERE id IN
  (SELECT t.street FROM temp.Touched t WHERE NOT EXISTS(SELECT 1 FROM StreetEdges e WHERE e.street = t.street)
     AND NOT EXISTS(SELECT 1 FROM Points p WHERE p.street = t.street));
)";

std::string With(std::string sql, std::int64_t source) {
  constexpr std::string_view kPlace = "$source";
  const std::string number = std::to_string(source);
  for (std::size_t at = 0; (at = sql.find(kPlace, at)) != std::string::npos;) sql.replace(at, kPlace.size(), number);
  return sql;
}

}  // namespace

SourceRemoval::SourceRemoval(Database& file) : file_(file) {
  file.Execute(
      "CREATE TEMP TABLE IF NOT EXISTS Gone(edge INTEGER PRIMARY KEY);"
      "CREATE TEMP TABLE IF NOT EXISTS Touched(street INTEGER PRIMARY KEY);"
      "CREATE TEMP TABLE IF NOT EXISTS TouchedZips(zip INTEGER, street INTEGER, PRIMARY KEY(zip, street)) WITHOUT ROWID");
}

void SourceRemoval::TakeOut(std::int64_t source) {
  file_.Execute(With(kCollect, source));
  for (const EdgeLayer& layer : kEdgeLayers) {
    file_.Execute("DELETE FROM " + std::string(layer.boxes) + " WHERE id IN (SELECT g.edge FROM temp.Gone g CROSS JOIN Edges e ON e.id = g.edge" +
                  " WHERE e.kind = " + std::to_string(layer.number) + ")");
  }
  file_.Execute(With(kTakeOut, source));
}

void SourceRemoval::ForgetUnusedNames() { file_.Execute(kForget); }

}  // namespace streets
