#include "platform/values/text.h"
#include "robot/commands/commands.h"
#include "robot/expectations/expectations.h"
#include "robot/language/arguments.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

namespace robot {
namespace {

Outcome Expect(Runner& run, const Arguments& words) {
  std::size_t taken = 0;
  const ExpectationDefinition& definition = FindExpectation(words, taken);
  definition.handler(run, Arguments(words.From(taken)));
  return Outcome::Done;
}

std::string ExpectMistake(const Arguments& words) {
  std::size_t taken = 0;
  const ExpectationDefinition& definition = FindExpectation(words, taken);
  const std::string name = taken == 0 ? "expect" : "expect " + std::string(definition.name);
  return CountMistake(name, static_cast<int>(words.Count() - taken), definition.least, definition.most);
}

/// "at yield N COMMAND", "at box COMMAND".
bool IsAt(const Arguments& words, std::string_view moment) { return words.Count() > 0 && platform::EqualsNoCase(words.Text(0), moment); }

int BeforeCommandAt(const Arguments& words) { return IsAt(words, "yield") ? 2 : 1; }

std::string AtMistake(const Arguments& words) {
  if (IsAt(words, "box")) return "";
  if (!IsAt(words, "yield")) return "at is followed by yield or box";
  const auto number = words.WholeNumber(1);
  if (!number || *number < 1) return "at yield takes the yield's number, from 1";
  return words.Count() > 2 ? "" : "at yield takes a command";
}

Outcome At(Runner& run, const Arguments& words) {
  const int yield = IsAt(words, "box") ? 0 : words.Number(1);
  run.Interrupted().Wait({run.Records().Line(), yield, words.From(static_cast<std::size_t>(BeforeCommandAt(words)))});
  return Outcome::Done;
}

int BeforeCommandRefused(const Arguments&) { return 0; }

Outcome RefusedAct(Runner& run, const Arguments& words) {
  bool refused = false;
  try {
    refused = run.Perform(words.Words()) == Outcome::StayedAsItWas;
  } catch (const Refused&) {
    refused = true;
  }
  if (!refused) throw Unmet("a refusal of " + Written(words.Words()), "done");
  return Outcome::Done;
}

Outcome Print(Runner& run, const Arguments& words) {
  if (words.Count() == 2) {
    if (!words.Is(0, "host")) throw ActionFailed("no NAME or host PROPERTY");
    const auto value = run.Host().Object().Get(words.Text(1));
    if (!value) throw ActionFailed("no property " + words.Text(1));
    run.Out() << TextOf(*value) << '\n' << std::flush;
  } else {
    run.Out() << TextOf(PropertyOf(Find(run.App(), words.Text(0)))) << '\n' << std::flush;
  }
  return Outcome::Done;
}

Outcome Screenshot(Runner& run, const Arguments& words) {
  run.Hands().Screenshot(run.App().ActiveForm(), words.Text(0));
  return Outcome::Done;
}

}  // namespace

CommandList FrameCommands() {
  constexpr auto kAround = CommandKind::Around;
  return {
      {.name = "expect", .least = 1, .most = kAnyNumber, .kind = CommandKind::Expectation, .handler = Expect, .mistake = ExpectMistake},
      {.name = "at", .least = 2, .most = kAnyNumber, .kind = kAround, .handler = At, .mistake = AtMistake, .before = BeforeCommandAt},
      {.name = "refused", .least = 1, .most = kAnyNumber, .kind = kAround, .handler = RefusedAct, .before = BeforeCommandRefused},
      {.name = "print", .least = 1, .most = 2, .handler = Print},
      {.name = "screenshot", .least = 1, .most = 1, .handler = Screenshot},
  };
}

}  // namespace robot
