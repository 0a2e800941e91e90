#pragma once

#include "platform/controls/form/shortcut.h"

// The keys of the main screen's commands.
namespace orcussch {

/// The menu's items stay open while a record is edited; a key that is pressed by mistake should not run what the toolbar refuses,
/// so most of them are guarded by the toolbar key of the same command (Escape cancels only while there is something to cancel).
inline constexpr platform::Shortcut kCustMainShortcuts[] = {
    {"miPrint", "Ctrl+P", "tb_Print"},
    {"miPreview", "Ctrl+Shift+P", "tb_Preview"},
    {"miExit", "Ctrl+Q", ""},
    {"miFind", "F3", "tb_Find"},
    {"miSelect", "Ctrl+Enter", "tb_Select"},
    {"miAddRec", "Ctrl+N", "tb_AddRec"},
    {"miEditRec", "F2", "tb_EditRec"},
    {"miDeleteRec", "F8", "tb_DeleteRec"},
    {"miSaveRec", "Ctrl+S", "tb_SaveRec"},
    {"miCancelRec", "Escape", "tb_CancelRec"},
    {"miRefresh", "F5", "tb_Refresh"},
    {"miMapCustomer", "F7", "tb_MapCustomer"},
    {"miMapAll", "Ctrl+F7", "tb_MapAll"},
    {"miQueries", "F4", "tb_Queries"},
    {"miStatistics", "F6", "tb_Statistics"},
    {"miReports", "F9", "tb_Reports"},
    {"miRelationships", "F11", "tb_Refresh"},
    {"miSelectAll", "Ctrl+Shift+A", "tb_SelectAll"},
    {"miUnselectAll", "Ctrl+Shift+U", "tb_UnselectAll"},
    {"miUnassignSelected", "Ctrl+Minus", "tb_UnassignSelected"},
    {"miAssignSelected", "Ctrl+Plus", "tb_AssignSelected"},
};

}  // namespace orcussch
