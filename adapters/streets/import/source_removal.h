#pragma once

#include <cstdint>

#include "streets/file/database.h"

namespace streets {

/// Takes what a source has brought out of a file, inside the caller's transaction. Names that nothing bears any more go at the end,
/// after the source's new content has come, as most of them come again.
class SourceRemoval {
 public:
  explicit SourceRemoval(Database& file);

  void TakeOut(std::int64_t source);
  void ForgetUnusedNames();

 private:
  Database& file_;
};

}  // namespace streets
