#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/form/control.h"
#include "platform/host/application.h"
#include "platform/values/value.h"

namespace robot {

/// One part of a dotted name: "Columns(3)" has the name "Columns" and the index 3 (-1 for none).
struct NamePart {
  std::string name;
  int index = -1;
};

/// The parts of "frmCustMain.grid(0).Columns(3).Caption". Raises ActionFailed for a text that is no such name.
std::vector<NamePart> SplitName(const std::string& name);

/// What a dotted name names: a screen, or one of its controls, and what of it.
struct Named {
  platform::Form* form = nullptr;
  platform::Control* control = nullptr;  ///< nullptr: the screen itself
  std::vector<NamePart> property;        ///< empty: the own value
};

/// A bare name is looked up on the top-most visible screen; a loaded screen's name in front chooses that one. Raises
/// ActionFailed when there is no such screen or control.
Named Find(const platform::Application& app, const std::string& name);

/// The loaded screen of that name; nullptr if there is none.
platform::Form* LoadedForm(const platform::Application& app, std::string_view name);

/// What panel 1 of the screen's status bar says; nothing for a screen without one, or for none.
std::optional<std::string> StatusText(const platform::Form* form);

/// The control's own value: its text, caption, value or tab number.
platform::Value OwnValue(const platform::Control& control);
/// A property. Raises ActionFailed for one that the control does not have, platform::Error for what can't be read.
platform::Value PropertyOf(const Named& named);

/// Raises Refused unless the user can act on the control now.
void DemandUsable(const platform::Application& app, const platform::Control& control);
/// Raises Refused unless the control is to be seen on the top screen.
void DemandVisible(const platform::Application& app, const platform::Control& control);

}  // namespace robot
