#include "platform/values/text.h"
#include "robot/expectations/expectations.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

// Boxes, error reports, unhandled errors and dialogs, each expected once, oldest first.
namespace robot {
namespace {

/// "TEXT [title TITLE] [style N]".
struct WantedBox {
  const Word* text = nullptr;
  const Word* title = nullptr;
  const Word* style = nullptr;
};

WantedBox BoxWords(const Arguments& words) {
  WantedBox wanted{&words.At(0), nullptr, nullptr};
  for (std::size_t i = 1; i < words.Count(); i += 2) {
    if (i + 1 < words.Count() && words.Is(i, "title"))
      wanted.title = &words.At(i + 1);
    else if (i + 1 < words.Count() && words.Is(i, "style"))
      wanted.style = &words.At(i + 1);
    else
      throw ActionFailed("no title TITLE or style N");
  }
  return wanted;
}

void Box(Runner& run, const Arguments& words) {
  const WantedBox wanted = BoxWords(words);
  std::string expected = "box " + Wanted(*wanted.text);
  if (wanted.title != nullptr) expected += " title " + Wanted(*wanted.title);
  if (wanted.style != nullptr) expected += " style " + wanted.style->text;
  const ShownBox* box = run.Records().TakeBox();
  if (box == nullptr) throw Unmet(expected, "no box");
  const bool met = MeetsText(box->text, *wanted.text) && (wanted.title == nullptr || MeetsText(box->title, *wanted.title)) &&
                   (wanted.style == nullptr || MeetsText(std::to_string(box->style), *wanted.style));
  if (met) return;
  std::string was = Quoted(box->text);
  if (wanted.title != nullptr) was += " title " + Quoted(box->title);
  if (wanted.style != nullptr) was += " style " + std::to_string(box->style);
  throw Unmet(expected, was);
}

void NoBox(Runner& run, const Arguments&) {
  if (const ShownBox* box = run.Records().OldestBox()) throw Unmet("no box", Quoted(box->text));
}

std::string LogText(const LoggedError& logged) {
  return Quoted(logged.record.module) + " " + std::to_string(logged.record.number) + " " + Quoted(logged.record.description);
}

/// "MODULE [NUMBER|any [TEXT]]".
void Log(Runner& run, const Arguments& words) {
  const std::string expected = "log " + Written(words.Words());
  const LoggedError* logged = run.Records().TakeLogged();
  if (logged == nullptr) throw Unmet(expected, "no error report");
  const bool anyNumber = words.Count() < 2 || words.Is(1, "any");
  const bool met = MeetsText(logged->record.module, words.At(0)) &&
                   (anyNumber || MeetsText(std::to_string(logged->record.number), words.At(1))) &&
                   (words.Count() < 3 || MeetsText(logged->record.description, words.At(2)));
  if (!met) throw Unmet(expected, LogText(*logged));
}

void NoLog(Runner& run, const Arguments&) {
  if (const LoggedError* logged = run.Records().OldestLogged()) throw Unmet("no log", LogText(*logged));
}

void Unhandled(Runner& run, const Arguments& words) {
  const UnhandledError* unhandled = run.Records().TakeUnhandled();
  if (unhandled == nullptr) throw Unmet("unhandled " + words.Text(0), "none");
  if (unhandled->error.Number() != words.Number(0)) {
    throw Unmet("unhandled " + words.Text(0), std::to_string(unhandled->error.Number()) + " " + Quoted(unhandled->error.Description()));
  }
}

void Dialog(Runner& run, const Arguments& words) {
  const AskedDialog* dialog = run.Records().TakeDialog();
  if (dialog == nullptr) throw Unmet("dialog " + words.Text(0), "none");
  if (!platform::EqualsNoCase(dialog->name, words.Text(0))) throw Unmet("dialog " + words.Text(0), dialog->name);
}

void NoDialog(Runner& run, const Arguments&) {
  if (const AskedDialog* dialog = run.Records().OldestDialog()) throw Unmet("no dialog", dialog->name);
}

}  // namespace

ExpectationList RecordExpectations() {
  return {
      {"box", 1, 5, Box},       {"no box", 0, 0, NoBox},       {"log", 1, 3, Log}, {"no log", 0, 0, NoLog}, {"unhandled", 1, 1, Unhandled},
      {"dialog", 1, 1, Dialog}, {"no dialog", 0, 0, NoDialog},
  };
}

}  // namespace robot
