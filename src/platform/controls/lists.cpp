#include "platform/controls/lists.h"

#include <algorithm>

#include "platform/controls/form/form.h"

namespace platform {

void ListBox::AddItem(std::string text) {
  items_.push_back(std::move(text));
  Changed(Aspect::List);
}

void ListBox::Clear() {
  items_.clear();
  listIndex_ = -1;
  Changed(Aspect::List);
}

void ListBox::ListIndex(int index) {
  if (listIndex_ == index) return;
  listIndex_ = index;
  Changed(Aspect::CurrentRow);
  Click.Fire();
}

void ListBox::UserSelect(int index) {
  UserCommand([&] {
    SetFocus();
    listIndex_ = index;
    Changed(Aspect::CurrentRow);
    Click.Fire();
  });
}

void ListBox::UserDblClick() {
  UserCommand([&] { DblClick.Fire(); });
}

void ScrollBar::Min(int min) {
  min_ = min;
  Changed(Aspect::List);
  Value(std::max(value_, min_));
}

void ScrollBar::Max(int max) {
  max_ = max;
  Changed(Aspect::List);
  Value(std::min(value_, max_));
}

void ScrollBar::Value(int value) {
  if (value_ == value) return;
  value_ = value;
  Changed(Aspect::Text);
  Change.Fire();
}

void ScrollBar::UserSlide(int value) {
  UserCommand([&] {
    SetFocus();
    Value(std::clamp(value, min_, max_));
  });
}

void SpinButton::UserSpin(bool up) {
  UserCommand([&] { up ? SpinUp.Fire() : SpinDown.Fire(); });
}

}  // namespace platform
