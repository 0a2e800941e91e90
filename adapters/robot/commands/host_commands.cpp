#include <cstdint>
#include <limits>

#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/interpreter.h"

namespace robot {
namespace {

/// Statements of other users follow the host's company and user. A number that no property can hold is refused there.
void FollowHost(Interpreter& run, const std::string& property, const std::string& value) {
  using Limits = std::numeric_limits<std::int32_t>;
  double number = 0;
  if (!PlainNumber(value, number) || number < Limits::min() || number > Limits::max()) return;
  if (platform::EqualsNoCase(property, "CompanyID")) run.Others().Company(static_cast<std::int32_t>(number));
  if (platform::EqualsNoCase(property, "UserID")) run.Others().User(static_cast<std::int32_t>(number));
}

Outcome Host(Interpreter& run, const Arguments& words) {
  if (words.Is(0, "ShowUser")) {
    run.ShowUser();
  } else if (words.Is(0, "release")) {
    run.ReleaseHost();
  } else {
    FollowHost(run, words.Text(0), words.Text(1));
    try {
      if (!run.Host().Let(words.Text(0), platform::Value(words.Text(1)))) throw ActionFailed("no property " + words.Text(0));
    } catch (const platform::Error& error) {
      run.Records().Unhandled(error, false);
    }
    run.KeepUnreached();
  }
  return Outcome::Done;
}

Outcome Today(Interpreter& run, const Arguments& words) {
  run.App().System().SetToday(platform::CDate(platform::Value(words.Text(0)), run.App().ThisYear()));
  return Outcome::Done;
}

Outcome Allow(Interpreter&, const Arguments&) { return Outcome::Done; }

}  // namespace

CommandList HostCommands() {
  return {
      {"host", 1, 2, CommandKind::Act, Host},
      {"today", 1, 1, CommandKind::Other, Today},
      {"allow", 1, 1, CommandKind::Other, Allow},
  };
}

}  // namespace robot
