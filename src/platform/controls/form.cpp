#include "platform/controls/form.h"

#include <algorithm>

#include "platform/application.h"
#include "platform/controls/buttons.h"
#include "platform/controls/grid.h"
#include "platform/text.h"

namespace platform {

Form::Form(Application& application, std::string name, std::string caption)
    : application_(application), name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() { destroying_ = true; }

void Form::Caption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  application_.Changed(*this, nullptr, Aspect::Text);
}

Control* Form::Find(std::string_view name, int index) const {
  for (Control* control : controls_)
    if (control->Index() == index && EqualsNoCase(control->Name(), name)) return control;
  return nullptr;
}

void Form::Register(Control& control) { controls_.push_back(&control); }

void Form::Unregister(Control& control) {
  if (focus_ == &control) focus_ = nullptr;
  if (wantedFocus_ == &control) wantedFocus_ = nullptr;
  std::erase(controls_, &control);
}

void Form::MoveFocus(Control* to) {
  if (focusMoving_) {
    wantedFocus_ = to;
    focusWanted_ = true;
    return;
  }
  if (to == focus_) {
    // Whoever shows it takes this as a new beginning: a refused entry is selected as a whole.
    if (to && loaded_) application_.Changed(*this, to, Aspect::Focus);
    return;
  }
  struct Moving {
    bool& flag;
    explicit Moving(bool& moving) : flag(moving) { flag = true; }
    ~Moving() { flag = false; }
  };
  {
    Moving moving(focusMoving_);
    Control* from = focus_;
    focus_ = to;
    // Events of their own: one that fails is told and ends there, so that whoever moved the focus (a tab that was turned, a
    // procedure) goes on as if it had not failed.
    const auto fire = [this](Event<>& event) {
      try {
        event.Fire();
      } catch (const Error& error) {
        application_.Unhandled(error);
      }
    };
    if (from) fire(from->LostFocus);
    if (to) fire(to->GotFocus);
    if (loaded_) application_.Changed(*this, to, Aspect::Focus);
  }
  if (!focusWanted_) return;
  focusWanted_ = false;
  Control* wanted = std::exchange(wantedFocus_, nullptr);
  if (!wanted || (wanted->EffectivelyVisible() && wanted->EffectivelyEnabled())) MoveFocus(wanted);
}

namespace {

/// A group of choices is one stop: the choice that is on, or its first one while none is. The arrow keys go through the others.
bool PassedOver(const Control& control) {
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  if (!option || option->Value()) return false;
  for (const Control* other : control.Owner().Controls()) {
    const auto* sibling = dynamic_cast<const OptionButton*>(other);
    if (!sibling || sibling == option || sibling->Name() != option->Name()) continue;
    if (!sibling->EffectivelyVisible() || !sibling->EffectivelyEnabled()) continue;
    if (sibling->Value() || sibling->Index() < option->Index()) return true;
  }
  return false;
}

}  // namespace

Control* Form::NextInTabOrder(const Control* from, bool backwards) const {
  const auto count = controls_.size();
  if (count == 0) return nullptr;
  auto at = static_cast<std::size_t>(std::find(controls_.begin(), controls_.end(), from) - controls_.begin());
  if (at == count) at = backwards ? 0 : count - 1;
  for (std::size_t step = 0; step < count; ++step) {
    at = backwards ? (at + count - 1) % count : (at + 1) % count;
    Control* control = controls_[at];
    if (PassedOver(*control)) continue;
    if (control != from && control->TakesFocus() && control->EffectivelyVisible() && control->EffectivelyEnabled()) return control;
  }
  return nullptr;
}

void Form::CheckFocus() {
  if (!focus_ || destroying_) return;
  if (focus_->EffectivelyVisible() && focus_->EffectivelyEnabled()) return;
  MoveFocus(NextInTabOrder(focus_));
}

void Form::UserFocus(Control& control) {
  Act([&] {
    if (focus_ == &control || TakeOpenCells()) control.SetFocus();
  });
}

bool Form::TakeOpenCells() {
  const std::vector<Control*> controls = controls_;
  return std::all_of(controls.begin(), controls.end(), [](Control* control) {
    auto* grid = dynamic_cast<Grid*>(control);
    return !grid || grid->TakeOpenCell();
  });
}

void Form::UserClose() { application_.Close(*this); }

void Form::Act(const std::function<void()>& body) { application_.Act(*this, body); }

void Form::UserCommand(const std::function<void()>& body) {
  Act([&] {
    if (TakeOpenCells()) body();
  });
}

}  // namespace platform
