#include "robot/runner/interpreter.h"

#include <algorithm>

#include "platform/controls/label.h"
#include "platform/values/text.h"
#include "robot/language/failure.h"
#include "robot/language/failure_text.h"
#include "robot/language/value_text.h"

namespace robot {
namespace {

std::optional<std::string> StatusOf(const platform::Form* form) {
  if (form == nullptr) return std::nullopt;
  for (const platform::Control* control : form->Controls())
    if (const auto* bar = dynamic_cast<const platform::StatusBar*>(control)) return bar->Panel(1);
  return std::nullopt;
}

bool IsExpectation(const std::vector<Word>& words) { return platform::EqualsNoCase(words.front().text, "expect"); }

}  // namespace

Interpreter::Interpreter(Script script, Surroundings surroundings, std::ostream& out)
    : script_(std::move(script)), surroundings_(std::move(surroundings)), out_(out), others_(surroundings_) {
  accounts_.onMissingAnswer = [this](const std::string& was) { Missing("an answer account", was); };
}

Interpreter::~Interpreter() = default;

std::unique_ptr<platform::ErrorLog> Interpreter::RecordLog(std::unique_ptr<platform::ErrorLog> inner) {
  return std::make_unique<RecordingErrorLog>(journal_, std::move(inner));
}

std::unique_ptr<platform::ReportEngine> Interpreter::MakeReports() { return MakeRecordingReports(reports_); }
std::unique_ptr<platform::MapEngine> Interpreter::MakeMap() { return MakeRecordingMap(map_); }
std::unique_ptr<platform::AccountsLookup> Interpreter::MakeAccounts() { return MakeScriptedAccounts(accounts_); }

void Interpreter::Attach(platform::Application& app, platform::UserHands& hands) {
  app_ = &app;
  hands_ = &hands;
  app.OnUnhandled = [this](const platform::Error& error) { journal_.Unhandled(error, true); };
  app.OnRefreshed = [this](const platform::Control& control) { journal_.Refreshed(control); };
}

int Interpreter::Run() {
  while (!ended_ && next_ < script_.commands.size()) {
    const Command& command = script_.commands[next_++];
    Execute(command);
  }
  Finish();
  return failures_ == 0 ? 0 : 1;
}

void Interpreter::Finish() {
  try {
    if (others_.Holding()) others_.Undo();
    ReleaseHost();
  } catch (const platform::Error& error) {
    journal_.Unhandled(error, false);
  }
  armed_.insert(armed_.begin(), active_.begin(), active_.end());
  active_ = std::move(armed_);
  ReportUnreached();
  if (script_.allowBoxes) return;
  for (const Journal::Leftover& left : journal_.Leftovers()) Fail(left.line, "expected " + left.expected + ", was " + left.was);
}

// ---- one command

void Interpreter::Execute(const Command& command) {
  journal_.Line(command.line);
  RunWords(command.line, command.words);
}

void Interpreter::ExecuteInside(const Pending& pending) {
  const int line = journal_.Line();
  journal_.Line(pending.line);
  ++inside_;
  RunWords(pending.line, pending.command);
  --inside_;
  journal_.Line(line);
}

void Interpreter::RunWords(int line, const std::vector<Word>& words) {
  try {
    Perform(words);
  } catch (const Unmet& unmet) {
    Fail(line, unmet.what());
  } catch (const platform::Error& error) {
    StepFailed(line, words, ErrorText(error));
  } catch (const std::exception& failure) {
    StepFailed(line, words, failure.what());
  }
}

void Interpreter::StepFailed(int line, const std::vector<Word>& words, const std::string& was) {
  if (IsExpectation(words)) {
    Fail(line, "expected " + Written({words.begin() + 1, words.end()}) + ", was " + was);
    return;
  }
  Fail(line, "expected " + Written(words) + ", was " + was);
  End();
}

Outcome Interpreter::Perform(const std::vector<Word>& words) {
  const CommandDefinition& definition = *FindCommand(words.front().text);
  if (definition.kind == CommandKind::Act) {
    if (boxesUp_ > 0) throw Refused("a message box in front");
    if (inside_ == 0) BeginAct();
  }
  std::vector<Word> rest(words.begin() + 1, words.end());
  if (definition.kind != CommandKind::Around) rest = Expanded(rest);
  const Outcome outcome = definition.handler(*this, Arguments(std::move(rest)));
  if (definition.kind == CommandKind::Act) hands_->Settle();
  return outcome;
}

void Interpreter::BeginAct() {
  ReportUnreached();
  active_ = std::exchange(armed_, {});
  yields_ = 0;
  map_.actions.clear();
  map_.addresses.clear();
  journal_.ActBegins(StatusOf(app_->ActiveForm()), app_->MousePointer());
}

void Interpreter::ReportUnreached() {
  for (const Pending& pending : active_) {
    const std::string wanted = pending.yield == 0 ? "a box" : "yield " + std::to_string(pending.yield);
    const std::string was = pending.yield == 0 ? "none" : std::to_string(yields_) + " in all";
    std::string message = "expected ";
    message.append(wanted).append(" for ").append(Written(pending.command)).append(", was ").append(was);
    Fail(pending.line, message);
  }
  active_.clear();
}

void Interpreter::Fail(int line, const std::string& message) {
  ++failures_;
  out_ << script_.name << ':' << line << ": " << message << '\n' << std::flush;
}

void Interpreter::Missing(const std::string& expected, const std::string& was) {
  Fail(journal_.Line(), "expected " + expected + ", was " + was);
  End();
}

void Interpreter::AtYield(int number, std::vector<Word> command) { armed_.push_back({journal_.Line(), number, std::move(command)}); }
void Interpreter::AtBox(std::vector<Word> command) { armed_.push_back({journal_.Line(), 0, std::move(command)}); }

void Interpreter::KeepUnreached() {
  if (inside_ > 0) return;
  armed_.insert(armed_.begin(), active_.begin(), active_.end());
  active_.clear();
}

// ---- names

platform::Control& Interpreter::ControlNamed(const std::string& name) const {
  const Named named = Find(*app_, name);
  if (named.control == nullptr || !named.property.empty()) throw ActionFailed(name + " no control");
  return *named.control;
}

platform::Control& Interpreter::Usable(const std::string& name) const {
  platform::Control& control = ControlNamed(name);
  DemandUsable(*app_, control);
  return control;
}

// ---- the host

HostObject& Interpreter::Host() {
  if (!host_) {
    if (!surroundings_.makeHost) throw ActionFailed("no host here");
    host_ = surroundings_.makeHost();
  }
  return *host_;
}

void Interpreter::ReleaseHost() {
  if (showing_) throw Refused("ShowUser running");
  host_.reset();
}

void Interpreter::ShowUser() {
  if (showing_) throw Refused("ShowUser running");
  HostObject& host = Host();
  showing_ = true;
  try {
    host.ShowUser();
  } catch (const platform::Error& error) {
    journal_.Unhandled(error, false);
  }
  showing_ = false;
}

}  // namespace robot
