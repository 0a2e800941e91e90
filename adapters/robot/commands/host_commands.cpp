#include <cstdint>
#include <limits>

#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "robot/commands/commands.h"
#include "robot/language/arguments.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

namespace robot {
namespace {

/// Statements of other users follow the host's company and user. A number that no property can hold is refused there.
void FollowHost(Runner& run, const std::string& property, const std::string& value) {
  using Limits = std::numeric_limits<std::int32_t>;
  double number = 0;
  if (!PlainNumber(value, number) || number < Limits::min() || number > Limits::max()) return;
  if (platform::EqualsNoCase(property, "CompanyID")) run.Others().Company(static_cast<std::int32_t>(number));
  if (platform::EqualsNoCase(property, "UserID")) run.Others().User(static_cast<std::int32_t>(number));
}

Outcome Host(Runner& run, const Arguments& words) {
  if (words.Is(0, "ShowUser")) {
    run.Host().ShowUser();
  } else if (words.Is(0, "release")) {
    run.Host().Release();
  } else {
    FollowHost(run, words.Text(0), words.Text(1));
    try {
      if (!run.Host().Object().Let(words.Text(0), platform::Value(words.Text(1)))) throw ActionFailed("no property " + words.Text(0));
    } catch (const platform::Error& error) {
      run.Records().Unhandled(error, false);
    }
    // Setting a property is no act of the user: what waits for one goes on waiting.
    if (!run.InsideAnother()) run.Interrupted().KeepForTheNextAct();
  }
  return Outcome::Done;
}

bool StandsAlone(const Arguments& words) { return words.Is(0, "ShowUser") || words.Is(0, "release"); }

std::string HostMistake(const Arguments& words) {
  const int wanted = StandsAlone(words) ? 0 : 1;
  return CountMistake("host " + words.Text(0), static_cast<int>(words.Count()) - 1, wanted, wanted);
}

Outcome Today(Runner& run, const Arguments& words) {
  run.App().System().SetToday(platform::CDate(platform::Value(words.Text(0)), run.App().ThisYear()));
  return Outcome::Done;
}

Outcome Allow(Runner&, const Arguments&) { return Outcome::Done; }

std::string AllowMistake(const Arguments& words) {
  return platform::EqualsNoCase(words.Text(0), "boxes") ? "" : "allow is followed by boxes";
}

void AllowBoxes(Script& script) { script.allowBoxes = true; }

}  // namespace

CommandList HostCommands() {
  return {
      {.name = "host", .least = 1, .most = 2, .kind = CommandKind::Act, .handler = Host, .mistake = HostMistake},
      {.name = "today", .least = 1, .most = 1, .handler = Today},
      {.name = "allow", .least = 1, .most = 1, .handler = Allow, .mistake = AllowMistake, .tell = AllowBoxes},
  };
}

}  // namespace robot
