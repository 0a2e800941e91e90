#pragma once

#include "platform/controls/form/shortcut.h"

namespace orcussch {

/// The same keys as on the main screen. Escape cancels while there is something to cancel, else it leaves the screen, as it leaves
/// any dialog.
inline constexpr platform::Shortcut kSetupShortcuts[] = {
    {"tb_Select", "Ctrl+Enter", ""}, {"tb_AddRec", "Ctrl+N", ""}, {"tb_EditRec", "F2", ""},       {"tb_DeleteRec", "F8", ""},
    {"tb_SaveRec", "Ctrl+S", ""},    {"tb_Refresh", "F5", ""},    {"tb_CancelRec", "Escape", ""}, {"cmdClose", "Escape", ""},
    {"tb_Search", "F3", ""},         {"tb_Queries", "F4", ""},
};

inline constexpr platform::Shortcut kTaxSetupQueriesShortcuts[] = {
    {"tb_RunQuery", "F5", ""},
    {"tb_RunQuery", "Ctrl+Enter", ""},
    {"tb_Cancel", "Escape", ""},
};

}  // namespace orcussch
