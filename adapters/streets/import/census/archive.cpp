#include "streets/import/census/archive.h"

#include <unistd.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "streets/file/file_error.h"
#include "streets/import/census/source_text.h"

namespace streets {
namespace {

namespace fs = std::filesystem;

// Greater ones are no county's: an archive that would fill the disk is refused before it does.
constexpr zip_uint64_t kMostBytes = 2'000'000'000;

std::string WhyNot(int code) {
  zip_error_t error;
  zip_error_init_with_code(&error, code);
  std::string words = zip_error_strerror(&error);
  zip_error_fini(&error);
  return words;
}

}  // namespace

std::string SmallLetters(std::string text) {
  for (char& letter : text)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return text;
}

struct Archive::Handle {
  ~Handle() {
    if (archive) zip_discard(archive);
  }
  zip_t* archive = nullptr;
};

Archive::Archive(const std::string& path) : path_(path), handle_(std::make_unique<Handle>()) {
  int code = 0;
  handle_->archive = zip_open(path.c_str(), ZIP_RDONLY, &code);
  if (!handle_->archive) throw FileError(path + " is no ZIP archive that can be read: " + WhyNot(code) + ".");
  const zip_int64_t entries = zip_get_num_entries(handle_->archive, 0);
  for (zip_int64_t i = 0; i < entries; ++i) {
    const char* name = zip_get_name(handle_->archive, static_cast<zip_uint64_t>(i), 0);
    const std::string entry = name ? name : "";
    if (SmallLetters(entry).ends_with(".shp")) stems_.push_back(entry.substr(0, entry.size() - 4));
  }
  if (stems_.empty()) throw FileError(path + " holds no shapefile.");
}

Archive::~Archive() = default;

bool Archive::Unpack(const std::string& entry, const std::string& file) const {
  zip_stat_t about;
  const zip_int64_t index = zip_name_locate(handle_->archive, entry.c_str(), ZIP_FL_NOCASE);
  if (index < 0) return false;
  const auto fail = [&](const std::string& why) { throw FileError(path_ + ": " + SourceText(entry) + " " + why + "."); };
  if (zip_stat_index(handle_->archive, static_cast<zip_uint64_t>(index), 0, &about) != 0 || !(about.valid & ZIP_STAT_SIZE)) fail("is damaged");
  if (about.size > kMostBytes) fail("is too large");
  struct Close {
    void operator()(zip_file_t* opened) const { zip_fclose(opened); }
  };
  const std::unique_ptr<zip_file_t, Close> from(zip_fopen_index(handle_->archive, static_cast<zip_uint64_t>(index), 0));
  if (!from) fail("can't be unpacked");
  std::ofstream to(file, std::ios::binary);
  std::array<char, 65'536> bytes;
  zip_uint64_t written = 0;
  for (zip_int64_t count = 0; (count = zip_fread(from.get(), bytes.data(), bytes.size())) != 0;) {
    if (count < 0) fail("is damaged");
    written += static_cast<zip_uint64_t>(count);
    if (written > about.size) fail("is damaged");
    to.write(bytes.data(), count);
  }
  if (written != about.size) fail("is cut short");
  if (!to.flush()) fail("can't be unpacked into " + fs::path(file).parent_path().string());
  return true;
}

UnpackedShapeFile::UnpackedShapeFile(const Archive& archive, const std::string& stem) {
  folder_ = (fs::temp_directory_path() / "streets-XXXXXX").string();
  if (!::mkdtemp(folder_.data())) throw FileError("No folder for temporary files can be made in " + fs::temp_directory_path().string() + ".");
  try {
    for (const char* ending : {".shp", ".shx", ".dbf"}) archive.Unpack(stem + ending, folder_ + "/county" + ending);
  } catch (...) {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
    throw;
  }
}

UnpackedShapeFile::~UnpackedShapeFile() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

}  // namespace streets
