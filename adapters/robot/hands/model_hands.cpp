#include "robot/hands/model_hands.h"

#include <algorithm>
#include <fstream>

#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/values/text.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/stage/lookup.h"

namespace robot {
namespace {

using namespace platform;

/// Clicks a control of kind T; false when it is another one.
template <class T>
bool ClickAs(Control& control) {
  auto* clicked = dynamic_cast<T*>(&control);
  if (clicked == nullptr) return false;
  clicked->UserClick();
  return true;
}

/// Moves the focus there; false when a refused cell keeps it.
bool TakesTheFocus(Control& control) {
  control.Owner().UserFocus(control);
  return !control.TakesFocus() || control.Owner().Focus() == &control;
}

/// On the current row, in the column of the cursor; in the first one of a list without an open column.
void DoubleClickCell(Grid& grid) {
  const int column = std::max(grid.CursorColumn(), 0);
  if (!TakesTheFocus(grid) || column >= grid.ColumnCount() || !grid.Data() || !grid.Data()->OnRecord()) return;
  if (!grid.Column(column).checkBox) grid.UserEnter(column);
}

class ModelHands final : public UserHands {
 public:
  void Click(Control& control) override {
    if (ClickAs<CommandButton>(control) || ClickAs<CheckBox>(control) || ClickAs<OptionButton>(control)) return;
    if (ClickAs<ToolbarButton>(control) || ClickAs<MenuItem>(control)) return;
    if (!control.TakesFocus()) throw ActionFailed(control.FullName() + " nothing to click on");
    control.Owner().UserFocus(control);
  }

  void DoubleClick(Control& control) override {
    if (auto* list = dynamic_cast<ListBox*>(&control)) {
      list->UserDblClick();
      return;
    }
    if (auto* grid = dynamic_cast<Grid*>(&control)) return DoubleClickCell(*grid);
    Click(control);
  }

  void Focus(Control& control) override { control.Owner().UserFocus(control); }

  void Type(Control& control, std::string_view text, bool append) override {
    if (!TakesTheFocus(control)) return;
    if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
      combo->UserType(append ? combo->Text() + std::string(text) : std::string(text));
      return;
    }
    auto* box = dynamic_cast<TextBox*>(&control);
    if (box == nullptr) throw ActionFailed(control.FullName() + " no text to type");
    const std::size_t length = CharacterCount(box->Text());
    if (append)
      box->Select(length, 0);
    else
      box->Select(0, length);
    if (text.empty() && !append && length > 0)
      box->UserDelete();
    else
      box->UserType(text);
  }

  void Key(Control& control, std::string_view key) override {
    if (TakesTheFocus(control)) PressKey(control, key);
  }

  void Pick(ComboBox& combo, const ComboRow& row) override { combo.UserPick(row); }
  void ClearCombo(ComboBox& combo) override { combo.UserClear(); }
  void Tab(TabControl& tabs, int tab) override { tabs.UserClick(tab); }
  /// In the first column that is in view, as far as the model knows.
  void Row(Grid& grid, const Bookmark& row) override {
    grid.CursorColumn(grid.SplitCount() > 1 ? 0 : grid.LeftCol(0));
    grid.UserRow(row);
  }
  void Mark(Grid& grid, const std::vector<Bookmark>& rows) override { grid.UserMark(rows); }
  void HeadClick(Grid& grid, int column) override { grid.UserHeadClick(column); }

  /// The order of the columns on the screen is the window's alone: the model knows them by their design order.
  void MoveColumn(Grid&, int, int) override {}

  void Cell(Grid& grid, int column, std::string_view text) override {
    if (!grid.UserOpenCell(column)) return;
    grid.UserCellText(std::string(text));
    grid.UserCloseCell();
  }

  void LeaveRow(Grid& grid) override { grid.UserLeaveRow(); }
  void Scroll(Grid& grid, int split, int column) override { grid.UserScroll(split, column); }
  void Choose(ListBox& list, int index) override { list.UserSelect(index); }
  void Slide(ScrollBar& bar, int value) override { bar.UserSlide(value); }
  void Spin(SpinButton& spin, bool up) override { spin.UserSpin(up); }
  void Hover(Control& control) override { control.UserHover(); }
  void HoverForm(Form& form) override {
    form.Act([&form] { form.Form_MouseMove(); });
  }
  void CloseForm(Form& form) override { form.UserClose(); }
  void PressInBox(const std::string&, int, const std::string&, int) override {}
  void Settle() override {}

  void Screenshot(Form* form, const std::string& path) override {
    std::ofstream file(path, std::ios::binary);
    file << (form == nullptr ? std::string("no screen\n") : ScreenAsText(*form));
    if (!file.flush()) throw ActionFailed("the file " + path + " can't be written");
  }
};

}  // namespace

std::unique_ptr<UserHands> MakeModelHands() { return std::make_unique<ModelHands>(); }

std::string ScreenAsText(const Form& form) {
  std::string text = form.Name() + " " + Quoted(form.Caption()) + "\n";
  for (const Control* control : form.Controls()) {
    if (!control->EffectivelyVisible()) continue;
    text += "  " + control->FullName() + " " + Shown(OwnValue(*control));
    if (!control->EffectivelyEnabled()) text += " disabled";
    if (form.Focus() == control) text += " focus";
    text += '\n';
    const auto* grid = dynamic_cast<const Grid*>(control);
    if (grid == nullptr || grid->Data() == nullptr || grid->Data()->Window() == nullptr) continue;
    for (const ListRow& row : grid->Data()->Window()->RowsAt(0, 20)) {
      std::string line;
      for (int column = 0; column < grid->ColumnCount(); ++column) {
        const int field = grid->FieldIndexOf(column);
        const bool shown = field >= 0 && static_cast<std::size_t>(field) < row.cells.size();
        line += (column == 0 ? "" : " | ") + (shown ? grid->SeenText(column, row.cells[static_cast<std::size_t>(field)]) : std::string());
      }
      text += "    " + line + "\n";
    }
  }
  return text;
}

}  // namespace robot
