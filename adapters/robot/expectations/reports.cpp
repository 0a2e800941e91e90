#include <algorithm>
#include <optional>
#include <type_traits>

#include "platform/controls/report_control.h"
#include "platform/values/text.h"
#include "robot/expectations/expectations.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

// What the report control was given, and what the real reports made of it.
namespace robot {
namespace {

using namespace platform;

ReportControl* ReportOn(const Form& form) {
  for (Control* control : form.Controls())
    if (auto* report = dynamic_cast<ReportControl*>(control)) return report;
  return nullptr;
}

/// The report control of the top-most screen that has one, or of the screen named in front.
ReportControl& ReportOf(const Runner& run, const Form* named) {
  if (named != nullptr) {
    if (ReportControl* report = ReportOn(*named)) return *report;
    throw ActionFailed("no report control on " + named->Name());
  }
  if (const Form* top = run.App().ActiveForm())
    if (ReportControl* report = ReportOn(*top)) return *report;
  for (int i = run.App().FormCount() - 1; i >= 0; --i) {
    const Form& form = run.App().FormAt(i);
    if (!form.Visible()) continue;
    if (ReportControl* report = ReportOn(form)) return *report;
  }
  throw ActionFailed("no screen with a report control");
}

Value Given(const std::map<int, std::string>& texts, int index) {
  const auto found = texts.find(index);
  return found == texts.end() ? Value(Null) : Value(found->second);
}
Value Given(const ReportSetting<std::string>& text) { return text.Given() ? Value(static_cast<const std::string&>(text)) : Value(Null); }
template <class T>
Value Given(const ReportSetting<T>& setting) {
  return setting.Given() ? Value(static_cast<std::conditional_t<std::is_same_v<T, bool>, bool, std::int32_t>>(setting)) : Value(Null);
}

/// What the job holds under that name: Null when it was not given.
std::optional<Value> JobValue(const ReportJob& job, const NamePart& part) {
  const auto is = [&](std::string_view name) { return EqualsNoCase(part.name, name); };
  if (is("DataFiles")) return Given(job.DataFiles, part.index);
  if (is("Formulas")) return Given(job.Formulas, part.index);
  if (is("SortFields")) return Given(job.SortFields, part.index);
  if (is("ReportFileName")) return Given(job.ReportFileName);
  if (is("WindowTitle")) return Given(job.WindowTitle);
  if (is("SelectionFormula")) return Given(job.SelectionFormula);
  if (is("WindowState")) return Given(job.WindowState);
  if (is("CopiesToPrinter")) return Given(job.CopiesToPrinter);
  if (is("DiscardSavedData")) return Given(job.DiscardSavedData);
  if (is("Destination")) return Given(job.Destination);
  if (is("PrinterStartPage")) return Given(job.PrinterStartPage);
  if (is("FirstLabel")) return Given(job.FirstLabel);
  if (is("PrinterStopPage")) return Given(job.PrinterStopPage);
  return std::nullopt;
}

void Report(Runner& run, const Arguments& words) {
  const std::vector<NamePart> parts = SplitName(words.Text(0));
  const Form* named = parts.size() > 1 ? LoadedForm(run.App(), parts[0].name) : nullptr;
  if (parts.size() > 2 || (parts.size() == 2 && named == nullptr)) throw ActionFailed("no report " + words.Text(0));
  const ReportControl& report = ReportOf(run, named);
  std::optional<Value> value;
  if (EqualsNoCase(parts.back().name, "Runs")) {
    const auto& runs = run.Reports().runs;
    const auto found = runs.find(&report.Job);
    value = Value(static_cast<std::int32_t>(found == runs.end() ? 0 : found->second));
  } else {
    value = JobValue(report.Job, parts.back());
  }
  if (!value) throw ActionFailed("no report property " + words.Text(0));
  const bool met = value->IsNull() ? words.Is(1, "none") : Meets(*value, words.At(1));
  if (!met) throw Unmet("report " + words.Text(0) + " " + Wanted(words.At(1)), value->IsNull() ? "none" : Shown(*value));
}

ReadableReports& RealReports(Runner& run) {
  if (run.Reports().real == nullptr) throw ActionFailed("no \"reports real\" before");
  return *run.Reports().real;
}

/// The number behind `keyword` among the words from `from` on, "KEYWORD N" each; 0 where it isn't there.
int NumberBehind(const Arguments& words, std::size_t from, std::string_view keyword) {
  for (std::size_t i = from; i + 1 < words.Count(); i += 2)
    if (words.Is(i, keyword)) return words.Number(i + 1);
  return 0;
}

/// Words behind those that an expectation must have: "at N" and "preview N".
void DemandPairs(const Arguments& words, std::size_t from) {
  for (std::size_t i = from; i < words.Count(); i += 2)
    if (i + 1 == words.Count() || !(words.Is(i, "at") || words.Is(i, "preview"))) throw ActionFailed("no at N or preview N");
}

/// The last run's pages, or with "preview N" among the words from `from` on those of that preview.
std::vector<PageTexts> PagesFor(Runner& run, const Arguments& words, std::size_t from) {
  DemandPairs(words, from);
  ReadableReports& reports = RealReports(run);
  const int preview = NumberBehind(words, from, "preview");
  if (preview < 0 || preview > reports.OpenPreviews()) throw ActionFailed(std::to_string(reports.OpenPreviews()) + " previews");
  return reports.Pages(preview);
}

void PageCount(Runner& run, const Arguments& words) {
  const auto pages = static_cast<int>(PagesFor(run, words, 1).size());
  if (pages != words.Number(0)) throw Unmet("pages " + words.Text(0), std::to_string(pages));
}

PageTexts TheirPage(Runner& run, const Arguments& words) {
  const std::vector<PageTexts> pages = PagesFor(run, words, 2);
  const int number = words.Number(0);
  if (number < 1 || number > static_cast<int>(pages.size()))
    throw Unmet("page " + words.Text(0) + " " + Wanted(words.At(1)), std::to_string(pages.size()) + " pages");
  return pages[static_cast<std::size_t>(number - 1)];
}

/// Somewhere on the page, or with "at N" as the Nth of its texts.
bool Holds(const PageTexts& page, const Arguments& words) {
  const int place = NumberBehind(words, 2, "at");
  if (place != 0) return place > 0 && place <= static_cast<int>(page.size()) && MeetsText(page[static_cast<std::size_t>(place - 1)], words.At(1));
  return std::any_of(page.begin(), page.end(), [&](const std::string& text) { return MeetsText(text, words.At(1)); });
}

void OnPage(Runner& run, const Arguments& words) {
  const PageTexts page = TheirPage(run, words);
  if (!Holds(page, words)) throw Unmet("page " + words.Text(0) + " " + Wanted(words.At(1)), ShownList(page));
}

void NotOnPage(Runner& run, const Arguments& words) {
  if (Holds(TheirPage(run, words), words)) throw Unmet("not page " + words.Text(0) + " " + Wanted(words.At(1)), "there");
}

void PreviewCount(Runner& run, const Arguments& words) {
  const int previews = RealReports(run).OpenPreviews();
  if (previews != words.Number(0)) throw Unmet("previews " + words.Text(0), std::to_string(previews));
}

}  // namespace

ExpectationList ReportExpectations() {
  return {
      {"report", 2, 2, Report},      {"pages", 1, 3, PageCount},        {"page", 2, 6, OnPage},
      {"not page", 2, 6, NotOnPage}, {"previews", 1, 1, PreviewCount},
  };
}

}  // namespace robot
