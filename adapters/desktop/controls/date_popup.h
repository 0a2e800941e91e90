#pragma once

#include "desktop/controls/text_edit.h"

namespace desktop {

/// Gives a date edit a button that opens a calendar; the day chosen replaces the text.
void AddCalendar(TextEdit& edit, platform::DateEdit& model);

}  // namespace desktop
