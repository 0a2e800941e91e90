#pragma once

#include <stdexcept>

namespace streets {

/// A file that can't be used or written. The words name the file and say why; they are meant for the user.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace streets
