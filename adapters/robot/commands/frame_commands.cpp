#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/interpreter.h"

namespace robot {
namespace {

Outcome Expect(Interpreter& run, const Arguments& words) {
  std::size_t taken = 0;
  const ExpectationDefinition& definition = FindExpectation(words.Words(), 0, taken);
  definition.handler(run, Arguments(words.From(taken)));
  return Outcome::Done;
}

Outcome At(Interpreter& run, const Arguments& words) {
  if (words.Is(0, "box"))
    run.AtBox(words.From(1));
  else
    run.AtYield(words.Number(1), words.From(2));
  return Outcome::Done;
}

Outcome RefusedAct(Interpreter& run, const Arguments& words) {
  bool refused = false;
  try {
    refused = run.Perform(words.Words()) == Outcome::StayedAsItWas;
  } catch (const Refused&) {
    refused = true;
  }
  if (!refused) throw Unmet("a refusal of " + Written(words.Words()), "done");
  return Outcome::Done;
}

Outcome Print(Interpreter& run, const Arguments& words) {
  if (words.Count() == 2) {
    if (!words.Is(0, "host")) throw ActionFailed("no NAME or host PROPERTY");
    const auto value = run.Host().Get(words.Text(1));
    if (!value) throw ActionFailed("no property " + words.Text(1));
    run.Out() << TextOf(*value) << '\n' << std::flush;
  } else {
    run.Out() << TextOf(PropertyOf(Find(run.App(), words.Text(0)))) << '\n' << std::flush;
  }
  return Outcome::Done;
}

Outcome Screenshot(Interpreter& run, const Arguments& words) {
  run.Hands().Screenshot(run.App().ActiveForm(), words.Text(0));
  return Outcome::Done;
}

}  // namespace

CommandList FrameCommands() {
  return {
      {"expect", 1, -1, CommandKind::Other, Expect},        {"at", 2, -1, CommandKind::Around, At},
      {"refused", 1, -1, CommandKind::Around, RefusedAct},  {"print", 1, 2, CommandKind::Other, Print},
      {"screenshot", 1, 1, CommandKind::Other, Screenshot},
  };
}

}  // namespace robot
