#pragma once

#include <string>

namespace suitefiles {

/// Copies a file that nobody has open to a new name and waits until the disk has it. CommandError when that fails; no part of the copy
/// stays.
void CopyFile(const std::string& from, const std::string& to);

/// Writes a small file under a new name. CommandError when that fails.
void WriteFile(const std::string& path, const std::string& content);

/// A folder of this run's own in a given one, deleted at its end.
class ScratchFolder {
 public:
  explicit ScratchFolder(const std::string& in);
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace suitefiles
