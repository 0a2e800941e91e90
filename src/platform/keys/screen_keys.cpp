#include "platform/keys/screen_keys.h"

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/keys/key.h"
#include "platform/keys/shortcuts.h"
#include "platform/values/text.h"

namespace platform {
namespace {

/// The next tab that is open, or the one before, in a circle.
bool TurnTab(Form& form, std::string_view key) {
  const bool next = key == "Ctrl+Tab" || key == "Ctrl+PageDown";
  if (!next && key != "Ctrl+Shift+Tab" && key != "Ctrl+PageUp") return false;
  for (Control* control : form.Controls()) {
    auto* tabs = dynamic_cast<TabControl*>(control);
    if (tabs == nullptr || !tabs->OpenToUser()) continue;
    const int count = tabs->TabCount();
    for (int step = 1; step < count; ++step) {
      const int tab = (tabs->Tab() + (next ? step : count - step)) % count;
      if (!tabs->TabEnabled(tab)) continue;
      tabs->UserClick(tab);
      break;
    }
    return true;
  }
  return false;
}

/// The first list to be seen whose search box is `box`, or has any when that is nullptr.
Grid* ListWithBox(const Form& form, const Control* box) {
  for (Control* control : form.Controls()) {
    auto* list = dynamic_cast<Grid*>(control);
    if (list == nullptr || list->SearchBox() == nullptr || (box != nullptr && list->SearchBox() != box)) continue;
    if (list->SearchBox()->EffectivelyVisible()) return list;
  }
  return nullptr;
}

/// Down goes from a search box to its list; Ctrl+F, and "/" outside of edits, go to the box of the list that is shown.
bool Search(Form& form, const Control* focus, std::string_view key) {
  if (key == "Down") {
    Grid* list = dynamic_cast<const TextBox*>(focus) != nullptr ? ListWithBox(form, focus) : nullptr;
    if (list != nullptr) form.UserFocus(*list);
    return list != nullptr;
  }
  const bool inEdit = dynamic_cast<const TextBox*>(focus) != nullptr || dynamic_cast<const ComboBox*>(focus) != nullptr;
  if (key != "Ctrl+F" && (key != "/" || inEdit)) return false;
  Grid* list = ListWithBox(form, nullptr);
  if (list == nullptr) return false;
  TextBox& box = *list->SearchBox();
  form.UserFocus(box);
  if (form.Focus() == &box) box.UserSelectAll();
  return true;
}

bool StartCommand(const Form& form, std::string_view key) {
  Control* target = ShortcutTarget(form, key);
  if (auto* item = dynamic_cast<MenuItem*>(target)) {
    item->UserClick();
  } else if (auto* button = dynamic_cast<ToolbarButton*>(target)) {
    button->UserClick();
  } else if (auto* push = dynamic_cast<CommandButton*>(target)) {
    push->UserClick();
  } else {
    return false;
  }
  return true;
}

/// The letter behind the caption's "&", as it is pressed with Alt; "" without one.
std::string LetterOf(const std::string& caption) {
  const std::size_t mark = caption.find('&');
  return mark == std::string::npos ? "" : caption.substr(mark + 1, 1);
}

/// Alt and the letter that is marked in a button's caption press it.
bool PressButtonByLetter(const Form& form, std::string_view key) {
  const std::optional<Key> pressed = KeyNamed(key);
  if (!pressed || !pressed->alt || pressed->control || pressed->shift) return false;
  for (Control* control : form.Controls()) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button == nullptr || !button->OpenToUser() || !EqualsNoCase(LetterOf(button->Caption()), pressed->plain)) continue;
    button->UserClick();
    return true;
  }
  return false;
}

bool Leave(Form& form, std::string_view key) {
  if (key != "Escape" || !form.LeavesByEscape()) return false;
  form.UserClose();
  return true;
}

}  // namespace

bool PressKeyOnScreen(Form& form, const Control* focus, std::string_view key) {
  return TurnTab(form, key) || Search(form, focus, key) || StartCommand(form, key) || PressButtonByLetter(form, key) || Leave(form, key);
}

}  // namespace platform
