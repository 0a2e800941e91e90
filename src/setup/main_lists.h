#pragma once

#include "platform/controls/data_control.h"
#include "platform/data/data.h"

/// What a setup screen does to the main screen's lists, and to its own tables, when it closes. Nothing here is reported: closing
/// always completes.
namespace orcussch {

/// Opens the source of a combo of the main screen anew.
void ReloadCombo(platform::DataControl& source);

/// Opens a list of the main screen anew that shows a changed table's texts, if it stands on the list's page and has rows; it stays
/// on its row, found by the number in `key`.
void ReloadOnListPage(platform::DataControl& list, const char* key);

/// Closes a recordset of the screen's own and lets it go.
void CloseTable(platform::RecordsetRef& table);

}  // namespace orcussch
