#pragma once

#include <string>
#include <vector>

#include "platform/controls/form/control.h"

namespace platform {

/// A plain list of lines. The user's choice fires Click.
class ListBox final : public Control {
 public:
  using Control::Control;
  const std::vector<std::string>& Items() const noexcept { return items_; }
  void AddItem(std::string text);
  void Clear();
  int ListIndex() const noexcept { return listIndex_; }
  void ListIndex(int index);
  bool TakesFocus() const override { return true; }
  Event<> Click;
  Event<> DblClick;
  void UserSelect(int index);
  void UserDblClick();

 private:
  std::vector<std::string> items_;
  int listIndex_ = -1;
};

/// A scroll bar: Change when the value really changes. Setting Max fires nothing unless it changes the value.
class ScrollBar final : public Control {
 public:
  using Control::Control;
  int Min() const noexcept { return min_; }
  int Max() const noexcept { return max_; }
  int Value() const noexcept { return value_; }
  void Min(int min);
  void Max(int max);
  void Value(int value);
  bool TakesFocus() const override { return true; }
  Event<> Change;
  void UserSlide(int value);

 private:
  int min_ = 0;
  int max_ = 100;
  int value_ = 0;
};

/// A pair of arrows.
class SpinButton final : public Control {
 public:
  using Control::Control;
  Event<> SpinUp;
  Event<> SpinDown;
  void UserSpin(bool up);
};

}  // namespace platform
