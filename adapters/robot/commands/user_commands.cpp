#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/lists.h"
#include "platform/controls/text_box.h"
#include "robot/commands/commands.h"
#include "robot/language/arguments.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

namespace robot {
namespace {

using namespace platform;

Outcome Click(Runner& run, const Arguments& words) {
  run.Hands().Click(run.Usable(words.Text(0)));
  return Outcome::Done;
}

Outcome DoubleClick(Runner& run, const Arguments& words) {
  run.Hands().DoubleClick(run.Usable(words.Text(0)));
  return Outcome::Done;
}

Outcome SetCheck(Runner& run, const Arguments& words, int value) {
  auto& box = run.UsableAs<CheckBox>(words.Text(0), "check box");
  if (box.Value() != value) run.Hands().Click(box);
  return Outcome::Done;
}

Outcome Check(Runner& run, const Arguments& words) { return SetCheck(run, words, 1); }
Outcome Uncheck(Runner& run, const Arguments& words) { return SetCheck(run, words, 0); }

/// The text of `type`: plain, or "repeat N TEXT".
std::string TypedText(const Arguments& words) {
  if (words.Count() == 2) return words.Text(1);
  if (words.Count() != 4 || !words.Is(1, "repeat")) throw ActionFailed("no TEXT or repeat N TEXT");
  std::string text;
  for (int i = words.Number(2); i > 0; --i) text += words.Text(3);
  return text;
}

/// A cell that was refused keeps the focus: what was meant for another control did not get there.
Outcome FocusOutcome(const Control& control) {
  for (const Control* other : control.Owner().Controls()) {
    const auto* grid = dynamic_cast<const Grid*>(other);
    if (grid && grid != &control && grid->OpenCell()) return Outcome::StayedAsItWas;
  }
  return Outcome::Done;
}

Outcome TypeInto(Runner& run, const Arguments& words, bool append) {
  Control& control = run.Usable(words.Text(0));
  auto* box = dynamic_cast<TextBox*>(&control);
  if (box == nullptr && dynamic_cast<ComboBox*>(&control) == nullptr) throw ActionFailed(words.Text(0) + " no text to type");
  if (box != nullptr && box->Locked()) throw Refused(words.Text(0) + " locked");
  run.Hands().Type(control, TypedText(words), append);
  return FocusOutcome(control);
}

Outcome Type(Runner& run, const Arguments& words) { return TypeInto(run, words, false); }
Outcome Append(Runner& run, const Arguments& words) { return TypeInto(run, words, true); }

Outcome Put(Runner& run, const Arguments& words) {
  Control& control = run.Usable(words.Text(0));
  const std::string& text = words.Text(1);
  if (auto* box = dynamic_cast<TextBox*>(&control))
    control.Owner().Act([&] { box->Text(text); });
  else if (auto* combo = dynamic_cast<ComboBox*>(&control))
    control.Owner().Act([&] { combo->Text(text); });
  else
    throw ActionFailed(words.Text(0) + " no text to put in");
  return Outcome::Done;
}

Control& UsableWithFocus(const Runner& run, const std::string& name) {
  Control& control = run.ControlNamed(name);
  if (!control.TakesFocus()) throw ActionFailed(name + " without the focus at any time");
  DemandUsable(run.App(), control);
  return control;
}

Outcome Key(Runner& run, const Arguments& words) {
  Control& control = UsableWithFocus(run, words.Text(0));
  run.Hands().Key(control, words.Text(1));
  return FocusOutcome(control);
}

Outcome Focus(Runner& run, const Arguments& words) {
  Control& control = UsableWithFocus(run, words.Text(0));
  run.Hands().Focus(control);
  return FocusOutcome(control);
}

Outcome Pick(Runner& run, const Arguments& words) {
  auto& combo = run.UsableAs<ComboBox>(words.Text(0), "combo");
  const bool byKey = words.Count() == 3;
  if (byKey && !words.Is(1, "key")) throw ActionFailed("no TEXT or key KEY");
  const Word& wanted = words.At(byKey ? 2 : 1);
  if (!byKey && wanted.text.empty()) {
    run.Hands().ClearCombo(combo);
    return Outcome::Done;
  }
  for (const ComboRow& row : combo.Rows()) {
    if (byKey ? !Meets(row.key, wanted) : row.shown != wanted.text) continue;
    run.Hands().Pick(combo, row);
    return Outcome::Done;
  }
  throw Refused("no row " + wanted.text + " of " + words.Text(0));
}

Outcome Tab(Runner& run, const Arguments& words) {
  auto& tabs = run.UsableAs<TabControl>(words.Text(0), "tabs");
  const int tab = words.Number(1);
  if (tab < 0 || tab >= tabs.TabCount()) throw ActionFailed("no tab " + words.Text(1));
  run.Hands().Tab(tabs, tab);
  return tabs.Tab() == tab ? Outcome::Done : Outcome::StayedAsItWas;
}

Outcome Slide(Runner& run, const Arguments& words) {
  auto& bar = run.UsableAs<ScrollBar>(words.Text(0), "scroll bar");
  const int value = words.Number(1);
  if (value < bar.Min() || value > bar.Max())
    throw Refused(words.Text(0) + " from " + std::to_string(bar.Min()) + " to " + std::to_string(bar.Max()));
  run.Hands().Slide(bar, value);
  return Outcome::Done;
}

Outcome Spin(Runner& run, const Arguments& words) {
  auto& spin = run.UsableAs<SpinButton>(words.Text(0), "spin pair");
  if (!words.Is(1, "up") && !words.Is(1, "down")) throw ActionFailed("no up or down");
  run.Hands().Spin(spin, words.Is(1, "up"));
  return Outcome::Done;
}

Outcome Hover(Runner& run, const Arguments& words) {
  const Named named = Find(run.App(), words.Text(0));
  if (!named.property.empty()) throw ActionFailed("no control " + words.Text(0));
  if (named.control != nullptr) {
    DemandVisible(run.App(), *named.control);
    run.Hands().Hover(*named.control);
  } else {
    if (named.form != run.App().ActiveForm()) throw Refused(words.Text(0) + " not the top screen");
    run.Hands().HoverForm(*named.form);
  }
  return Outcome::Done;
}

Outcome Close(Runner& run, const Arguments&) {
  Form* form = run.App().ActiveForm();
  if (form == nullptr) throw Refused("no screen up");
  run.Hands().CloseForm(*form);
  return Outcome::Done;
}

Outcome Pin(Runner& run, const Arguments& words) {
  run.Usable(words.Text(0));
  for (const MapPin& pin : run.Map().pins) {
    if (pin.key != words.Text(1)) continue;
    if (run.Map().engine != nullptr && run.Map().engine->OnPinClicked) run.Map().engine->OnPinClicked(pin.key);
    return Outcome::Done;
  }
  throw Refused("no pin " + words.Text(1));
}

}  // namespace

CommandList UserCommands() {
  constexpr auto kAct = CommandKind::Act;
  return {
      {"click", 1, 1, kAct, Click}, {"dblclick", 1, 1, kAct, DoubleClick},
      {"check", 1, 1, kAct, Check}, {"uncheck", 1, 1, kAct, Uncheck},
      {"type", 2, 4, kAct, Type},   {"append", 2, 2, kAct, Append},
      {"put", 2, 2, kAct, Put},     {"key", 2, 2, kAct, Key},
      {"focus", 1, 1, kAct, Focus}, {"pick", 2, 3, kAct, Pick},
      {"tab", 2, 2, kAct, Tab},     {"slide", 2, 2, kAct, Slide},
      {"spin", 2, 2, kAct, Spin},   {"hover", 1, 1, kAct, Hover},
      {"close", 0, 0, kAct, Close}, {"pin", 2, 2, kAct, Pin},
  };
}

}  // namespace robot
