#include "streets/check/check_file.h"

#include <algorithm>

#include "streets/file/file_error.h"
#include "streets/file/layers.h"
#include "streets/file/street_file.h"
#include "streets/index/shape.h"

namespace streets {
namespace {

// A question for the number of rows that should not be there.
struct Rule {
  const char* question;
  const char* finding;
};

constexpr Rule kRules[] = {
    {"SELECT count(*) FROM Ranges r WHERE NOT EXISTS(SELECT 1 FROM Edges e WHERE e.id = r.edge)", "ranges lie along no piece of street"},
    {"SELECT count(*) FROM Ranges r WHERE NOT EXISTS(SELECT 1 FROM Streets s WHERE s.id = r.street)", "ranges belong to no street"},
    {"SELECT count(*) FROM Points p WHERE NOT EXISTS(SELECT 1 FROM Streets s WHERE s.id = p.street)", "address points belong to no street"},
    {"SELECT count(*) FROM EdgeNames n WHERE NOT EXISTS(SELECT 1 FROM Edges e WHERE e.id = n.edge)", "names belong to no piece of street"},
    {"SELECT count(*) FROM StreetEdges n WHERE NOT EXISTS(SELECT 1 FROM Streets s WHERE s.id = n.street)", "pieces of street have a name that is not there"},
    {"SELECT count(*) FROM Edges e WHERE NOT EXISTS(SELECT 1 FROM SourceEdges s WHERE s.edge = e.id)", "pieces of street come from nowhere"},
    {"SELECT count(*) FROM Ranges r WHERE r.zip <> 0 AND NOT EXISTS(SELECT 1 FROM Streets s, ZipNames z WHERE s.id = r.street AND z.zip = r.zip "
     "AND z.key = s.key AND z.street = r.street)",
     "ranges can't be found by their ZIP"},
    {"SELECT count(*) FROM ZipNames z WHERE NOT EXISTS(SELECT 1 FROM Ranges r WHERE r.street = z.street AND r.zip = z.zip) "
     "AND NOT EXISTS(SELECT 1 FROM StreetEdges e WHERE e.street = z.street AND e.zip = z.zip) "
     "AND NOT EXISTS(SELECT 1 FROM Points p WHERE p.street = z.street AND p.zip = z.zip)",
     "names have neither a piece nor numbers in a ZIP that says so"},
    {"SELECT count(*) FROM PlaceZips p WHERE NOT EXISTS(SELECT 1 FROM Zips z WHERE z.zip = p.zip)", "ZIPs of places are not there"}};

class Check {
 public:
  explicit Check(const std::string& path) : file_(OpenStreetFile(path)) {}

  std::vector<std::string> All() {
    Pages();
    if (!found_.empty()) return found_;
    for (const Rule& rule : kRules) Add(file_->Ask(rule.question), rule.finding);
    for (const EdgeLayer& layer : kEdgeLayers) Boxes(layer);
    Shapes("Edges");
    Shapes("Borders");
    return found_;
  }

 private:
  void Add(std::int64_t count, const std::string& finding) {
    if (count > 0) found_.push_back(file_->Path() + ": " + std::to_string(count) + " " + finding + ".");
  }

  void Pages() {
    Statement check(*file_, "PRAGMA integrity_check(10)");
    while (check.Step())
      if (check.Text(0) != "ok") found_.push_back(file_->Path() + ": " + std::string(check.Text(0)) + ".");
  }

  void Boxes(const EdgeLayer& layer) {
    const std::string boxes(layer.boxes);
    const std::string kind = std::to_string(layer.number);
    Add(file_->Ask("SELECT count(*) FROM Edges e WHERE e.kind = " + kind + " AND NOT EXISTS(SELECT 1 FROM " + boxes + " b WHERE b.id = e.id)"),
        "pieces of street are not drawn");
    Add(file_->Ask("SELECT count(*) FROM " + boxes + " b WHERE NOT EXISTS(SELECT 1 FROM Edges e WHERE e.id = b.id AND e.kind = " + kind + ")"),
        "boxes have no piece of street");
  }

  void Shapes(const std::string& table) {
    Statement shapes(*file_, "SELECT shape FROM " + table);
    Line line;
    std::int64_t damaged = 0;
    while (shapes.Step()) {
      UnpackShape(shapes.Bytes(0), line);
      if (line.size() < 2 || !std::ranges::equal(PackShape(line), shapes.Bytes(0))) ++damaged;
    }
    Add(damaged, "lines of " + table + " are damaged");
  }

  std::unique_ptr<Database> file_;
  std::vector<std::string> found_;
};

}  // namespace

std::vector<std::string> CheckStreetFile(const std::string& path) {
  try {
    return Check(path).All();
  } catch (const FileError& problem) {
    return {problem.what()};
  }
}

}  // namespace streets
