#include <algorithm>

#include "platform/controls/data_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "robot/language/value_text.h"
#include "robot/runner/interpreter.h"

/// What the program asks of the user, and what it shows him.
namespace robot {
namespace {

constexpr int kButtonsMask = 7;

/// The buttons that a box of that style has; the last one is the harmless one.
std::vector<int> ButtonsOf(int style) {
  using namespace platform;
  switch (style & kButtonsMask) {
    case 0:
      return {box::Ok};
    case 1:
      return {box::Ok, box::Cancel};
    case 3:
      return {box::Yes, box::No, box::Cancel};
    default:
      return {box::Yes, box::No};
  }
}

std::string ButtonName(int button) {
  switch (button) {
    case platform::box::Ok:
      return "OK";
    case platform::box::Cancel:
      return "Cancel";
    case platform::box::Yes:
      return "Yes";
    default:
      return "No";
  }
}

}  // namespace

void Interpreter::RunModal(platform::Form& form, const std::function<bool()>& done) {
  const int inside = std::exchange(inside_, 0);
  while (!done()) {
    if (!ended_ && next_ == script_.commands.size()) {
      Fail(journal_.Line(), "expected no screen at the end, was " + form.Name());
      End();
    }
    if (ended_) {
      CloseWithoutSaving(form);
      break;
    }
    const Command& command = script_.commands[next_++];
    Execute(command);
  }
  inside_ = inside;
}

void Interpreter::CloseWithoutSaving(platform::Form& form) {
  for (platform::Control* control : form.Controls()) {
    if (auto* grid = dynamic_cast<platform::Grid*>(control)) grid->DropPending();
    auto* data = dynamic_cast<platform::DataControl*>(control);
    if (data == nullptr || !data->HasRecordset()) continue;
    try {
      if (data->Recordset()->Mode() != platform::EditMode::None) data->Recordset()->CancelUpdate();
    } catch (const platform::Error&) {
      // The list goes with its screen.
    }
  }
  form.Act([&] { app_->Unload(form); });
}

void Interpreter::Yielded() {
  if (ended_ || inside_ > 0) return;
  ++yields_;
  const int now = yields_;
  std::vector<Pending> due;
  std::copy_if(active_.begin(), active_.end(), std::back_inserter(due), [&](const Pending& one) { return one.yield == now; });
  std::erase_if(active_, [&](const Pending& one) { return one.yield == now; });
  for (const Pending& one : due) ExecuteInside(one);
}

int Interpreter::Box(const std::string& text, int style, const std::string& title) {
  if (ended_) return ButtonsOf(style).back();
  journal_.Box(text, style, title);
  ++boxesUp_;
  if (inside_ == 0) {
    std::vector<Pending> due;
    std::copy_if(active_.begin(), active_.end(), std::back_inserter(due), [](const Pending& one) { return one.yield == 0; });
    std::erase_if(active_, [](const Pending& one) { return one.yield == 0; });
    for (const Pending& one : due) ExecuteInside(one);
  }
  const int button = ChooseButton(text, style);
  if (!ended_) hands_->PressInBox(text, style, title, button);
  --boxesUp_;
  return button;
}

int Interpreter::ChooseButton(const std::string& text, int style) {
  const std::vector<int> buttons = ButtonsOf(style);
  if (buttons.size() == 1) {
    if (!answers_.empty() && answers_.front() == buttons[0]) answers_.pop_front();
    return buttons[0];
  }
  if (answers_.empty()) {
    Missing("an answer", "the box " + Quoted(text));
    return buttons.back();
  }
  const int answer = answers_.front();
  answers_.pop_front();
  if (std::find(buttons.begin(), buttons.end(), answer) != buttons.end()) return answer;
  Missing("the button " + ButtonName(answer), "the box " + Quoted(text));
  return buttons.back();
}

std::optional<platform::PrinterChoice> Interpreter::PrinterDialog() {
  if (ended_) return std::nullopt;
  journal_.Dialog("Printer");
  if (printerAnswers_.empty()) {
    Missing("an answer printer", "the printer dialog");
    return std::nullopt;
  }
  const auto answer = printerAnswers_.front();
  printerAnswers_.pop_front();
  return answer;
}

void Interpreter::PointerChanged(int pointer) { journal_.Pointer(pointer); }

void Interpreter::FormLoaded(platform::Form& form) {
  for (const platform::Control* control : form.Controls()) journal_.ShowsAtFirst(*control, TextOf(OwnValue(*control)));
}

void Interpreter::FormUnloaded(platform::Form& form) {
  for (const platform::Control* control : form.Controls()) journal_.Forget(*control);
}

void Interpreter::ControlChanged(platform::Control& control, platform::Aspect aspect) {
  if (aspect != platform::Aspect::Text && aspect != platform::Aspect::Tab) return;
  if (const auto* bar = dynamic_cast<const platform::StatusBar*>(&control)) journal_.Status(bar->Panel(1));
  journal_.Showed(control, TextOf(OwnValue(control)));
}

}  // namespace robot
