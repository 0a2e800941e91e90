#include "robot/runner/scripted_stage.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/controls/data_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/report_control.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

namespace robot {

void ScriptedStage::RunModal(platform::Form& form, const std::function<bool()>& done) {
  if (!runner_.RunUntil(done, form.Name())) CloseWithoutSaving(form);
}

void ScriptedStage::CloseWithoutSaving(platform::Form& form) {
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
  form.Act([&] { runner_.App().Unload(form); });
}

void ScriptedStage::Yielded() {
  if (runner_.Ended() || runner_.InsideAnother()) return;
  for (const Interruptions::Waiting& one : runner_.Interrupted().AtYield()) runner_.RunInside(one);
}

int ScriptedStage::Box(const std::string& text, int style, const std::string& title) {
  if (runner_.Ended()) return Answers::Harmless(style);
  runner_.Records().Box(text, style, title);
  ++boxesUp_;
  if (!runner_.InsideAnother())
    for (const Interruptions::Waiting& one : runner_.Interrupted().AtBox()) runner_.RunInside(one);
  const Answers::Pressed pressed = runner_.Queued().PressIn(style);
  if (!pressed.missing.empty()) runner_.Missing(pressed.missing, "the box " + Quoted(text));
  if (!runner_.Ended()) runner_.Hands().PressInBox(text, style, title, pressed.button);
  --boxesUp_;
  return pressed.button;
}

std::optional<platform::PrinterChoice> ScriptedStage::PrinterDialog() {
  if (runner_.Ended()) return std::nullopt;
  runner_.Records().Dialog("Printer");
  std::optional<platform::PrinterChoice> choice;
  if (!runner_.Queued().TakePrinter(choice)) runner_.Missing("an answer printer", "the printer dialog");
  return choice;
}

std::string ScriptedStage::DefaultPrinter() { return runner_.Queued().DefaultPrinter(); }

bool ScriptedStage::Progress(const platform::ProgressState& state) {
  runsAt_ = state.done;
  if (runner_.Ended()) return true;
  return !runner_.Queued().TakeStop(state.done);
}

void ScriptedStage::ProgressEnds() {
  const std::int64_t done = std::exchange(runsAt_, -1);
  if (runner_.Ended() || !runner_.Queued().StopWaits()) return;
  runner_.Missing("a run as long as its answer stop", std::to_string(std::max<std::int64_t>(done, 0)) + " in all");
}

void ScriptedStage::PointerChanged(int pointer) { runner_.Records().Pointer(pointer); }

void ScriptedStage::FormLoaded(platform::Form& form) {
  for (const platform::Control* control : form.Controls()) runner_.Records().ShowsAtFirst(*control, TextOf(OwnValue(*control)));
}

void ScriptedStage::FormUnloaded(platform::Form& form) {
  for (const platform::Control* control : form.Controls()) {
    runner_.Records().Forget(*control);
    // The next screen's may stand at the same place in memory.
    if (const auto* report = dynamic_cast<const platform::ReportControl*>(control)) runner_.Reports().runs.erase(&report->Job);
  }
}

void ScriptedStage::ControlChanged(platform::Control& control, platform::Aspect aspect) {
  if (aspect != platform::Aspect::Text && aspect != platform::Aspect::Tab) return;
  if (const auto* bar = dynamic_cast<const platform::StatusBar*>(&control)) runner_.Records().Status(bar->Panel(1));
  runner_.Records().Showed(control, TextOf(OwnValue(control)));
}

}  // namespace robot
