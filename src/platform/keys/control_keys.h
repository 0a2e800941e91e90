#pragma once

#include <string_view>

namespace platform {

class Control;
class TextBox;

/// A key in an edit that takes what is typed: a character, Enter, Backspace, Delete, Escape. False when it is none of the edit's
/// own, and for Escape, which is the screen's too. Moving the caret and selecting are the front end's.
bool PressKeyInEdit(TextBox& box, std::string_view key);

/// Enter and Space in what can be pressed, arrows in a group of choices. False when the key is none of the control's own.
bool PressKeyOnButton(Control& control, std::string_view key);

/// A key in a control that no window shows, as a window would take it: the control's own use of the key first, then the screen's,
/// then the way to the next control. A key that means nothing there does nothing. `pageRows`: the rows of a list that are in view.
void PressKey(Control& control, std::string_view key, int pageRows);

}  // namespace platform
