#include "robot/runner/runner.h"

#include <utility>

#include "platform/host/no_windows.h"
#include "robot/language/arguments.h"
#include "robot/language/failure_text.h"
#include "robot/runner/substitution.h"
#include "robot/stage/scripted_front_end.h"

namespace robot {

Runner::Runner(Script script, const Vocabulary& vocabulary, Surroundings surroundings, std::ostream& out)
    : script_(std::move(script)),
      vocabulary_(vocabulary),
      surroundings_(std::move(surroundings)),
      out_(out),
      others_(surroundings_),
      host_(surroundings_, journal_),
      stage_(*this) {
  accounts_.list = surroundings_.accounts;
  accounts_.onMissingAnswer = [this](const std::string& was) { Missing("an answer account", was); };
}

void Runner::FillIn(platform::ApplicationParts& parts) {
  parts.errorLog = std::make_unique<RecordingErrorLog>(journal_);
  parts.reports = MakeRecordingReports(reports_, surroundings_.makeReports);
  parts.map = MakeRecordingMap(map_);
  parts.accounts = MakeScriptedAccounts(accounts_);
  if (!parts.frontEnd) parts.frontEnd = std::make_unique<platform::NoWindows>();
  parts.frontEnd = std::make_unique<ScriptedFrontEnd>(stage_, std::move(parts.frontEnd));
}

void Runner::Attach(platform::Application& app, platform::UserHands& hands) {
  app_ = &app;
  hands_ = &hands;
  app.OnUnhandled = [this](const platform::Error& error) { journal_.Unhandled(error, true); };
  app.OnRefreshed = [this](const platform::Control& control) { journal_.Refreshed(control); };
}

// ---- the script

int Runner::Run() {
  while (!ended_ && next_ < script_.commands.size()) RunNext();
  Finish();
  return failures_ == 0 ? 0 : 1;
}

bool Runner::RunUntil(const std::function<bool()>& done, const std::string& screen) {
  const int inside = std::exchange(inside_, 0);
  bool reached = true;
  while (reached && !done()) {
    if (!ended_ && next_ == script_.commands.size()) Missing("no screen at the end", screen);
    reached = !ended_;
    if (reached) RunNext();
  }
  inside_ = inside;
  return reached;
}

void Runner::Finish() {
  try {
    if (others_.Holding()) others_.Undo();
    host_.Release();
  } catch (const platform::Error& error) {
    journal_.Unhandled(error, false);
  }
  Tell(interruptions_.TakeMissedAtEnd());
  if (script_.allowBoxes) return;
  for (const Journal::Leftover& left : journal_.Leftovers()) Fail(left.line, left.expected, left.was);
}

// ---- one command

void Runner::RunNext() {
  const Command& command = script_.commands[next_++];
  journal_.Line(command.line);
  RunWords(command.line, command.words);
}

void Runner::RunInside(const Interruptions::Waiting& one) {
  const int line = journal_.Line();
  journal_.Line(one.line);
  ++inside_;
  RunWords(one.line, one.command);
  --inside_;
  journal_.Line(line);
}

void Runner::RunWords(int line, const std::vector<Word>& words) {
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

Outcome Runner::Perform(const std::vector<Word>& words) {
  const CommandDefinition& definition = *vocabulary_.Find(words.front());
  const bool act = definition.kind == CommandKind::Act;
  if (act && stage_.BoxUp()) throw Refused("a message box in front");
  if (act && stage_.RunUp()) throw Refused("the progress of a run in front");
  if (act && !InsideAnother()) BeginAct();

  std::vector<Word> rest(words.begin() + 1, words.end());
  if (definition.kind != CommandKind::Around) rest = Substitution(*app_, surroundings_, others_).In(std::move(rest));
  const Outcome outcome = definition.handler(*this, Arguments(std::move(rest)));
  if (act) hands_->Settle();
  return outcome;
}

void Runner::BeginAct() {
  Tell(interruptions_.TakeMissed());
  interruptions_.ActBegins();
  map_.actions.clear();
  map_.addresses.clear();
  journal_.ActBegins(StatusText(app_->ActiveForm()), app_->MousePointer());
}

// ---- what does not hold

void Runner::StepFailed(int line, const std::vector<Word>& words, const std::string& was) {
  if (vocabulary_.IsExpectation(words)) return Fail(line, Written({words.begin() + 1, words.end()}), was);
  Fail(line, Written(words), was);
  ended_ = true;
}

void Runner::Missing(const std::string& expected, const std::string& was) {
  Fail(journal_.Line(), expected, was);
  ended_ = true;
}

void Runner::Tell(const std::vector<Interruptions::Missed>& missed) {
  for (const Interruptions::Missed& one : missed) Fail(one.line, one.wanted, one.was);
}

void Runner::Fail(int line, const std::string& expected, const std::string& was) { Fail(line, Unmet(expected, was).what()); }

void Runner::Fail(int line, const std::string& message) {
  ++failures_;
  out_ << script_.name << ':' << line << ": " << message << '\n' << std::flush;
}

// ---- names

platform::Control& Runner::ControlNamed(const std::string& name) const {
  const Named named = Find(*app_, name);
  if (named.control == nullptr || !named.property.empty()) throw ActionFailed(name + " no control");
  return *named.control;
}

platform::Control& Runner::Usable(const std::string& name) const {
  platform::Control& control = ControlNamed(name);
  DemandUsable(*app_, control);
  return control;
}

}  // namespace robot
