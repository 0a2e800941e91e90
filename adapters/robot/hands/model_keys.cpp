#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/lists.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/shortcuts.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "robot/hands/model_hands.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"

namespace robot {
namespace {

using namespace platform;

constexpr int kPageRows = 20;

constexpr std::array<std::string_view, 30> kNamedKeys = {"Enter",  "Tab",    "Escape",   "Up",        "Down",   "Left",  "Right", "Home",
                                                         "End",    "PageUp", "PageDown", "Backspace", "Delete", "Space", "Plus",  "Minus",
                                                         "Insert", "F1",     "F2",       "F3",        "F4",     "F5",    "F6",    "F7",
                                                         "F8",     "F9",     "F10",      "F11",       "F12",    "Comma"};

/// "Ctrl+Alt+Shift+Key" with the modifiers in this order and the key in its proper letters; raises ActionFailed for anything
/// that no keyboard has.
std::string ProperKey(std::string_view key) {
  std::array<bool, 3> held{};
  constexpr std::array<std::string_view, 3> modifiers = {"Ctrl+", "Alt+", "Shift+"};
  std::string_view rest = key;
  for (bool more = true; more;) {
    more = false;
    for (std::size_t i = 0; i < modifiers.size(); ++i) {
      if (rest.size() <= modifiers[i].size() || !EqualsNoCase(rest.substr(0, modifiers[i].size()), modifiers[i])) continue;
      held[i] = more = true;
      rest.remove_prefix(modifiers[i].size());
    }
  }
  std::string proper;
  for (std::size_t i = 0; i < modifiers.size(); ++i)
    if (held[i]) proper += modifiers[i];
  for (const std::string_view name : kNamedKeys)
    if (EqualsNoCase(name, rest)) return proper + std::string(name);
  if (CharacterCount(rest) != 1) throw ActionFailed("no key " + std::string(key));
  return proper + (proper.empty() || proper == "Shift+" ? std::string(rest) : UCase(rest));
}

bool KeyInText(TextBox& box, const std::string& key);

/// The design's columns that are shown; how the user has moved or hidden them is the windows' alone.
std::vector<int> ColumnsInOrder(const Grid& grid) {
  std::vector<int> columns;
  for (int column = 0; column < grid.ColumnCount(); ++column)
    if (grid.Column(column).visible) columns.push_back(column);
  return columns;
}

/// What types a character starts a search; "/" goes to its box alone.
bool TypeIntoSearch(Grid& grid, const std::string& key) {
  const bool types =
      CharacterCount(key.starts_with("Shift+") ? key.substr(6) : key) == 1 || key == "Plus" || key == "Minus" || key == "Comma";
  TextBox* box = grid.SearchBox();
  if (!types || grid.OpenCell() || !IsOpenToUser(box)) return false;
  grid.Owner().UserFocus(*box);
  if (grid.Owner().Focus() != box) return true;
  box->Select(0, CharacterCount(box->Text()));
  return key == "/" || KeyInText(*box, key);
}

void MoveCursor(Grid& grid, int step) {
  const std::vector<int> columns = ColumnsInOrder(grid);
  const auto at = std::find(columns.begin(), columns.end(), grid.CursorColumn());
  if (at == columns.end() || (step < 0 ? at == columns.begin() : at + 1 == columns.end())) return;
  grid.CursorColumn(*(at + step));
}

/// Enter, the key for editing, the keys from cell to cell.
bool CellKey(Grid& grid, const std::string& key) {
  if (key == "Enter") {
    if (!grid.OpenCell()) return grid.UserEnter(grid.CursorColumn());
    grid.UserCloseCell();
  } else if (key == "Ctrl+E") {
    if (const auto column = grid.CellToEdit(ColumnsInOrder(grid))) grid.UserOpenCell(*column);
  } else if (key == "Left" || key == "Right") {
    if (!grid.OpenCell()) MoveCursor(grid, key == "Left" ? -1 : 1);
  } else {
    return false;
  }
  return true;
}

bool KeyInGrid(Grid& grid, const std::string& key) {
  if (key == "Escape") {
    if (!grid.OpenCell() && !grid.DataChanged()) return false;
    grid.UserEscape();
  } else if (key == "Shift+Enter") {
    grid.UserLeaveRow();
  } else if (key == "Up") {
    grid.UserMove(-1);
  } else if (key == "Down") {
    grid.UserMove(1);
  } else if (key == "PageUp") {
    grid.UserMove(-kPageRows);
  } else if (key == "PageDown") {
    grid.UserMove(kPageRows);
  } else if (key == "Home" || key == "Ctrl+Home") {
    grid.UserFirst();
  } else if (key == "End" || key == "Ctrl+End") {
    grid.UserLast();
  } else {
    return CellKey(grid, key) || TypeIntoSearch(grid, key);
  }
  return true;
}

/// Moves the caret; text edits of one line leave Up and Down alone.
bool CaretKey(TextBox& box, const std::string& key) {
  const std::size_t length = CharacterCount(box.Text());
  const std::size_t caret = box.Caret();
  if (key == "Left") {
    box.Select(caret == 0 ? 0 : caret - 1, 0);
  } else if (key == "Right") {
    box.Select(caret + 1, 0);
    if (box.Caret() == caret) box.Select(caret + 2, 0);  // a line end is passed as one
  } else if (key == "Home") {
    box.Select(0, 0);
  } else if (key == "End") {
    box.Select(length, 0);
  } else if (key == "Ctrl+A") {
    box.Select(0, length);
  } else {
    return false;
  }
  return true;
}

bool KeyInText(TextBox& box, const std::string& key) {
  if (CaretKey(box, key)) return true;
  if (key == "Enter")
    box.UserKey(U'\r');
  else if (key == "Backspace")
    box.UserKey(8);
  else if (key == "Delete")
    box.UserDelete();
  else if (key == "Space")
    box.UserKey(U' ');
  else if (key == "Plus" || key == "Minus" || key == "Comma")
    box.UserKey(key == "Plus" ? U'+' : key == "Minus" ? U'-' : U',');
  else if (const std::string bare = key.starts_with("Shift+") ? UCase(key.substr(6)) : key; CharacterCount(bare) == 1)
    box.UserKey(ToCodePoints(bare).front());
  else
    return false;
  return true;
}

bool KeyInCombo(ComboBox& combo, const std::string& key) {
  if (key != "Up" && key != "Down") return false;
  const std::vector<ComboRow> rows = combo.Rows();
  std::ptrdiff_t at = -1;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].key == combo.BoundValue()) at = static_cast<std::ptrdiff_t>(i);
  at += key == "Down" ? 1 : -1;
  if (at >= 0 && at < static_cast<std::ptrdiff_t>(rows.size())) combo.UserPick(rows[static_cast<std::size_t>(at)]);
  return true;
}

bool KeyInList(ListBox& list, const std::string& key) {
  const int last = static_cast<int>(list.Items().size()) - 1;
  int to = list.ListIndex();
  if (key == "Up")
    --to;
  else if (key == "Down")
    ++to;
  else if (key == "Home")
    to = 0;
  else if (key == "End")
    to = last;
  else
    return false;
  to = to < 0 ? 0 : to > last ? last : to;
  if (last >= 0 && to != list.ListIndex()) list.UserSelect(to);
  return true;
}

bool KeyInScrollBar(ScrollBar& bar, const std::string& key) {
  if (key == "Up" || key == "Left")
    bar.UserSlide(bar.Value() - 1);
  else if (key == "Down" || key == "Right")
    bar.UserSlide(bar.Value() + 1);
  else if (key == "Home")
    bar.UserSlide(bar.Min());
  else if (key == "End")
    bar.UserSlide(bar.Max());
  else
    return false;
  return true;
}

/// Space presses buttons; Enter only command buttons.
bool KeyInButton(Control& control, const std::string& key) {
  if (auto* button = dynamic_cast<CommandButton*>(&control); button != nullptr && (key == "Enter" || key == "Space")) {
    button->UserClick();
    return true;
  }
  if (key != "Space") return false;
  if (auto* check = dynamic_cast<CheckBox*>(&control))
    check->UserClick();
  else if (auto* option = dynamic_cast<OptionButton*>(&control))
    option->UserClick();
  else
    return false;
  return true;
}

bool OwnKey(Control& control, const std::string& key) {
  if (auto* grid = dynamic_cast<Grid*>(&control)) return KeyInGrid(*grid, key);
  if (auto* box = dynamic_cast<TextBox*>(&control)) return KeyInText(*box, key);
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) return KeyInCombo(*combo, key);
  if (auto* list = dynamic_cast<ListBox*>(&control)) return KeyInList(*list, key);
  if (auto* bar = dynamic_cast<ScrollBar*>(&control)) return KeyInScrollBar(*bar, key);
  return KeyInButton(control, key);
}

void PressCommand(Control& command) {
  if (auto* item = dynamic_cast<MenuItem*>(&command))
    item->UserClick();
  else if (auto* button = dynamic_cast<ToolbarButton*>(&command))
    button->UserClick();
}

/// The next tab that is open, in a circle.
bool TabsKey(Form& form, const std::string& key) {
  if (key != kNextTabKey && key != kPreviousTabKey) return false;
  for (Control* control : form.Controls()) {
    auto* tabs = dynamic_cast<TabControl*>(control);
    if (tabs == nullptr || !IsOpenToUser(tabs)) continue;
    const int count = tabs->TabCount();
    const int step = key == kNextTabKey ? 1 : count - 1;
    for (int tab = (tabs->Tab() + step) % count; tab != tabs->Tab(); tab = (tab + step) % count) {
      if (!tabs->TabEnabled(tab)) continue;
      tabs->UserClick(tab);
      break;
    }
    return true;
  }
  return false;
}

}  // namespace

void PressKey(Control& control, std::string_view name) {
  const std::string key = ProperKey(name);
  Form& form = control.Owner();
  if (OwnKey(control, key)) return;
  Control* command = ShortcutTarget(form, key);
  if (command != nullptr) {
    // A key that is only told why it does nothing is still the control's.
    const bool refused = WouldRefuse(command);
    PressCommand(*command);
    if (!refused) return;
  }
  if (key == "Tab" || key == "Shift+Tab") {
    if (Control* next = form.NextInTabOrder(&control, key != "Tab")) form.UserFocus(*next);
  } else if (!TabsKey(form, key) && key == "Escape") {
    if (auto* box = dynamic_cast<TextBox*>(&control)) box->UserKey(27);
  }
}

}  // namespace robot
