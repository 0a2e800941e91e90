#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/host/application.h"
#include "platform/host/user_hands.h"
#include "robot/language/failure.h"
#include "robot/language/script.h"
#include "robot/recorders/doubles.h"
#include "robot/recorders/journal.h"
#include "robot/runner/answers.h"
#include "robot/runner/host_desk.h"
#include "robot/runner/interruptions.h"
#include "robot/runner/others.h"
#include "robot/runner/scripted_stage.h"
#include "robot/runner/surroundings.h"
#include "robot/stage/lookup.h"

namespace robot {

/// Runs a scenario: performs its commands one after the other and tells what does not hold. FillIn gives an application the
/// parts of a scripted user; then Attach, then Run. It must outlive the application.
class Runner {
 public:
  /// `out` gets the failures and what `print` shows.
  Runner(Script script, const Vocabulary& vocabulary, Surroundings surroundings, std::ostream& out);

  /// Puts its recorders in the place of log, reports, map and accounts, and the script between the program and the front end
  /// that shows the screens (none: nothing is shown).
  void FillIn(platform::ApplicationParts& parts);
  void Attach(platform::Application& app, platform::UserHands& hands);

  /// The exit status: 0 when every expectation held, 1 when not.
  int Run();

  // For the commands.
  platform::Application& App() const { return *app_; }
  platform::UserHands& Hands() const { return *hands_; }
  const Surroundings& Around() const noexcept { return surroundings_; }
  Journal& Records() noexcept { return journal_; }
  OtherUsers& Others() noexcept { return others_; }
  ReportRecorder& Reports() noexcept { return reports_; }
  MapRecorder& Map() noexcept { return map_; }
  AccountsRecorder& Accounts() noexcept { return accounts_; }
  HostDesk& Host() noexcept { return host_; }
  Answers& Queued() noexcept { return answers_; }
  Interruptions& Interrupted() noexcept { return interruptions_; }
  std::ostream& Out() noexcept { return out_; }
  /// The control of that name; raises ActionFailed for a name that names none, or one of its properties.
  platform::Control& ControlNamed(const std::string& name) const;
  /// The same, and the user can act on it now.
  platform::Control& Usable(const std::string& name) const;
  /// The same as a control of kind T; raises ActionFailed for another kind.
  template <class T>
  T& UsableAs(const std::string& name, const char* kind) const {
    auto* control = dynamic_cast<T*>(&ControlNamed(name));
    if (control == nullptr) throw ActionFailed(name + " no " + kind);
    DemandUsable(*app_, *control);
    return *control;
  }
  /// Runs one command as a part of another; its failures reach the caller.
  Outcome Perform(const std::vector<Word>& words);
  /// A command of `at ...` is running, or one of its own.
  bool InsideAnother() const noexcept { return inside_ > 0; }

  // For the stage.
  /// The run is over before the script is: a command failed, or nobody answered.
  bool Ended() const noexcept { return ended_; }
  /// Runs further commands until `done`; false when the run ended before. A script that is over is a failure, told with the
  /// screen that is still up.
  bool RunUntil(const std::function<bool()>& done, const std::string& screen);
  void RunInside(const Interruptions::Waiting& one);
  /// The scenario should have said `expected`; that ends the run.
  void Missing(const std::string& expected, const std::string& was);

 private:
  void RunNext();
  void RunWords(int line, const std::vector<Word>& words);
  void BeginAct();
  void Tell(const std::vector<Interruptions::Missed>& missed);
  void Fail(int line, const std::string& expected, const std::string& was);
  void Fail(int line, const std::string& message);
  void StepFailed(int line, const std::vector<Word>& words, const std::string& was);
  void Finish();

  Script script_;
  const Vocabulary& vocabulary_;
  Surroundings surroundings_;
  std::ostream& out_;
  Journal journal_;
  ReportRecorder reports_;
  MapRecorder map_;
  AccountsRecorder accounts_;
  OtherUsers others_;
  HostDesk host_;
  Answers answers_;
  Interruptions interruptions_;
  ScriptedStage stage_;
  platform::Application* app_ = nullptr;
  platform::UserHands* hands_ = nullptr;

  std::size_t next_ = 0;
  bool ended_ = false;
  int failures_ = 0;
  int inside_ = 0;  ///< commands of `at ...` on the stack
};

}  // namespace robot
