#pragma once

#include "platform/data/data.h"

namespace orcussch {

/// A recordset that the session opens once and every screen uses: its variable, and how it is opened.
struct SessionRecordset {
  platform::RecordsetRef& rows;
  platform::RecordsetRef (*open)();
};

/// All of them, in the order of their opening, which is that of their closing too.
extern const SessionRecordset kSessionRecordsets[15];

}  // namespace orcussch
