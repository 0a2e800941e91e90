#include "streets/file/street_file.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "streets/file/file_error.h"
#include "streets/file/schema.h"

namespace streets {
namespace {

namespace fs = std::filesystem;

constexpr int kReaderWaits = 1'000;   // milliseconds: a map that opens late is better than one without streets
constexpr int kWriterWaits = 10'000;

// The store's header: its first words, the size of a page, the number of pages, our number and our format.
constexpr std::string_view kMagic{"SQLite format 3\0", 16};
constexpr std::size_t kHeader = 100;
constexpr std::size_t kPageSize = 16;
constexpr std::size_t kPages = 28;
constexpr std::size_t kUserVersion = 60;
constexpr std::size_t kApplication = 68;

using Header = std::array<char, kHeader>;

std::uint32_t Number(const Header& header, std::size_t at, std::size_t bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes; ++i) number = number << 8 | static_cast<unsigned char>(header[at + i]);
  return number;
}

// What the store would not say, or say only when it comes to the missing page.
void CheckHeader(const std::string& path) {
  std::error_code problem;
  const auto status = fs::status(path, problem);
  if (!fs::exists(status)) throw FileError(path + " is not there.");
  if (!fs::is_regular_file(status)) throw FileError(path + " is not a file.");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw FileError(path + " can't be opened.");
  const auto size = fs::file_size(path, problem);
  if (problem) throw FileError(path + " can't be read.");
  if (size == 0) throw FileError(path + " is empty.");
  Header header{};
  file.read(header.data(), kHeader);
  const bool whole = file.gcount() == static_cast<std::streamsize>(kHeader);
  if (!whole || std::string_view(header.data(), kMagic.size()) != kMagic || Number(header, kApplication, 4) != kApplicationId) {
    throw FileError(path + " is not a streets file.");
  }
  const std::uint32_t format = Number(header, kUserVersion, 4);
  if (format > kFormat) throw FileError(path + " was made by a newer version of the programs (format " + std::to_string(format) + ").");
  const std::uint32_t page = Number(header, kPageSize, 2);
  if (size < std::uint64_t{page == 1 ? 65'536 : page} * Number(header, kPages, 4)) throw FileError(path + " is cut short.");
}

// Reads from a page beyond the first, so that a lock, a journal that can't be played back and foreign tables show at once.
void CheckTables(Database& file) {
  for (const char* question : {"SELECT count(*) FROM Sources", "SELECT max(id) FROM Edges", "SELECT max(zip) FROM Zips"}) file.Ask(question);
}

}  // namespace

std::unique_ptr<Database> OpenStreetFile(const std::string& path) {
  CheckHeader(path);
  auto file = std::make_unique<Database>(path, Database::Use::Read, kReaderWaits);
  file->Execute("PRAGMA cache_size=-32768");
  CheckTables(*file);
  return file;
}

std::unique_ptr<Database> OpenOrMakeStreetFile(const std::string& path) {
  std::error_code problem;
  const bool isNew = !fs::exists(path, problem) || (fs::is_regular_file(path, problem) && fs::file_size(path, problem) == 0);
  if (!isNew) CheckHeader(path);
  auto file = std::make_unique<Database>(path, isNew ? Database::Use::Make : Database::Use::Write, kWriterWaits);
  // A bound on memory whatever is imported; what does not fit goes to the file, which its journal can bring back.
  file->Execute("PRAGMA page_size=4096; PRAGMA cache_size=-49152; PRAGMA temp_store=FILE");
  if (isNew) {
    Transaction making(*file);
    if (file->Ask("SELECT count(*) FROM sqlite_schema") == 0) CreateSchema(*file);
    making.Commit();
  }
  CheckTables(*file);
  return file;
}

}  // namespace streets
