#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace bench {

/// The folder of a desk whose company lies on a server; gone at the end.
class DeskFolder {
 public:
  /// `place`: "postgresql://HOST/DATABASE/orv1/".
  explicit DeskFolder(const std::string& place) : path_((std::filesystem::temp_directory_path() / "desk-XXXXXX").string()) {
    if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
    std::ofstream(path_ + "/orv1.ini") << "[Databases]\ndat.zdb Path=" << place << "dat.zdb\nDefault Path=" << place << "\n";
  }
  ~DeskFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  DeskFolder(const DeskFolder&) = delete;
  DeskFolder& operator=(const DeskFolder&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace bench
