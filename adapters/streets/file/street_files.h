#pragma once

#include <memory>
#include <string>
#include <vector>

#include "streets/file/database.h"

namespace streets {

/// The files in use, the base map first, each opened to be read. One that can't be used is left out and told.
class StreetFiles {
 public:
  explicit StreetFiles(const std::vector<std::string>& paths);

  const std::vector<std::unique_ptr<Database>>& All() const noexcept { return files_; }
  /// A line for each file that can't be used, in words for the user; "" when all is well.
  const std::string& Complaint() const noexcept { return complaint_; }
  /// A file has failed while it was read. The same words are told once.
  void Complain(const std::string& words);

 private:
  std::vector<std::unique_ptr<Database>> files_;
  std::string complaint_;
};

}  // namespace streets
