#pragma once

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "printing/layout/page.h"

namespace printing_test {

/// A folder for what a test writes.
class OutputTest : public testing::Test {
 protected:
  OutputTest() {
    std::string name = (std::filesystem::temp_directory_path() / "printing-XXXXXX").string();
    folder = mkdtemp(name.data());
  }
  ~OutputTest() override { std::filesystem::remove_all(folder); }

  std::string File(const std::string& name) const { return (folder / name).string(); }
  /// Names of what lies in the folder.
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename().string());
    return names;
  }

  std::filesystem::path folder;
};

inline std::string Content(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream all;
  all << stream.rdbuf();
  return all.str();
}

/// What a program says, its errors with it.
inline std::string Said(const std::string& command) {
  std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>&1").c_str(), "r"), pclose);
  std::string all;
  std::array<char, 4096> part{};
  for (std::size_t got = 0; pipe && (got = fread(part.data(), 1, part.size(), pipe.get())) > 0;) all.append(part.data(), got);
  return all;
}

inline printing::TextItem TextAt(double x, double y, double width, const std::string& text) {
  printing::TextItem item;
  item.x = x;
  item.y = y;
  item.width = width;
  item.height = 0.2;
  item.text = text;
  item.style.points = 10;
  return item;
}

}  // namespace printing_test
