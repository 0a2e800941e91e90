#include <algorithm>
#include <optional>
#include <type_traits>

#include "platform/controls/report_control.h"
#include "platform/values/text.h"
#include "robot/expectations/expectations.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

// What the report control, the map and the accounts look-up were given.
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

void DemandMap(const Arguments& words, const std::vector<std::string>& was) {
  const std::vector<Word> wanted = words.From(1);
  if (!std::equal(was.begin(), was.end(), wanted.begin(), wanted.end(), MeetsText))
    throw Unmet("map " + words.Text(0) + " " + WantedList(wanted), ShownList(was));
}

void DemandMapValue(const Arguments& words, const std::optional<Value>& was) {
  if (words.Count() != 2) throw ActionFailed("no value for map " + words.Text(0));
  const bool met = was ? Meets(*was, words.At(1)) : words.Is(1, "none");
  if (!met) throw Unmet("map " + words.Text(0) + " " + Wanted(words.At(1)), was ? Shown(*was) : "none");
}

std::optional<Value> PinValue(const MapRecorder& map, const std::string& key, const std::string& property) {
  const auto is = [&](std::string_view name) { return EqualsNoCase(property, name); };
  for (const MapPin& pin : map.pins) {
    if (pin.key != key) continue;
    if (is("Latitude")) return Value(pin.latitude);
    if (is("Longitude")) return Value(pin.longitude);
    if (is("Text")) return Value(pin.text);
    if (is("PinStyle") || is("Style")) return Value(pin.style);
    if (is("PinPicture") || is("Picture")) return Value(pin.picture);
    throw ActionFailed("no pin property " + property);
  }
  return std::nullopt;
}

std::optional<Value> DrawnValue(const MapRecorder& map, const std::string& property) {
  if (!map.drawn) return std::nullopt;
  if (EqualsNoCase(property, "Latitude")) return Value(map.drawn->latitude);
  if (EqualsNoCase(property, "Longitude")) return Value(map.drawn->longitude);
  if (EqualsNoCase(property, "MapWidth") || EqualsNoCase(property, "Width")) return Value(map.drawn->width);
  throw ActionFailed("no drawing property " + property);
}

/// "Pin(KEY).PROPERTY": the key may be any text without a closing bracket.
bool IsPin(const std::string& text, std::string& key, std::string& property) {
  constexpr std::string_view kStart = "Pin(";
  const std::size_t close = text.find(").");
  if (text.size() < kStart.size() || !EqualsNoCase(text.substr(0, kStart.size()), kStart) || close == std::string::npos) return false;
  key = text.substr(kStart.size(), close - kStart.size());
  property = text.substr(close + 2);
  return true;
}

void Map(Runner& run, const Arguments& words) {
  const MapRecorder& map = run.Map();
  std::string key;
  std::string property;
  if (words.Is(0, "Actions")) {
    std::vector<std::string> was;
    for (const int action : map.actions) was.push_back(std::to_string(action));
    DemandMap(words, was);
  } else if (words.Is(0, "Addresses")) {
    DemandMap(words, map.addresses);
  } else if (words.Is(0, "Pins")) {
    std::vector<std::string> was;
    for (const MapPin& pin : map.pins) was.push_back(pin.key);
    DemandMap(words, was);
  } else if (IsPin(words.Text(0), key, property)) {
    DemandMapValue(words, PinValue(map, key, property));
  } else if (words.Is(0, "Drawn")) {
    DemandMapValue(words, map.drawn ? std::optional<Value>(Value("drawn")) : std::nullopt);
  } else if (constexpr std::string_view kDrawn = "Drawn."; EqualsNoCase(words.Text(0).substr(0, kDrawn.size()), kDrawn)) {
    DemandMapValue(words, DrawnValue(map, words.Text(0).substr(kDrawn.size())));
  } else {
    throw ActionFailed("nothing called map " + words.Text(0));
  }
}

void Lookup(Runner& run, const Arguments& words) {
  const auto& input = run.Accounts().lastInput;
  const int number = words.Number(0);
  const std::string expected = "lookup " + words.Text(0) + " " + Wanted(words.At(1));
  if (!input) throw Unmet(expected, "no look-up");
  if (number < 1 || number > static_cast<int>(input->size())) throw ActionFailed("no input " + words.Text(0));
  const Value& value = (*input)[static_cast<std::size_t>(number - 1)];
  if (!Meets(value, words.At(1))) throw Unmet(expected, Shown(value));
}

}  // namespace

ExpectationList DoubleExpectations() {
  return {
      {"report", 2, 2, Report},
      {"map", 1, kAnyNumber, Map},
      {"lookup", 2, 2, Lookup},
  };
}

}  // namespace robot
