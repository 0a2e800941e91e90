#include <optional>

#include "platform/host/front_end.h"
#include "robot/commands/commands.h"
#include "robot/language/arguments.h"
#include "robot/language/failure.h"
#include "robot/runner/runner.h"

namespace robot {
namespace {

using namespace platform;

std::optional<int> ButtonNamed(const Arguments& words, std::size_t index) {
  if (words.Is(index, "Yes")) return box::Yes;
  if (words.Is(index, "No")) return box::No;
  if (words.Is(index, "OK")) return box::Ok;
  if (words.Is(index, "Cancel")) return box::Cancel;
  return std::nullopt;
}

void QueueButtons(Runner& run, const Arguments& words) {
  for (std::size_t i = 0; i < words.Count(); ++i) {
    const auto button = ButtonNamed(words, i);
    if (!button) throw ActionFailed("no button " + words.Text(i));
    run.Queued().Queue(*button);
  }
}

void AnswerPrinter(Runner& run, const Arguments& words) {
  if (words.Count() == 2 && words.Is(1, "cancel")) {
    run.Queued().QueuePrinter(std::nullopt);
    return;
  }
  if (words.Count() != 4) throw ActionFailed("no FROM TO COPIES");
  run.Queued().QueuePrinter(PrinterChoice{words.Number(1), words.Number(2), words.Number(3)});
}

void AnswerAccount(Runner& run, const Arguments& words) {
  if (words.Count() == 2 && words.Is(1, "list")) {
    if (!run.Accounts().list) throw ActionFailed("no list of accounts");
    run.Accounts().answers.push_back(std::nullopt);
    return;
  }
  ChosenAccount answer;
  if (!(words.Count() == 2 && words.Is(1, "cancel"))) {
    if (words.Count() != 5) throw ActionFailed("no ACCT DEPT ACCTTEXT DEPTTEXT");
    answer = {true, words.Text(1), words.Text(2), words.Text(3), words.Text(4)};
  }
  run.Accounts().answers.emplace_back(answer);
}

void AnswerReport(Runner& run, const Arguments& words) {
  if (words.Count() != 2) throw ActionFailed("no N");
  run.Reports().answers.push_back(words.Number(1));
}

/// "stop after N".
void AnswerStop(Runner& run, const Arguments& words) {
  if (words.Count() != 3 || !words.Is(1, "after")) throw ActionFailed("no after N");
  run.Queued().QueueStop(words.Number(2));
}

/// "map ADDRESS [at LAT LON] [result N] [LINE...]".
void AnswerMap(Runner& run, const Arguments& words) {
  if (words.Count() < 2) throw ActionFailed("no ADDRESS");
  GeocodeAnswer answer;
  std::size_t next = 2;
  if (words.Is(next, "at") && next + 2 < words.Count()) {
    answer.positionFound = true;
    answer.latitude = words.Number(next + 1);
    answer.longitude = words.Number(next + 2);
    next += 3;
  }
  if (words.Is(next, "result") && next + 1 < words.Count()) {
    answer.result = words.Number(next + 1);
    next += 2;
  }
  for (; next < words.Count(); ++next) answer.candidates.push_back(words.Text(next));
  run.Map().answers[words.Text(1)] = answer;
}

Outcome Answer(Runner& run, const Arguments& words) {
  if (words.Is(0, "printer"))
    AnswerPrinter(run, words);
  else if (words.Is(0, "account"))
    AnswerAccount(run, words);
  else if (words.Is(0, "report"))
    AnswerReport(run, words);
  else if (words.Is(0, "map"))
    AnswerMap(run, words);
  else if (words.Is(0, "stop"))
    AnswerStop(run, words);
  else
    QueueButtons(run, words);
  return Outcome::Done;
}

Outcome Printer(Runner& run, const Arguments& words) {
  run.Queued().DefaultPrinter(words.Text(0));
  return Outcome::Done;
}

std::string ReportsMistake(const Arguments& words) { return words.Is(0, "real") ? "" : "reports is followed by real"; }

Outcome Reports(Runner& run, const Arguments&) {
  if (!run.Reports().useReal || !run.Reports().useReal()) throw ActionFailed("no report engine in this build");
  return Outcome::Done;
}

}  // namespace

CommandList AnswerCommands() {
  return {
      {.name = "answer", .least = 1, .most = kAnyNumber, .handler = Answer},
      {.name = "printer", .least = 1, .most = 1, .handler = Printer},
      {.name = "reports", .least = 1, .most = 1, .handler = Reports, .mistake = ReportsMistake},
  };
}

}  // namespace robot
