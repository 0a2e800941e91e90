#pragma once

#include "platform/controls/buttons.h"

namespace orcussch {

/// The captions of a group of choices, of which the first is on at first.
template <std::size_t N>
void CaptionOptions(platform::ControlArray<platform::OptionButton, N>& options, const char* const (&captions)[N]) {
  options.Each([&](platform::OptionButton& option, int index) {
    option.Caption(captions[index]);
    option.Design(index == 0);
  });
}

inline constexpr const char* kDisplayFilters[3] = {"Display All", "Display Assigned", "Display Unassigned"};

/// The condition that such a choice adds to the statement of a list with a check column.
inline const char* AssignFilter(const platform::ControlArray<platform::OptionButton, 3>& display) {
  if (display[1].Value()) return " AND (Assign=True)";
  if (display[2].Value()) return " AND (Assign=False)";
  return "";
}

}  // namespace orcussch
