#include "streets/import/source_writer.h"

#include <algorithm>
#include <unordered_map>

#include "streets/address/sound.h"
#include "streets/file/layers.h"
#include "streets/file/zip_code.h"
#include "streets/import/source_removal.h"
#include "streets/index/shape.h"

namespace streets {
namespace {

std::int64_t SourceOf(Database& file, const std::string& code) {
  Statement find(file, "SELECT id FROM Sources WHERE code = ?1");
  const Resetting leaving(find);
  return find.With(std::string_view(code)).Step() ? find.Int(0) : 0;
}

std::vector<Statement> BoxStatements(Database& file) {
  std::vector<Statement> statements;
  for (const EdgeLayer& layer : kEdgeLayers)
    statements.emplace_back(file, "INSERT INTO " + std::string(layer.boxes) + "(id, west, east, south, north) VALUES(?1, ?2, ?3, ?4, ?5)");
  return statements;
}

// A name as one text, for the table of those that were met already.
std::string Joined(const StreetName& name) {
  return name.key + '\n' + name.before + '\n' + name.type + '\n' + name.behind + '\n' + name.shown;
}

}  // namespace

struct SourceWriter::Statements {
  Statements(Database& opened, const SourceName& name)
      : file(opened),
        transaction(opened),
        removal(opened),
        addEdge(opened, "INSERT OR IGNORE INTO Edges(id, kind, name, shape) VALUES(?1, ?2, ?3, ?4)"),
        ownEdge(opened, "INSERT OR IGNORE INTO SourceEdges(source, edge) VALUES(?1, ?2)"),
        boxes(BoxStatements(opened)),
        addStreet(opened, "INSERT OR IGNORE INTO Streets(key, before, type, behind, shown, sound) VALUES(?1, ?2, ?3, ?4, ?5, ?6)"),
        findStreet(opened, "SELECT id FROM Streets WHERE key = ?1 AND before = ?2 AND type = ?3 AND behind = ?4 AND shown = ?5"),
        keyOfStreet(opened, "INSERT OR IGNORE INTO ZipNames(zip, key, street) SELECT ?1, key, id FROM Streets WHERE id = ?2"),
        nameEdge(opened, "INSERT OR IGNORE INTO EdgeNames(edge, street) VALUES(?1, ?2)"),
        nameInZip(opened, "INSERT OR IGNORE INTO StreetEdges(street, zip, edge) VALUES(?1, ?2, ?3)"),
        addRange(opened,
                 "INSERT OR IGNORE INTO Ranges(street, zip, edge, right, first, last, prefix, parity) VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"),
        addPoint(opened,
                 "INSERT OR IGNORE INTO Points(street, zip, number, prefix, suffix, longitude, latitude, source) "
                 "VALUES(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"),
        finish(opened, "UPDATE Sources SET records = ?2, refused = ?3 WHERE id = ?1") {
    if (const std::int64_t old = SourceOf(file, name.code); old != 0) removal.TakeOut(old);
    Statement(file, "INSERT INTO Sources(code, name, notice, records, refused) VALUES(?1, ?2, ?3, 0, 0)")
        .With(std::string_view(name.code), std::string_view(name.name), std::string_view(name.notice))
        .Run();
    source = SourceOf(file, name.code);
  }

  Database& file;
  Transaction transaction;
  SourceRemoval removal;
  Statement addEdge;
  Statement ownEdge;
  std::vector<Statement> boxes;
  Statement addStreet;
  Statement findStreet;
  Statement keyOfStreet;
  Statement nameEdge;
  Statement nameInZip;
  Statement addRange;
  Statement addPoint;
  Statement finish;
  std::int64_t source = 0;
  std::unordered_map<std::string, std::int64_t> streets;  ///< by their joined parts
  std::int64_t lastStreet = 0;                            ///< the last that was put into a ZIP's names,
  std::int32_t lastZip = 0;                               ///< and that ZIP
};

SourceWriter::SourceWriter(Database& file, const SourceName& source) : statements_(std::make_unique<Statements>(file, source)) {}
SourceWriter::~SourceWriter() = default;

bool SourceWriter::Edge(std::int64_t edge, platform::MapLine kind, const std::string& name, const Line& shape) {
  Statements& to = *statements_;
  const EdgeLayer* layer = LayerOf(kind);
  if (!layer) layer = LayerOf(platform::MapLine::Street);
  const std::vector<std::byte> packed = PackShape(shape);
  to.ownEdge.With(to.source, edge).Run();
  const bool isNew = to.file.Changes() > 0;
  to.addEdge.With(edge, layer->number, std::string_view(name), std::span<const std::byte>(packed)).Run();
  if (to.file.Changes() > 0) WriteBox(to.boxes[static_cast<std::size_t>(layer - kEdgeLayers.data())], edge, shape);
  return isNew;
}

std::int64_t SourceWriter::Street(const StreetName& name) {
  Statements& to = *statements_;
  constexpr std::size_t kMostKept = 100'000;  // a bound on memory; what is met again later is found in the file
  if (to.streets.size() >= kMostKept) to.streets.clear();
  const auto kept = to.streets.try_emplace(Joined(name), 0);
  if (!kept.second) return kept.first->second;
  const std::string sound = Soundex(name.key);
  const std::string_view key = name.key;
  const std::string_view before = name.before;
  const std::string_view type = name.type;
  const std::string_view behind = name.behind;
  const std::string_view shown = name.shown;
  to.addStreet.With(key, before, type, behind, shown, std::string_view(sound)).Run();
  const Resetting leaving(to.findStreet);
  to.findStreet.With(key, before, type, behind, shown).Step();
  return kept.first->second = to.findStreet.Int(0);
}

void SourceWriter::Name(std::int64_t edge, std::int64_t street, std::string_view zip) {
  const std::int32_t number = ZipNumber(zip);
  statements_->nameEdge.With(edge, street).Run();
  statements_->nameInZip.With(street, number, edge).Run();
  LiesIn(street, number);
}

void SourceWriter::LiesIn(std::int64_t street, std::int32_t zip) {
  Statements& to = *statements_;
  if (zip == 0 || (street == to.lastStreet && zip == to.lastZip)) return;
  to.keyOfStreet.With(zip, street).Run();
  to.lastStreet = street;
  to.lastZip = zip;
}

void SourceWriter::Range(const HouseRange& range) {
  const std::int32_t zip = ZipNumber(range.zip);
  statements_->addRange
      .With(range.street, zip, range.edge, std::int32_t{range.right}, range.from, range.to, std::string_view(range.prefix),
            static_cast<std::int32_t>(range.parity))
      .Run();
  LiesIn(range.street, zip);
}

void SourceWriter::Point(const AddressPoint& point) {
  const std::int32_t zip = ZipNumber(point.zip);
  statements_->addPoint
      .With(point.street, zip, point.number.number, std::string_view(point.number.prefix), std::string_view(point.number.suffix),
            point.at.longitude, point.at.latitude, statements_->source)
      .Run();
  LiesIn(point.street, zip);
}

void SourceWriter::Commit(std::int64_t records, std::int64_t refused) {
  Statements& to = *statements_;
  to.removal.ForgetUnusedNames();
  to.finish.With(to.source, records, refused).Run();
  to.transaction.Commit();
}

void WriteBox(Statement& insert, std::int64_t id, const Line& line) {
  const auto lies = std::ranges::minmax(line, {}, &Position::longitude);
  const auto stands = std::ranges::minmax(line, {}, &Position::latitude);
  insert.With(id, lies.min.longitude, lies.max.longitude, stands.min.latitude, stands.max.latitude).Run();
}

}  // namespace streets
