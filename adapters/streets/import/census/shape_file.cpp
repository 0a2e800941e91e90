#include "streets/import/census/shape_file.h"

#include <shapefil.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <utility>

#include "streets/file/file_error.h"
#include "streets/import/census/source_text.h"

namespace streets {
namespace {

namespace fs = std::filesystem;

// The reader tells its troubles by a function without an owner.
thread_local std::string complaint;

void Complain(const char* message) { complaint = message; }

SAHooks Hooks() {
  SAHooks hooks;
  SASetupDefaultHooks(&hooks);
  hooks.Error = Complain;
  return hooks;
}

std::uint32_t Little(const unsigned char* bytes, int count) {
  std::uint32_t number = 0;
  for (int i = count - 1; i >= 0; --i) number = number << 8 | bytes[i];
  return number;
}

std::uint32_t Big(const unsigned char* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 | bytes[3];
}

// The file beside NAME.shp, with small or capital letters behind the point.
std::string Beside(const std::string& path, const char* ending, const char* capitals) {
  for (const char* each : {ending, capitals}) {
    const std::string other = fs::path(path).replace_extension(each).string();
    std::error_code ignored;
    if (fs::is_regular_file(other, ignored)) return other;
  }
  return "";
}

template <std::size_t kSize>
std::uint64_t ReadHeader(const std::string& path, const std::string& shown, std::array<unsigned char, kSize>& header) {
  std::error_code problem;
  const std::uint64_t size = fs::file_size(path, problem);
  std::ifstream file(path, std::ios::binary);
  if (problem || !file) throw FileError(shown + " can't be opened.");
  if (size == 0) throw FileError(shown + " is empty.");
  file.read(reinterpret_cast<char*>(header.data()), kSize);
  if (file.gcount() != static_cast<std::streamsize>(kSize)) throw FileError(shown + " is cut short.");
  return size;
}

// Shapes and their index begin alike: a number of the kind, and the length in words of two bytes.
void CheckShapes(const std::string& path, const std::string& shown) {
  std::array<unsigned char, 100> header{};
  const std::uint64_t size = ReadHeader(path, shown, header);
  constexpr std::uint32_t kShapes = 9994;
  if (Big(header.data()) != kShapes) throw FileError(shown + " is no shapefile.");
  if (size < std::uint64_t{Big(header.data() + 24)} * 2) throw FileError(shown + " is cut short.");
}

// A table of records of one length behind a header.
void CheckTable(const std::string& path, const std::string& shown) {
  std::array<unsigned char, 32> header{};
  const std::uint64_t size = ReadHeader(path, shown, header);
  const std::uint64_t records = Little(header.data() + 4, 4);
  const std::uint64_t begin = Little(header.data() + 8, 2);
  const std::uint64_t length = Little(header.data() + 10, 2);
  if ((header[0] & 7) != 3 || begin < 33 || length == 0) throw FileError(shown + " is no table of a shapefile.");
  if (size < begin + records * length) throw FileError(shown + " is cut short.");
}

}  // namespace

struct ShapeFile::Handles {
  ~Handles() {
    if (shapes) SHPClose(shapes);
    if (table) DBFClose(table);
  }
  SHPHandle shapes = nullptr;
  DBFHandle table = nullptr;
};

ShapeFile::ShapeFile(const std::string& path, std::string shown)
    : shown_(shown.empty() ? path : std::move(shown)), handles_(std::make_unique<Handles>()) {
  const std::string index = Beside(path, ".shx", ".SHX");
  const std::string table = Beside(path, ".dbf", ".DBF");
  std::error_code ignored;
  if (!fs::is_regular_file(path, ignored)) throw FileError(shown_ + " is not there.");
  if (index.empty()) throw FileError(shown_ + ": its index (.shx) is missing.");
  if (table.empty()) throw FileError(shown_ + ": its table (.dbf) is missing.");
  CheckShapes(path, shown_);
  CheckShapes(index, shown_ + ": its index (.shx)");
  CheckTable(table, shown_ + ": its table (.dbf)");

  SAHooks hooks = Hooks();
  complaint.clear();
  handles_->shapes = SHPOpenLL(path.c_str(), "rb", &hooks);
  if (!handles_->shapes) throw FileError(shown_ + " can't be read: " + (complaint.empty() ? "it is damaged." : complaint));
  handles_->table = DBFOpenLL(table.c_str(), "rb", &hooks);
  if (!handles_->table) throw FileError(shown_ + ": its table (.dbf) is damaged.");

  int kind = 0;
  SHPGetInfo(handles_->shapes, &records_, &kind, nullptr, nullptr);
  if (kind != SHPT_ARC && kind != SHPT_ARCZ && kind != SHPT_ARCM) throw FileError(shown_ + " holds no lines.");
  const int rows = DBFGetRecordCount(handles_->table);
  if (rows != records_) {
    throw FileError(shown_ + " has " + std::to_string(records_) + " lines and its table " + std::to_string(rows) + " records.");
  }
}

ShapeFile::~ShapeFile() = default;

void ShapeFile::Damaged(int record, const std::string& what) const {
  throw FileError(shown_ + ", record " + std::to_string(record + 1) + ": " + what);
}

std::optional<int> ShapeFile::Column(const char* name) const {
  const int column = DBFGetFieldIndex(handles_->table, name);
  if (column < 0) return {};
  return column;
}

bool ShapeFile::IsDeleted(int record) const { return DBFIsRecordDeleted(handles_->table, record) != 0; }

std::string ShapeFile::Field(int record, int column) const {
  complaint.clear();
  const char* text = DBFReadStringAttribute(handles_->table, record, column);
  if (!text || !complaint.empty()) Damaged(record, "the table can't be read.");
  return SourceText(text);
}

ShapeFile::LineState ShapeFile::ReadLine(int record, Line& line) const {
  struct Free {
    void operator()(SHPObject* object) const { SHPDestroyObject(object); }
  };
  complaint.clear();
  const std::unique_ptr<SHPObject, Free> shape(SHPReadObject(handles_->shapes, record));
  if (!shape) Damaged(record, "the line is damaged" + (complaint.empty() ? std::string(".") : ": " + complaint));
  if (shape->nSHPType == SHPT_NULL || shape->nVertices < 2) return LineState::Null;
  if (shape->nParts > 1) return LineState::SeveralParts;
  line.clear();
  for (int i = 0; i < shape->nVertices; ++i) {
    const double east = shape->padfX[i];
    const double north = shape->padfY[i];
    if (!(std::abs(east) <= 180) || !(std::abs(north) <= 90)) return LineState::OffTheEarth;
    line.push_back({static_cast<std::int32_t>(std::lround(east * 1e6)), static_cast<std::int32_t>(std::lround(north * 1e6))});
  }
  return LineState::Good;
}

}  // namespace streets
