#pragma once

#include "desktop/window/front_end.h"
#include "platform/host/user_hands.h"

namespace desktop {

class ListView;

/// A scripted user who works with mouse and keyboard events on the windows, and never with the models.
class DesktopHands final : public platform::UserHands {
 public:
  explicit DesktopHands(DesktopFrontEnd& frontEnd) : frontEnd_(frontEnd) {}

  void Click(platform::Control& control) override;
  void DoubleClick(platform::Control& control) override;
  void Focus(platform::Control& control) override;
  void Type(platform::Control& control, std::string_view text, bool append) override;
  void Key(platform::Control& control, std::string_view key) override;
  void Pick(platform::ComboBox& combo, const platform::ComboRow& row) override;
  void ClearCombo(platform::ComboBox& combo) override;
  void Tab(platform::TabControl& tabs, int tab) override;
  void Row(platform::Grid& grid, const platform::Bookmark& row) override;
  void Mark(platform::Grid& grid, const std::vector<platform::Bookmark>& rows) override;
  void HeadClick(platform::Grid& grid, int column) override;
  void MoveColumn(platform::Grid& grid, int column, int place) override;
  void Cell(platform::Grid& grid, int column, std::string_view text) override;
  void LeaveRow(platform::Grid& grid) override;
  void Scroll(platform::Grid& grid, int split, int column) override;
  void Choose(platform::ListBox& list, int index) override;
  void Slide(platform::ScrollBar& bar, int value) override;
  void Spin(platform::SpinButton& spin, bool up) override;
  void Hover(platform::Control& control) override;
  void HoverForm(platform::Form& form) override;
  void CloseForm(platform::Form& form) override;
  void PressInBox(const std::string& text, int style, const std::string& title, int button) override;
  void Settle() override;
  void Screenshot(platform::Form* form, const std::string& path) override;

 private:
  void DropCompletion(platform::Control& control);
  FormWindow& WindowOf(const platform::Control& control) const;
  QWidget& WidgetOf(const platform::Control& control) const;
  ListView& ListOf(const platform::Grid& grid) const;
  /// Shows the row by the scroll bar; its ordinal.
  std::int64_t ScrollTo(ListView& list, const platform::Grid& grid, const platform::Bookmark& row) const;
  void ClickMarker(platform::Grid& grid, const platform::Bookmark& row, Qt::KeyboardModifiers modifiers);
  void OpenCell(platform::Grid& grid, ListView& list, int column, const QRect& cell);
  void DoubleClickCell(platform::Grid& grid);
  bool ClickInBar(platform::Control& control);

  DesktopFrontEnd& frontEnd_;
};

}  // namespace desktop
