#include <algorithm>

#include "platform/controls/data_control.h"
#include "platform/values/text.h"
#include "robot/expectations/expectations.h"
#include "robot/language/failure.h"
#include "robot/language/failure_text.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"
#include "robot/stage/lists.h"

// Values: of controls, the host's object, the session, the files.
namespace robot {
namespace {

using platform::Value;

void Demand(const std::string& what, const Value& actual, const Word& wanted) {
  if (!Meets(actual, wanted)) throw Unmet(what + " " + Wanted(wanted), Shown(actual));
}

void OwnOrProperty(Runner& run, const Arguments& words) { Demand(words.Text(0), PropertyOf(Find(run.App(), words.Text(0))), words.At(1)); }

void HostProperty(Runner& run, const Arguments& words) {
  const auto value = run.Host().Object().Get(words.Text(0));
  if (!value) throw ActionFailed("no property " + words.Text(0));
  Demand("host " + words.Text(0), *value, words.At(1));
}

void SessionVariable(Runner& run, const Arguments& words) {
  const auto value = run.Around().sessionValue ? run.Around().sessionValue(words.Text(0)) : std::nullopt;
  if (!value) throw ActionFailed("no session variable " + words.Text(0));
  Demand("session " + words.Text(0), *value, words.At(1));
}

void Field(Runner& run, const Arguments& words) {
  platform::DataControl& data = DataOf(run.ControlNamed(words.Text(0)));
  const std::string what = "at " + words.Text(0) + " " + words.Text(1);
  try {
    Demand(what, data.Recordset()->Field(words.Text(1)), words.At(2));
  } catch (const platform::Error& error) {
    throw Unmet(what + " " + Wanted(words.At(2)), ErrorText(error));
  }
}

void StatementValue(Runner& run, const Arguments& words) {
  const std::string what = "value " + words.Text(0) + " " + Quoted(words.Text(1));
  try {
    const auto value = run.Others().ValueOf(words.Text(0), words.Text(1));
    if (value)
      Demand(what, *value, words.At(2));
    else if (!words.Is(2, "none"))
      throw Unmet(what + " " + Wanted(words.At(2)), "none");
  } catch (const platform::Error& error) {
    throw Unmet(what + " " + Wanted(words.At(2)), ErrorText(error));
  }
}

void Source(Runner& run, const Arguments& words) {
  Demand("source " + words.Text(0), Value(DataOf(run.ControlNamed(words.Text(0))).RecordSource()), words.At(1));
}

void Tip(Runner& run, const Arguments& words) {
  Demand("tip " + words.Text(0), Value(run.ControlNamed(words.Text(0)).ToolTipText()), words.At(1));
}

void Passed(Runner& run, const Arguments& words) {
  const std::vector<std::string> was = run.Records().Passed(run.ControlNamed(words.Text(0)));
  const std::vector<Word> wanted = words.From(1);
  const bool met = std::equal(was.begin(), was.end(), wanted.begin(), wanted.end(), MeetsText);
  if (!met) throw Unmet("passed " + words.Text(0) + " " + WantedList(wanted), ShownList(was));
}

void Reloaded(Runner& run, const Arguments& words) {
  const int times = run.Records().Reloads(DataOf(run.ControlNamed(words.Text(0))));
  Demand("reloaded " + words.Text(0), Value(static_cast<std::int32_t>(times)), words.At(1));
}

}  // namespace

ExpectationList ValueExpectations() {
  return {
      {"", 2, 2, OwnOrProperty}, {"host", 2, 2, HostProperty},      {"session", 2, 2, SessionVariable},
      {"at", 3, 3, Field},       {"value", 3, 3, StatementValue},   {"source", 2, 2, Source},
      {"tip", 2, 2, Tip},        {"passed", 1, kAnyNumber, Passed}, {"reloaded", 2, 2, Reloaded},
  };
}

}  // namespace robot
