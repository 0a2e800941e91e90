#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/host/application.h"
#include "platform/host/user_hands.h"
#include "robot/commands/commands.h"
#include "robot/language/arguments.h"
#include "robot/language/failure.h"
#include "robot/language/script.h"
#include "robot/recorders/doubles.h"
#include "robot/recorders/journal.h"
#include "robot/runner/others.h"
#include "robot/runner/surroundings.h"
#include "robot/stage/lookup.h"
#include "robot/stage/stage.h"

namespace robot {

/// Runs a scenario. The parts that it offers (log, reports, map, accounts) go into the application, together with a
/// ScriptedFrontEnd on this stage; then Attach, then Run. It must outlive the application.
class Interpreter final : public Stage {
 public:
  /// `out` gets the failures and what `print` shows.
  Interpreter(Script script, Surroundings surroundings, std::ostream& out);
  ~Interpreter() override;

  std::unique_ptr<platform::ErrorLog> RecordLog(std::unique_ptr<platform::ErrorLog> inner);
  std::unique_ptr<platform::ReportEngine> MakeReports();
  std::unique_ptr<platform::MapEngine> MakeMap();
  std::unique_ptr<platform::AccountsLookup> MakeAccounts();
  void Attach(platform::Application& app, platform::UserHands& hands);

  /// The exit status: 0 when every expectation held, 1 when not.
  int Run();

  // From the scripted front end.
  void RunModal(platform::Form& form, const std::function<bool()>& done) override;
  void Yielded() override;
  int Box(const std::string& text, int style, const std::string& title) override;
  std::optional<platform::PrinterChoice> PrinterDialog() override;
  void PointerChanged(int pointer) override;
  void FormLoaded(platform::Form& form) override;
  void FormUnloaded(platform::Form& form) override;
  void ControlChanged(platform::Control& control, platform::Aspect aspect) override;

  // For the commands.
  platform::Application& App() const { return *app_; }
  platform::UserHands& Hands() const { return *hands_; }
  const Surroundings& Around() const noexcept { return surroundings_; }
  Journal& Records() noexcept { return journal_; }
  OtherUsers& Others() noexcept { return others_; }
  ReportRecorder& Reports() noexcept { return reports_; }
  MapRecorder& Map() noexcept { return map_; }
  AccountsRecorder& Accounts() noexcept { return accounts_; }
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

  /// The session object, made at the first use.
  HostObject& Host();
  bool HasHost() const noexcept { return host_ != nullptr; }
  void ReleaseHost();
  void ShowUser();

  void QueueAnswer(int button) { answers_.push_back(button); }
  void QueuePrinter(std::optional<platform::PrinterChoice> choice) { printerAnswers_.push_back(choice); }
  void PrinterName(std::string name) { printerName_ = std::move(name); }
  const std::string& PrinterName() const noexcept { return printerName_; }
  void AtYield(int number, std::vector<Word> command);
  void AtBox(std::vector<Word> command);
  /// What has not been reached waits for the next command: setting a property of the host's object is no act of the user.
  void KeepUnreached();

  /// Runs one command as a part of another; its failures reach the caller.
  Outcome Perform(const std::vector<Word>& words);

 private:
  struct Pending {
    int line = 0;
    int yield = 0;  ///< 0: at a box
    std::vector<Word> command;
  };

  void Execute(const Command& command);
  void ExecuteInside(const Pending& pending);
  void RunWords(int line, const std::vector<Word>& words);
  void BeginAct();
  void ReportUnreached();
  int ChooseButton(const std::string& text, int style);
  void CloseWithoutSaving(platform::Form& form);
  void Fail(int line, const std::string& message);
  void StepFailed(int line, const std::vector<Word>& words, const std::string& was);
  void End() noexcept { ended_ = true; }
  void Missing(const std::string& expected, const std::string& was);
  void Finish();
  std::vector<Word> Expanded(const std::vector<Word>& words);
  std::string Substituted(const std::string& text);
  /// What stands in braces; nothing when it is no name that the language knows.
  std::optional<std::string> InBraces(const std::string& inside);

  Script script_;
  Surroundings surroundings_;
  std::ostream& out_;
  Journal journal_;
  ReportRecorder reports_;
  MapRecorder map_;
  AccountsRecorder accounts_;
  OtherUsers others_;
  platform::Application* app_ = nullptr;
  platform::UserHands* hands_ = nullptr;
  std::unique_ptr<HostObject> host_;
  bool showing_ = false;

  std::size_t next_ = 0;
  bool ended_ = false;
  int failures_ = 0;
  int inside_ = 0;  ///< commands of `at ...` on the stack
  int boxesUp_ = 0;
  int yields_ = 0;  ///< since the last act
  std::vector<Pending> armed_;
  std::vector<Pending> active_;
  std::deque<int> answers_;
  std::deque<std::optional<platform::PrinterChoice>> printerAnswers_;
  std::string printerName_;
};

}  // namespace robot
