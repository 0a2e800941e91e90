#include <algorithm>

#include "platform/values/text.h"
#include "robot/expectations/expectations.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

// What the user sees of the screens: which are up, what is open, focus, status, pointer.
namespace robot {
namespace {

using namespace platform;

void State(const std::string& name, const char* wanted, bool met, const char* was) {
  if (!met) throw Unmet(std::string(wanted) + " " + name, was);
}

void IsEnabled(Runner& run, const Arguments& words) {
  State(words.Text(0), "enabled", run.ControlNamed(words.Text(0)).EffectivelyEnabled(), "disabled");
}
void IsDisabled(Runner& run, const Arguments& words) {
  State(words.Text(0), "disabled", !run.ControlNamed(words.Text(0)).EffectivelyEnabled(), "enabled");
}
void IsVisible(Runner& run, const Arguments& words) {
  State(words.Text(0), "visible", run.ControlNamed(words.Text(0)).EffectivelyVisible(), "hidden");
}
void IsHidden(Runner& run, const Arguments& words) {
  State(words.Text(0), "hidden", !run.ControlNamed(words.Text(0)).EffectivelyVisible(), "visible");
}

void HasFocus(Runner& run, const Arguments& words) {
  const Control& control = run.ControlNamed(words.Text(0));
  const Control* focus = control.Owner().Focus();
  if (focus != &control) throw Unmet("focus " + words.Text(0), focus == nullptr ? "nowhere" : focus->FullName());
}

bool ToolbarReady(const Runner& run) {
  const auto ready = run.Around().toolbarReady ? run.Around().toolbarReady() : std::nullopt;
  if (!ready) throw ActionFailed("no main screen");
  return *ready;
}
void IsReady(Runner& run, const Arguments&) {
  if (!ToolbarReady(run)) throw Unmet("ready", "not ready");
}
void IsNotReady(Runner& run, const Arguments&) {
  if (ToolbarReady(run)) throw Unmet("not ready", "ready");
}

void TopScreen(Runner& run, const Arguments& words) {
  const Form* top = run.App().ActiveForm();
  const std::string was = top == nullptr ? "none" : top->Name();
  if (!EqualsNoCase(was, words.Text(0))) throw Unmet("screen " + words.Text(0), was);
}

void IsLoaded(Runner& run, const Arguments& words) {
  if (LoadedForm(run.App(), words.Text(0)) == nullptr) throw Unmet("loaded " + words.Text(0), "not loaded");
}
void IsNotLoaded(Runner& run, const Arguments& words) {
  if (LoadedForm(run.App(), words.Text(0)) != nullptr) throw Unmet("not loaded " + words.Text(0), "loaded");
}

void Status(Runner& run, const Arguments& words) {
  const Form* top = run.App().ActiveForm();
  if (top == nullptr) throw Unmet("status " + Wanted(words.At(0)), "no screen");
  const auto status = StatusText(top);
  if (!status) throw Unmet("status " + Wanted(words.At(0)), "no status bar on " + top->Name());
  if (!MeetsText(*status, words.At(0))) throw Unmet("status " + Wanted(words.At(0)), Quoted(*status));
}

bool WasSaid(Runner& run, const Word& wanted) {
  const auto& said = run.Records().Said();
  return std::any_of(said.begin(), said.end(), [&](const std::string& text) { return MeetsText(text, wanted); });
}
void Said(Runner& run, const Arguments& words) {
  if (!WasSaid(run, words.At(0))) throw Unmet("said " + Wanted(words.At(0)), ShownList(run.Records().Said()));
}
void NotSaid(Runner& run, const Arguments& words) {
  if (WasSaid(run, words.At(0))) throw Unmet("not said " + Wanted(words.At(0)), "said");
}

void PointerNow(Runner& run, const Arguments& words) {
  const int pointer = run.App().MousePointer();
  if (pointer != words.Number(0)) throw Unmet("pointer " + words.Text(0), std::to_string(pointer));
}
std::string PointersShown(Runner& run) {
  std::string all;
  for (const int pointer : run.Records().Pointed()) all += (all.empty() ? "" : " ") + std::to_string(pointer);
  return all;
}
void Pointed(Runner& run, const Arguments& words) {
  if (!run.Records().Pointed().contains(words.Number(0))) throw Unmet("pointed " + words.Text(0), PointersShown(run));
}
void NotPointed(Runner& run, const Arguments& words) {
  if (run.Records().Pointed().contains(words.Number(0))) throw Unmet("not pointed " + words.Text(0), PointersShown(run));
}

}  // namespace

ExpectationList ScreenExpectations() {
  return {
      {"enabled", 1, 1, IsEnabled}, {"disabled", 1, 1, IsDisabled},    {"visible", 1, 1, IsVisible},    {"hidden", 1, 1, IsHidden},
      {"focus", 1, 1, HasFocus},    {"ready", 0, 0, IsReady},          {"not ready", 0, 0, IsNotReady}, {"screen", 1, 1, TopScreen},
      {"loaded", 1, 1, IsLoaded},   {"not loaded", 1, 1, IsNotLoaded}, {"status", 1, 1, Status},        {"said", 1, 1, Said},
      {"not said", 1, 1, NotSaid},  {"pointer", 1, 1, PointerNow},     {"pointed", 1, 1, Pointed},      {"not pointed", 1, 1, NotPointed},
  };
}

}  // namespace robot
