#include "streets/import/census/county_import.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <unordered_set>

#include "streets/address/street_name.h"
#include "streets/file/file_error.h"
#include "streets/file/zip_code.h"
#include "streets/import/census/house_numbers.h"
#include "streets/import/census/shape_file.h"
#include "streets/import/source_writer.h"

namespace streets {
namespace {

using platform::MapLine;

constexpr std::int64_t kNumbersEnd = std::int64_t{1} << 40;  // numbers of edges; beyond are those of other makers
constexpr int kProgressStep = 1'000;

struct SideColumns {
  bool right = false;
  int from = 0;
  int to = 0;
  int zip = 0;
  int parity = 0;
};

struct Columns {
  int edge = 0;
  int name = 0;
  int kind = 0;
  SideColumns left;
  SideColumns right;
};

Columns FindColumns(const ShapeFile& file) {
  const auto find = [&](const char* name) {
    const auto column = file.Column(name);
    if (!column) throw FileError(file.Shown() + " holds no address ranges: its table has no column " + name + ".");
    return *column;
  };
  return {find("TLID"), find("FULLNAME"), file.Column("EDGE_MTFCC") ? find("EDGE_MTFCC") : find("ROAD_MTFCC"),
          {false, find("LFROMHN"), find("LTOHN"), find("ZIPL"), find("PARITYL")},
          {true, find("RFROMHN"), find("RTOHN"), find("ZIPR"), find("PARITYR")}};
}

// The Census's classes of roads.
MapLine KindOf(const std::string& feature) {
  if (feature == "S1100") return MapLine::Highway;
  if (feature == "S1200") return MapLine::MainRoad;
  if (feature == "S1630") return MapLine::Road;
  for (const char* path : {"S1500", "S1710", "S1720", "S1820", "S1830"})
    if (feature == path) return MapLine::Path;
  return MapLine::Street;
}

std::optional<std::int64_t> EdgeNumber(const std::string& text) {
  constexpr std::size_t kMostDigits = 15;
  if (text.empty() || text.size() > kMostDigits || !std::ranges::all_of(text, [](char each) { return each >= '0' && each <= '9'; })) return {};
  const std::int64_t number = std::stoll(text);
  if (number <= 0 || number >= kNumbersEnd) return {};
  return number;
}

// "tl_2021_30059_addrfeat": the county is what counts, so that a later year's file replaces an earlier one.
SourceName NameOf(const std::string& shown) {
  const std::string stem = std::filesystem::path(shown).stem().string();
  for (std::size_t at = 0; at + 5 <= stem.size(); ++at) {
    const auto digit = [&](std::size_t i) { return i < stem.size() && stem[i] >= '0' && stem[i] <= '9'; };
    if (at == 0 || stem[at - 1] != '_' || ZipNumber(stem.substr(at, 5)) == 0 || digit(at + 5)) continue;
    return {"census:" + stem.substr(at, 5), stem, ""};
  }
  return {"census:" + stem, stem, ""};
}

class County {
 public:
  County(const std::string& path, const std::string& shown, Database* into, const ImportListener& listener)
      : file_(path, shown), columns_(FindColumns(file_)), listener_(listener) {
    if (into) writer_.emplace(*into, NameOf(file_.Shown()));
  }

  CountyCounts Import() {
    for (int record = 0; record < file_.Records(); ++record) {
      if (record % kProgressStep == 0 && listener_.onProgress) listener_.onProgress(file_.Shown(), record, file_.Records());
      if (file_.IsDeleted(record)) continue;
      ++counts_.records;
      Take(record);
    }
    if (writer_) writer_->Commit(counts_.records, counts_.refused);
    return counts_;
  }

 private:
  void Take(int record) {
    const auto edge = EdgeNumber(file_.Field(record, columns_.edge));
    if (!edge) return Refuse(record, "it has no number of its piece of street (TLID)");
    const std::string written = file_.Field(record, columns_.name);
    if (written.empty()) return Refuse(record, "it has no street name");
    switch (file_.ReadLine(record, line_)) {
      case ShapeFile::LineState::Null:
        return Refuse(record, "it has no line");
      case ShapeFile::LineState::SeveralParts:
        return Refuse(record, "its line has several parts");
      case ShapeFile::LineState::OffTheEarth:
        return Refuse(record, "its line leaves the earth");
      case ShapeFile::LineState::Good:
        break;
    }
    std::int64_t street = 0;
    bool isNew = false;
    if (writer_) {
      isNew = writer_->Edge(*edge, KindOf(file_.Field(record, columns_.kind)), written, line_);
      street = writer_->Street(NormalStreet(written));
    } else {
      isNew = seen_.insert(*edge).second;
    }
    if (isNew) ++counts_.edges;
    const std::string left = ZipOf(record, columns_.left);
    const std::string right = ZipOf(record, columns_.right);
    if (writer_) {
      if (!left.empty() || right.empty()) writer_->Name(*edge, street, left);
      if (!right.empty()) writer_->Name(*edge, street, right);
    }
    TakeSide(record, columns_.left, left, *edge, street);
    TakeSide(record, columns_.right, right, *edge, street);
  }

  std::string ZipOf(int record, const SideColumns& side) const { return ZipText(ZipNumber(file_.Field(record, side.zip))); }

  void TakeSide(int record, const SideColumns& side, const std::string& zip, std::int64_t edge, std::int64_t street) {
    std::string problem;
    const auto numbers = ReadSide(file_.Field(record, side.from), file_.Field(record, side.to), file_.Field(record, side.parity), problem);
    if (!problem.empty()) Tell(record, std::string(side.right ? "its right side: " : "its left side: ") + problem);
    if (!numbers) return;
    ++counts_.ranges;
    if (writer_) writer_->Range({edge, street, side.right, numbers->prefix, numbers->from, numbers->to, numbers->parity, zip});
  }

  void Refuse(int record, const std::string& why) {
    ++counts_.refused;
    Tell(record, why);
  }

  void Tell(int record, const std::string& why) {
    if (listener_.onRefused) listener_.onRefused(file_.Shown(), record + 1, why);
  }

  ShapeFile file_;
  Columns columns_;
  const ImportListener& listener_;
  std::optional<SourceWriter> writer_;
  std::unordered_set<std::int64_t> seen_;  ///< edges, where no file tells which were there
  CountyCounts counts_;
  Line line_;
};

}  // namespace

CountyCounts ImportCounty(const std::string& path, const std::string& shown, Database* into, const ImportListener& listener) {
  return County(path, shown, into, listener).Import();
}

}  // namespace streets
