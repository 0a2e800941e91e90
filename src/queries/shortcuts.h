#pragma once

#include "platform/controls/form/shortcut.h"

namespace orcussch {

/// The keys of the query screen's commands, which has no menu.
inline constexpr platform::Shortcut kCustQueriesShortcuts[] = {
    {"tb_RunQuery", "F5", ""},
    {"tb_RunQuery", "Ctrl+Enter", ""},
    {"tb_Cancel", "Escape", ""},
};

}  // namespace orcussch
