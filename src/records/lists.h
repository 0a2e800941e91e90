#pragma once

#include <string>

#include "platform/controls/data_control.h"
#include "session/failures.h"

namespace orcussch {

/// Whether the list holds at least one row; false before its first opening.
bool HasRecords(const platform::DataControl& list);

/// Finds the row of a position text; when there is none the list goes to its last row. A row that was not stored has no
/// position: the list stays where it was opened.
void StandOn(ResumeNext& on, const platform::DataControl& list, const std::string& position);

/// Writes an edit of a list's row. One that can't be written is reported and dropped: left open, the list would write it by
/// itself when it moves on, long after the user was told that it failed.
void UpdateOrDrop(ResumeNext& on, const platform::RecordsetRef& rows);

}  // namespace orcussch
