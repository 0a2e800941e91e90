#include "platform/controls/form/form.h"

#include <algorithm>

#include "platform/controls/form/form_host.h"
#include "platform/values/text.h"

namespace platform {

Form::Form(FormHost& host, std::string name, std::string caption) : host_(host), name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() { destroying_ = true; }

void Form::Caption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  host_.Changed(*this, nullptr, Aspect::Text);
}

Control* Form::Find(std::string_view name, int index) const {
  for (Control* control : controls_)
    if (control->Index() == index && EqualsNoCase(control->Name(), name)) return control;
  return nullptr;
}

void Form::Register(Control& control) { controls_.push_back(&control); }

void Form::TabOrder(const std::vector<Control*>& order) {
  const auto named = [&](const Control* control) { return std::find(order.begin(), order.end(), control) != order.end(); };
  const auto first = std::find_if(controls_.begin(), controls_.end(), named);
  const auto place = first - controls_.begin();
  std::erase_if(controls_, named);
  controls_.insert(controls_.begin() + place, order.begin(), order.end());
}

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
    if (to && loaded_) host_.Changed(*this, to, Aspect::Focus);
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
        host_.Unhandled(error);
      }
    };
    if (from) fire(from->LostFocus);
    if (to) fire(to->GotFocus);
    if (loaded_) host_.Changed(*this, to, Aspect::Focus);
  }
  if (!focusWanted_) return;
  focusWanted_ = false;
  Control* wanted = std::exchange(wantedFocus_, nullptr);
  if (!wanted || wanted->OpenToUser()) MoveFocus(wanted);
}

Control* Form::NextInTabOrder(const Control* from, bool backwards) const {
  const auto count = controls_.size();
  if (count == 0) return nullptr;
  auto at = static_cast<std::size_t>(std::find(controls_.begin(), controls_.end(), from) - controls_.begin());
  if (at == count) at = backwards ? 0 : count - 1;
  for (std::size_t step = 0; step < count; ++step) {
    at = backwards ? (at + count - 1) % count : (at + 1) % count;
    Control* control = controls_[at];
    if (control != from && control->TakesFocus() && control->OpenToUser() && control->IsTabStop()) return control;
  }
  return nullptr;
}

void Form::CheckFocus() {
  if (!focus_ || destroying_) return;
  if (focus_->OpenToUser()) return;
  MoveFocus(NextInTabOrder(focus_));
}

void Form::UserFocus(Control& control) {
  Act([&] {
    if (focus_ == &control || TakeOpenCells()) control.SetFocus();
  });
}

bool Form::TakeOpenCells() {
  const std::vector<Control*> controls = controls_;
  return std::all_of(controls.begin(), controls.end(), [](Control* control) { return control->TakeOpenCell(); });
}

void Form::UserClose() { host_.Close(*this); }

void Form::Act(const std::function<void()>& body) { host_.Act(*this, body); }

void Form::UserCommand(const std::function<void()>& body) {
  if (unloading_) return;  // in a yield of its end a screen is still to be seen
  Act([&] {
    if (TakeOpenCells()) body();
  });
}

}  // namespace platform
