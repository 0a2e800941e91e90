#include "custsearch/options.h"

#include <charconv>
#include <functional>
#include <map>

#include "platform/values/calendar.h"
#include "platform/values/text.h"

namespace custsearch {
namespace {

template <class Number>
Number WholeNumber(const std::string& option, const std::string& text, Number lowest) {
  Number number{};
  const auto [end, mistake] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (mistake != std::errc{} || end != text.data() + text.size() || number < lowest)
    throw UsageError("option " + option + " needs a whole number from " + std::to_string(lowest) + ", not \"" + text + "\"");
  return number;
}

/// The words one by one, "--name=VALUE" taken apart.
class Reader {
 public:
  explicit Reader(const std::vector<std::string>& words) : words_(words) {}

  bool Next() {
    if (at_ == words_.size()) return false;
    const std::string& word = words_[at_++];
    const auto sign = word.find('=');
    hasValue_ = word.starts_with("--") && sign != std::string::npos;
    name_ = hasValue_ ? word.substr(0, sign) : word;
    value_ = hasValue_ ? word.substr(sign + 1) : "";
    return true;
  }
  const std::string& Name() const { return name_; }
  std::string Value() {
    if (hasValue_) return value_;
    if (at_ == words_.size()) throw UsageError("option " + name_ + " needs a value");
    return words_[at_++];
  }
  void NoValue() const {
    if (hasValue_) throw UsageError("option " + name_ + " takes no value");
  }

 private:
  const std::vector<std::string>& words_;
  std::size_t at_ = 0;
  std::string name_;
  std::string value_;
  bool hasValue_ = false;
};

std::string OneOf(const std::string& option, const std::string& value, const std::string& first, const std::string& second) {
  if (value == first || value == second) return value;
  throw UsageError("option " + option + " is " + first + " or " + second + ", not \"" + value + "\"");
}

/// "Name=value".
std::string Formula(const std::string& text) {
  if (text.find('=') == std::string::npos || text.front() == '=')
    throw UsageError("option --formula needs Name=value, not \"" + text + "\"");
  return text;
}

/// "1999-12-31".
platform::Date Day(const std::string& option, const std::string& text) {
  constexpr std::size_t kLength = 10;
  const auto part = [&](std::size_t from, std::size_t count) {
    return WholeNumber<int>(option, text.substr(from, count), 0);
  };
  std::optional<platform::Date> day;
  if (text.size() == kLength && text[4] == '-' && text[7] == '-') day = platform::DateSerial(part(0, 4), part(5, 2), part(8, 2));
  if (!day) throw UsageError("option " + option + " needs a day such as 1999-12-31, not \"" + text + "\"");
  return *day;
}

bool EndsAsAFile(const std::string& name) {
  for (const char* ending : {".pdf", ".csv", ".xlsx"})
    if (platform::ToLowerAscii(name).ends_with(ending)) return true;
  return false;
}

using Setter = std::function<void(Options&, Reader&)>;

const std::map<std::string, Setter>& Setters() {
  constexpr auto flag = [](Reader& word) {
    word.NoValue();
    return true;
  };
  static const std::map<std::string, Setter> setters = {
      {"--help",
       [=](Options& o, Reader& w) {
         if (flag(w)) o.task = Task::Help;
       }},
      {"--version",
       [=](Options& o, Reader& w) {
         if (flag(w)) o.task = Task::Version;
       }},
      {"--maintenance-only", [=](Options& o, Reader& w) { o.maintenanceOnly = flag(w); }},
      {"--json", [=](Options& o, Reader& w) { o.json = flag(w); }},
      {"--data", [](Options& o, Reader& w) { o.data = w.Value(); }},
      {"--local", [](Options& o, Reader& w) { o.local = w.Value(); }},
      {"--company", [](Options& o, Reader& w) { o.company = WholeNumber<std::int32_t>(w.Name(), w.Value(), 0); }},
      {"--user", [](Options& o, Reader& w) { o.user = WholeNumber<std::int32_t>(w.Name(), w.Value(), 0); }},
      {"--customer", [](Options& o, Reader& w) { o.customer = WholeNumber<std::int32_t>(w.Name(), w.Value(), 0); }},
      {"--billing", [](Options& o, Reader& w) { o.billing = OneOf(w.Name(), w.Value(), "B", "N"); }},
      {"--paths", [](Options& o, Reader& w) { o.windowsPaths = OneOf(w.Name(), w.Value(), "native", "windows") == "windows"; }},
      {"--drive", [](Options& o, Reader& w) { o.drives.push_back(w.Value()); }},
      {"--scenario",
       [](Options& o, Reader& w) {
         o.scenario = w.Value();
         if (o.task == Task::Work) o.task = Task::Scenario;
       }},
      {"--companies", [](Options& o, Reader& w) { o.companies = w.Value(); }},
      {"--front", [](Options& o,
                     Reader& w) { o.front = OneOf(w.Name(), w.Value(), "robot", "desktop") == "desktop" ? Front::Desktop : Front::Robot; }},
      {"--to", [](Options& o, Reader& w) { o.to = w.Value(); }},
      {"--customers", [](Options& o, Reader& w) { o.customers = w.Value(); }},
      {"--formula", [](Options& o, Reader& w) { o.formulas.push_back(Formula(w.Value())); }},
      {"--date", [](Options& o, Reader& w) { o.date = Day(w.Name(), w.Value()); }},
      {"--threshold", [](Options& o, Reader& w) { o.threshold = WholeNumber<std::int64_t>(w.Name(), w.Value(), 0); }},
  };
  return setters;
}

// What the work in the screens is told by its command line, and a scenario by its host commands; "" for nothing of that.
std::string ForWorkAlone(const Options& options) {
  if (options.customer) return "--customer";
  if (!options.billing.empty()) return "--billing";
  if (options.maintenanceOnly) return "--maintenance-only";
  return options.json ? "--json" : "";
}

std::string ForScenariosAlone(const Options& options, bool frontGiven) {
  if (!options.scenario.empty()) return "--scenario";
  if (!options.companies.empty()) return "--companies";
  if (frontGiven) return "--front";
  return options.threshold ? "--threshold" : "";
}

void CheckReport(const Options& options, bool frontGiven) {
  if (options.to.empty()) throw UsageError("a report needs --to FILE");
  if (!EndsAsAFile(options.to)) throw UsageError("the report's file ends in .pdf, .csv or .xlsx, not \"" + options.to + "\"");
  if (options.local) throw UsageError("option --local has no meaning with a report, which has a temporary file of its own");
  std::string useless = ForWorkAlone(options);
  if (useless.empty()) useless = ForScenariosAlone(options, frontGiven);
  if (!useless.empty()) throw UsageError("option " + useless + " has no meaning with a report");
}

void CheckWorkOrScenario(const Options& options, bool frontGiven) {
  if (!options.to.empty() || options.customers != "all" || !options.formulas.empty() || options.date)
    throw UsageError("options --to, --customers, --formula and --date are for reports: custsearch report NAME --to FILE");
  const std::string useless = options.task == Task::Scenario ? ForWorkAlone(options) : ForScenariosAlone(options, frontGiven);
  if (useless.empty()) return;
  throw UsageError("option " + useless + (options.task == Task::Scenario ? " has no meaning with --scenario, whose host commands say it"
                                                                         : " is for --scenario"));
}

void CheckTogether(const Options& options, bool frontGiven) {
  if (options.task == Task::Report)
    CheckReport(options, frontGiven);
  else if (options.task != Task::Help && options.task != Task::Version)
    CheckWorkOrScenario(options, frontGiven);
  if (options.windowsPaths && options.drives.empty()) throw UsageError("option --paths windows needs --drive C=DIR");
  if (!options.windowsPaths && !options.drives.empty()) throw UsageError("option --drive is for --paths windows");
  if (options.windowsPaths && options.local) throw UsageError("with --paths windows the local root is drive C; --local has no meaning");
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& words) {
  Options options;
  bool frontGiven = false;
  Reader reader(words);
  while (reader.Next()) {
    if (options.task == Task::Work && reader.Name() == "report") {
      options.task = Task::Report;
      if (reader.Next()) options.report = reader.Name();
      if (options.report.empty() || options.report.starts_with("--"))
        throw UsageError("which report? Its place, file or name in the catalogue");
      continue;
    }
    const auto found = Setters().find(reader.Name());
    if (found == Setters().end())
      throw UsageError(reader.Name().starts_with("-") ? "unknown option " + reader.Name()
                                                      : "\"" + reader.Name() + "\" is one word too many");
    found->second(options, reader);
    frontGiven = frontGiven || reader.Name() == "--front";
  }
  CheckTogether(options, frontGiven);
  return options;
}

std::string HelpText() {
  return "Usage: custsearch [OPTION]...\n"
         "       custsearch report NAME --to FILE [--customers WHICH] [--formula N=V]... [OPTION]...\n"
         "Opens the customer screens of a company and prints which customer was selected; or writes a\n"
         "report of the catalogue into a file, without a display.\n"
         "\n"
         "  --data DIR            folder of the library, with dat.zdb and orvN.ini (default: .)\n"
         "  --local DIR           folder under which orvTEMP lies (default: the user's state folder;\n"
         "                        with --scenario the data folder)\n"
         "  --company N           company number (default: 1)\n"
         "  --user U              user number (default: 1)\n"
         "  --customer A          account on which the list opens\n"
         "  --billing B|N         billable or non-billable customers only\n"
         "  --maintenance-only    no customer can be selected\n"
         "  --json                print the answer as one JSON object\n"
         "  --paths windows       file names with drive letters, each standing for a folder:\n"
         "  --drive C=DIR         the folder of a drive letter; can be given several times\n"
         "  --scenario FILE       run the scripted user in FILE (- for standard input)\n"
         "  --front robot|desktop how a scenario acts: on the screens' models, or on real windows\n"
         "  --companies PLACE     with --scenario: {DIR}/data/ and other data files lie there, on a server\n"
         "  --threshold N         rows up to which a scenario's lists are read at once (default: 20000)\n"
         "  --to FILE             the report's file, by its ending: .pdf, .csv or .xlsx\n"
         "  --customers WHICH     all, an account number, or a condition on the fields of Customers\n"
         "  --formula N=V         gives the report's formula N the value V; can be given several times\n"
         "  --date YYYY-MM-DD     the day that the report takes for today\n"
         "  --help, --version     print this text, the version\n"
         "\n"
         "Exit status: 0 a customer was selected, 3 none was, 1 something failed, 2 wrong usage.\n"
         "With --scenario: 0 every expectation held, 1 one did not, 2 FILE can't be read.\n"
         "A report: 0 its file is written, 1 something failed, 2 wrong usage.\n";
}

}  // namespace custsearch
