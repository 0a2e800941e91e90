#include "streets/program/own_files.h"

#include <filesystem>

namespace streetsprogram {

std::string OwnBaseMap() {
  namespace fs = std::filesystem;
  std::error_code problem;
  return (fs::read_symlink("/proc/self/exe", problem).parent_path() / "../share/orcussch/map.zds").lexically_normal().string();
}

}  // namespace streetsprogram
