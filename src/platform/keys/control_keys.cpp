#include "platform/keys/control_keys.h"

#include <algorithm>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/lists.h"
#include "platform/controls/text_box.h"
#include "platform/keys/key.h"
#include "platform/keys/list_keys.h"
#include "platform/keys/screen_keys.h"
#include "platform/values/text.h"

namespace platform {
namespace {

constexpr char32_t kBackspace = 8;
constexpr char32_t kEnter = 13;
constexpr char32_t kEscape = 27;

/// Moves the caret; edits of one line leave Up and Down alone.
bool MoveCaret(TextBox& box, std::string_view key) {
  const std::size_t caret = box.Caret();
  if (key == "Left") {
    box.Select(caret == 0 ? 0 : caret - 1, 0);
  } else if (key == "Right") {
    box.Select(caret + 1, 0);
    if (box.Caret() == caret) box.Select(caret + 2, 0);  // a line end is passed as one
  } else if (key == "Home") {
    box.Select(0, 0);
  } else if (key == "End") {
    box.Select(CharacterCount(box.Text()), 0);
  } else if (key == "Ctrl+A") {
    box.Select(0, CharacterCount(box.Text()));
  } else {
    return false;
  }
  return true;
}

bool PressKeyInCombo(ComboBox& combo, std::string_view key) {
  if (key != "Up" && key != "Down") return false;
  const std::vector<ComboRow> rows = combo.Rows();
  std::ptrdiff_t at = -1;
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].key == combo.BoundValue()) at = static_cast<std::ptrdiff_t>(i);
  at += key == "Down" ? 1 : -1;
  if (at >= 0 && at < static_cast<std::ptrdiff_t>(rows.size())) combo.UserPick(rows[static_cast<std::size_t>(at)]);
  return true;
}

bool PressKeyInListBox(ListBox& list, std::string_view key) {
  const int last = static_cast<int>(list.Items().size()) - 1;
  int to = list.ListIndex();
  if (key == "Up") {
    --to;
  } else if (key == "Down") {
    ++to;
  } else if (key == "Home") {
    to = 0;
  } else if (key == "End") {
    to = last;
  } else {
    return false;
  }
  to = std::max(0, std::min(to, last));
  if (last >= 0 && to != list.ListIndex()) list.UserSelect(to);
  return true;
}

bool PressKeyInScrollBar(ScrollBar& bar, std::string_view key) {
  if (key == "Up" || key == "Left") {
    bar.UserSlide(bar.Value() - 1);
  } else if (key == "Down" || key == "Right") {
    bar.UserSlide(bar.Value() + 1);
  } else if (key == "Home") {
    bar.UserSlide(bar.Min());
  } else if (key == "End") {
    bar.UserSlide(bar.Max());
  } else {
    return false;
  }
  return true;
}

/// The choice beside it in its group that can be used; nullptr at the end.
OptionButton* ChoiceBeside(const OptionButton& option, bool next) {
  OptionButton* beside = nullptr;
  for (Control* control : option.Owner().Controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other == nullptr || other->Name() != option.Name() || !other->OpenToUser()) continue;
    if (next ? other->Index() <= option.Index() : other->Index() >= option.Index()) continue;
    if (beside == nullptr || (next ? other->Index() < beside->Index() : other->Index() > beside->Index())) beside = other;
  }
  return beside;
}

/// The arrows go through a group of choices, and choose on the way.
bool PressKeyOnChoice(OptionButton& option, std::string_view key) {
  const bool next = key == "Down" || key == "Right";
  if (!next && key != "Up" && key != "Left") return false;
  if (OptionButton* beside = ChoiceBeside(option, next)) beside->UserClick();
  return true;
}

/// The design's columns that are shown; how the user has moved or hidden them is the windows' alone.
ListShown ShownByDesign(const Grid& list, int pageRows) {
  ListShown shown;
  for (int column = 0; column < list.ColumnCount(); ++column)
    if (list.Column(column).visible) shown.columns.push_back(column);
  shown.pageRows = pageRows;
  return shown;
}

bool OnFirstRow(const Grid& list) {
  RowWindow* window = list.Data() != nullptr && list.Data()->OnRecord() ? list.Data()->Window() : nullptr;
  if (window == nullptr) return true;
  const Bookmark here = list.CurrentBookmark();
  return window->RowOf(here).has_value() && window->RowsBefore(here, 1).empty();
}

bool PressKeyInList(Grid& list, std::string_view key, int pageRows) {
  ListShown shown = ShownByDesign(list, pageRows);
  const ListKey meant = ListKeyOf(list, key, shown.columns);
  if (meant.act == ListAct::Search) {
    TextBox& box = *OpenSearchBox(list);
    box.Owner().UserFocus(box);
    if (box.Owner().Focus() != &box) return true;
    box.UserSelectAll();
    return PressKeyInEdit(box, key);
  }
  if (meant.act == ListAct::RowUp) {
    list.Owner().Act([&] { shown.onFirstRow = OnFirstRow(list); });
  }
  PerformListKey(list, meant, shown);
  return meant.act != ListAct::None;
}

bool PressKeyInControl(Control& control, std::string_view key, int pageRows) {
  if (auto* list = dynamic_cast<Grid*>(&control)) return PressKeyInList(*list, key, pageRows);
  if (auto* box = dynamic_cast<TextBox*>(&control)) return MoveCaret(*box, key) || PressKeyInEdit(*box, key);
  if (auto* combo = dynamic_cast<ComboBox*>(&control)) return PressKeyInCombo(*combo, key);
  if (auto* list = dynamic_cast<ListBox*>(&control)) return PressKeyInListBox(*list, key);
  if (auto* bar = dynamic_cast<ScrollBar*>(&control)) return PressKeyInScrollBar(*bar, key);
  return PressKeyOnButton(control, key);
}

}  // namespace

bool PressKeyInEdit(TextBox& box, std::string_view key) {
  const std::string plain = WithoutShift(key);
  if (plain == "Escape") {
    box.UserKey(kEscape);
    return false;
  }
  if (plain == "Enter") {
    box.UserKey(kEnter);
  } else if (plain == "Backspace") {
    box.UserKey(kBackspace);
  } else if (plain == "Delete") {
    box.UserDelete();
  } else if (const std::string typed = TypedBy(key); !typed.empty()) {
    box.UserKey(ToCodePoints(typed).front());
  } else {
    return false;
  }
  return true;
}

bool PressKeyOnButton(Control& control, std::string_view key) {
  if (auto* button = dynamic_cast<CommandButton*>(&control); button != nullptr && (key == "Enter" || key == "Space")) {
    button->UserClick();
    return true;
  }
  if (auto* option = dynamic_cast<OptionButton*>(&control); option != nullptr && key != "Space") return PressKeyOnChoice(*option, key);
  if (key != "Space") return false;
  if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    check->UserClick();
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    option->UserClick();
  } else {
    return false;
  }
  return true;
}

void PressKey(Control& control, std::string_view key, int pageRows) {
  Form& form = control.Owner();
  if (PressKeyInControl(control, key, pageRows) || PressKeyOnScreen(form, &control, key)) return;
  if (key != "Tab" && key != "Shift+Tab") return;
  if (Control* next = form.NextInTabOrder(&control, key != "Tab")) form.UserFocus(*next);
}

}  // namespace platform
