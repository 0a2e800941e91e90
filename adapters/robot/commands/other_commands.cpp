#include "robot/commands/commands.h"
#include "robot/commands/row_kinds.h"
#include "robot/language/arguments.h"
#include "robot/language/failure.h"
#include "robot/runner/runner.h"

namespace robot {
namespace {

Outcome Other(Runner& run, const Arguments& words) {
  OtherUsers& others = run.Others();
  if (words.Count() == 1 && (words.Is(0, "release") || words.Is(0, "undo"))) {
    if (!others.Holding()) throw ActionFailed("nothing held");
    words.Is(0, "release") ? others.Release() : others.Undo();
  } else if (words.Count() == 2) {
    others.Run(words.Text(0), words.Text(1));
  } else if (words.Count() == 3 && words.Is(1, "hold")) {
    others.Hold(words.Text(0), words.Text(2));
  } else if (words.Count() == 3 && words.Is(1, "drop")) {
    others.Drop(words.Text(0), words.Text(2));
  } else {
    throw ActionFailed("no STATEMENT, hold STATEMENT, drop TABLE, release or undo");
  }
  return Outcome::Done;
}

/// "KIND VALUE... [FIELD VALUE]...".
Outcome Add(Runner& run, const Arguments& words) {
  std::size_t taken = 0;
  const RowKind* kind = FindRowKind(words, taken);
  run.Others().Run("customer.zdb", RowWords(*kind, Arguments(words.From(taken))).Statement());
  return Outcome::Done;
}

std::string AddMistake(const Arguments& words) {
  std::size_t taken = 0;
  const RowKind* kind = FindRowKind(words, taken);
  if (kind == nullptr) return "add is followed by one of: " + RowKindNames();
  return RowWords(*kind, Arguments(words.From(taken))).Mistake();
}

Outcome RunProgram(Runner& run, const Arguments& words) {
  if (!run.Around().runProgram) throw ActionFailed("no programs here");
  std::vector<std::string> line;
  for (const Word& word : words.Words()) line.push_back(word.text);
  const auto status = run.Around().runProgram(line);
  if (!status) throw ActionFailed("no program " + words.Text(0));
  if (*status != 0) throw ActionFailed("exit status " + std::to_string(*status));
  return Outcome::Done;
}

}  // namespace

CommandList OtherUserCommands() {
  return {
      {.name = "other", .least = 1, .most = 3, .handler = Other},
      {.name = "add", .least = 2, .most = kAnyNumber, .handler = Add, .mistake = AddMistake},
      {.name = "run", .least = 1, .most = kAnyNumber, .handler = RunProgram},
  };
}

}  // namespace robot
