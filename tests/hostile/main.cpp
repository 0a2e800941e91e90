#include <chrono>
#include <cstdio>
#include <string>

#include "hostile/case.h"
#include "hostile/choice.h"
#include "hostile/isolation.h"
#include "hostile/options.h"
#include "hostile/summary.h"

// Runs every procedure once without interruption, which tells its yields, then once for each act at each chosen yield. A
// procedure's cases share a process; after a crash the next process goes on behind the case that crashed.
namespace hostile {
namespace {

constexpr char kCase = 'c', kFault = 'f', kNote = 'n', kRefused = 'r', kYields = 'y', kLast = '.';

class Program {
 public:
  explicit Program(const Options& options) : options_(options), image_(options.server) {}
  int Go();

 private:
  void RunProcedure(const Procedure& procedure);
  void RunCases(const Procedure& procedure, int from, const Teller& tell) const;
  void RunOne(const Case& one, const Outcome& through, const Teller& tell) const;
  Outcome TellRun(const Case& one, const Books* before, const Teller& tell) const;
  bool Live(const Case& one) const;
  void Hear(char kind, const std::string& text);

  const Options options_;
  Image image_;
  Summary summary_;
  int begun_ = 0;        ///< cases begun of the procedure that runs, the first without interruption
  std::string current_;  ///< the case that runs
};

void Program::Hear(char kind, const std::string& text) {
  switch (kind) {
    case kCase:
      current_ = text;
      ++summary_.cases;
      break;
    case kFault:
      summary_.faulty.insert(current_);
      std::printf("FAULT %s: %s\n", current_.c_str(), text.c_str());
      break;
    case kNote:
      ++summary_.notes[text];
      break;
    case kRefused:
      ++summary_.refused;
      break;
    case kYields:
      summary_.yields += std::stoi(text);
      if (text == "0") ++summary_.withoutYields;
      break;
    case kLast:
      begun_ = std::stoi(text);
      break;
    default:
      break;
  }
  std::fflush(stdout);
}

/// Whether small lists go the way of large ones: a coin that falls the same way each time.
bool Program::Live(const Case& one) const {
  if (options_.live) return *options_.live;
  return one.act != nullptr && NumberOf(one.procedure->name + one.act->name + std::to_string(one.yield), 0) % 2 == 0;
}

Outcome Program::TellRun(const Case& one, const Books* before, const Teller& tell) const {
  BeginOfCase();
  tell.Tell(kCase, Words(one) + (options_.server ? " --server" : ""));
  Outcome outcome = Run(image_, one, before);
  for (const std::string& fault : outcome.faults) tell.Tell(kFault, fault);
  for (const auto& [note, count] : outcome.notes) tell.Tell(kNote, note);
  if (one.act != nullptr && !outcome.performed) tell.Tell(kRefused, "");
  return outcome;
}

/// Answered with Yes, and where a question came with No as well.
void Program::RunOne(const Case& one, const Outcome& through, const Teller& tell) const {
  const Books* before = through.before ? &*through.before : nullptr;
  Case now = one;
  now.yes = !options_.no;
  if (!TellRun(now, before, tell).asked || options_.no) return;
  now.yes = false;
  TellRun(now, before, tell);
}

void Program::RunCases(const Procedure& procedure, int from, const Teller& tell) const {
  Case through{&procedure};
  through.live = options_.live.value_or(false);
  tell.Tell(kLast, "0");
  BeginOfCase();
  const Outcome whole = from == 0 ? TellRun(through, nullptr, tell) : Run(image_, through, nullptr);
  if (from == 0) tell.Tell(kYields, std::to_string(whole.places.size()));
  int number = 0;
  for (const int yield : options_.yield > 0 ? std::vector<int>{options_.yield} : ChooseYields(whole.places)) {
    for (const Act& act : ActsFor(procedure)) {
      if (!options_.act.empty() && act.name != options_.act) continue;
      Case one{&procedure, &act, yield};
      one.live = Live(one);
      if (!InShare(Words(one), options_.seed, options_.share)) continue;
      if (++number <= from) continue;
      tell.Tell(kLast, std::to_string(number));
      RunOne(one, whole, tell);
    }
  }
}

void Program::RunProcedure(const Procedure& procedure) {
  ++summary_.procedures;
  begun_ = 0;
  for (int from = 0;; from = begun_) {
    const Ending ending = InProcessOfItsOwn(
        image_, [&](const Teller& tell) { RunCases(procedure, from, tell); },
        [this](char kind, const std::string& text) { Hear(kind, text); });
    if (ending.well) return;
    ++summary_.crashes;
    std::printf("CRASH %s: %s\n%s", current_.c_str(), ending.how.c_str(), ending.messages.c_str());
    std::fflush(stdout);
    if (begun_ <= from && from > 0) return;  // the run without interruption fails now
    if (begun_ == 0) return;
  }
}

int Program::Go() {
  const auto begun = std::chrono::steady_clock::now();
  int number = 0;
  for (const Procedure& procedure : AllProcedures()) {
    if (!procedure.name.starts_with(options_.only)) continue;
    if (number++ % options_.parts != options_.part) continue;
    if (options_.fork) {
      RunProcedure(procedure);
    } else {
      ++summary_.procedures;
      RunCases(procedure, 0, Teller(1));
    }
  }
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begun;
  Tell(summary_, options_.notes, passed.count());
  if (summary_.procedures == 0) std::printf("no procedure %s\n", options_.only.c_str());
  return summary_.Clean() && summary_.procedures > 0 ? 0 : 1;
}

void TellTables() {
  for (const Procedure& procedure : AllProcedures()) std::printf("procedure %s\n", procedure.name.c_str());
  for (const Act& act : Acts()) std::printf("act %s\n", act.name.c_str());
  for (const Act& act : SetupActs()) std::printf("act on a setup screen %s\n", act.name.c_str());
  for (const Act& act : QueryActs()) std::printf("act on the query screen %s\n", act.name.c_str());
}

}  // namespace
}  // namespace hostile

int main(int count, char** words) {
  std::string mistake;
  const hostile::Options options = hostile::ReadOptions(count, words, mistake);
  if (!mistake.empty()) {
    std::fprintf(stderr, "%s\n%s", mistake.c_str(), hostile::kUsage);
    return 2;
  }
  if (options.list) {
    hostile::TellTables();
    return 0;
  }
  return hostile::Program(options).Go();
}
