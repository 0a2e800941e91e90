#include "streets/file/street_files.h"

#include "streets/file/file_error.h"
#include "streets/file/street_file.h"

namespace streets {

StreetFiles::StreetFiles(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    try {
      files_.push_back(OpenStreetFile(path));
    } catch (const FileError& problem) {
      Complain(problem.what());
    }
  }
}

void StreetFiles::Complain(const std::string& words) {
  if (complaint_.find(words) != std::string::npos) return;
  if (!complaint_.empty()) complaint_ += "\n";
  complaint_ += words;
}

}  // namespace streets
