#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/lists.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/application.h"

namespace platform {

/// The hands of a scripted user: one act each, on a control that the caller has found to be visible, enabled and on the top
/// screen. One implementation acts on the models, the other sends real key and mouse events to the widgets. An act returns
/// when its handlers have ended, or when a screen that it opened has closed.
class UserHands {
 public:
  virtual ~UserHands() = default;

  virtual void Click(Control& control) = 0;
  virtual void DoubleClick(Control& control) = 0;
  virtual void Focus(Control& control) = 0;
  /// Focus, select all (or go to the end), type each character.
  virtual void Type(Control& control, std::string_view text, bool append) = 0;
  /// A key by its name, "Enter", "F5", "Shift+Tab" or the character that it types: the names of keys/key.h, in any order of the
  /// modifiers. A name that no keyboard has is a failure of the act.
  virtual void Key(Control& control, std::string_view key) = 0;
  virtual void Pick(ComboBox& combo, const ComboRow& row) = 0;
  virtual void ClearCombo(ComboBox& combo) = 0;
  virtual void Tab(TabControl& tabs, int tab) = 0;
  virtual void Row(Grid& grid, const Bookmark& row) = 0;
  virtual void Mark(Grid& grid, const std::vector<Bookmark>& rows) = 0;
  virtual void HeadClick(Grid& grid, int column) = 0;
  /// Drags the column (design index) to a visible place.
  virtual void MoveColumn(Grid& grid, int column, int place) = 0;
  /// Opens the cell of the current row, replaces its text, leaves it.
  virtual void Cell(Grid& grid, int column, std::string_view text) = 0;
  virtual void LeaveRow(Grid& grid) = 0;
  virtual void Scroll(Grid& grid, int split, int column) = 0;
  virtual void Choose(ListBox& list, int index) = 0;
  virtual void Slide(ScrollBar& bar, int value) = 0;
  virtual void Spin(SpinButton& spin, bool up) = 0;
  virtual void Hover(Control& control) = 0;
  virtual void HoverForm(Form& form) = 0;
  virtual void CloseForm(Form& form) = 0;

  /// A box that the program shows while the hands hold its answer: shows it where there are windows, presses the button.
  virtual void PressInBox(const std::string& text, int style, const std::string& title, int button) = 0;
  /// Lets posted work end: painting, queued commands.
  virtual void Settle() = 0;
  /// A picture (PNG), or the screen as text where there are no windows.
  virtual void Screenshot(Form* form, const std::string& path) = 0;
};

}  // namespace platform
