#pragma once

#include <memory>

#include "engine/cursor/cursor.h"

namespace engine {

/// A table, a link or a statement: rows by their keys, searched by FindFirst and FindNext. As a snapshot it refuses writes.
class DynasetRecordset final : public Cursor {
 public:
  using Cursor::Cursor;

 protected:
  std::shared_ptr<Cursor> MakeClone() override { return std::make_shared<DynasetRecordset>(Owner(), Name(), Type(), SharedList()); }
};

}  // namespace engine
