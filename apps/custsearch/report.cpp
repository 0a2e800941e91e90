#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <utility>

#include "custsearch/tasks.h"
#include "entry/screens.h"
#include "library/places.h"
#include "library/reports.h"
#include "maintenance/frmCustMain.h"
#include "platform/host/no_windows.h"
#include "platform/values/convert.h"
#include "platform/values/text.h"
#include "records/fields.h"
#include "reports/frmCustReports.h"
#include "session/CustSearch.h"
#include "session/ModCustSch.h"
#include "suite/error_log.h"

// A report of the catalogue into a file, with nobody at a screen: the catalogue's own screen runs it, unseen, so that the rows, the
// options and the formulas are those that a user gets.
namespace custsearch {
namespace {

namespace fs = std::filesystem;
using orcussch::screens::frmCustMain;
using orcussch::screens::frmCustReports;

/// A folder for this run's temporary file, so that it never meets a user's; goes with the object.
class OwnFolder {
 public:
  OwnFolder() {
    std::string name = (fs::temp_directory_path() / "orcussch-report-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
      throw std::runtime_error("no temporary folder can be made in " + fs::temp_directory_path().string());
    path_ = name;
  }
  ~OwnFolder() {
    std::error_code told;
    fs::remove_all(path_, told);
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

/// What a user would read in boxes goes to the standard error.
class ToldOnTerminal final : public platform::NoWindows {
 public:
  int MessageBox(const std::string& text, int, const std::string&) override {
    std::string line = text;
    std::replace(line.begin(), line.end(), '\r', ' ');
    std::cerr << "custsearch: " << line << '\n';
    ++told;
    return platform::box::Ok;
  }
  int told = 0;
};

/// Takes the catalogue's job and writes it into the file that was asked for, unless something was told before: a file would look
/// like an answer.
class IntoFile final : public platform::ReportEngine {
 public:
  IntoFile(library::ReportPlaces places, const Options& options, const ToldOnTerminal& front)
      : places_(std::move(places)), options_(options), front_(front) {}

  int PrintReport(const platform::ReportJob& given) override {
    if (front_.told > 0) return 0;
    platform::ReportJob job = given;
    int number = job.Formulas.empty() ? 0 : job.Formulas.rbegin()->first + 1;
    for (const std::string& formula : options_.formulas) job.Formulas[number++] = Quoted(formula);
    const bool shown = isatty(STDERR_FILENO) != 0;
    const auto goOn = [shown](std::int64_t rows) {
      if (shown) std::cerr << '\r' << rows << " rows" << std::flush;
      return true;
    };
    const auto log = [](const std::string& line) { std::cerr << "custsearch: " << line << '\n'; };
    const int result = library::WriteReport(places_, job, options_.to, log, goOn);
    if (shown) std::cerr << '\r';
    written = result == 0;
    return result;
  }
  bool written = false;

 private:
  /// "Name=text" becomes what a report is given: True, False and numbers bare, texts in quotes.
  static std::string Quoted(const std::string& formula) {
    const std::size_t sign = formula.find('=');
    const std::string value = formula.substr(sign + 1);
    const bool bare = platform::EqualsNoCase(value, "True") || platform::EqualsNoCase(value, "False") || platform::IsNumeric(value);
    return bare ? formula : formula.substr(0, sign + 1) + '"' + value + '"';
  }
  library::ReportPlaces places_;
  const Options& options_;
  const ToldOnTerminal& front_;
};

/// Puts the catalogue on the report of that place, file or name; false when there is none.
bool StandOn(const std::string& wanted) {
  const platform::RecordsetRef rows = frmCustReports->DataReports.Recordset();
  if (!rows->HasRows()) return false;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
    for (const char* field : {"Sequence", "Name", "Description"})
      if (platform::EqualsNoCase(orcussch::TextOf(rows, field), wanted)) return true;
  return false;
}

bool IsNumber(const std::string& text) { return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos; }

/// Which customers: all, the one of an account, or those that a condition takes.
void Narrow(const std::string& customers) {
  if (IsNumber(customers) || customers.empty() || platform::EqualsNoCase(customers, "all")) return;
  orcussch::gQuerySQL = "SELECT DISTINCTROW Customers.* FROM Customers WHERE (" + customers + ")";
  orcussch::gQueryText = customers;
}

void Choose(const std::string& customers) {
  const bool one = IsNumber(customers);
  const int option = one ? 2 : orcussch::gQuerySQL.empty() ? 1 : 0;
  frmCustReports->optCustomer[option].Value(true);
}

int Run(const Options& options, platform::Application& app, const ToldOnTerminal& front, const IntoFile& engine) {
  orcussch::CustSearch session(app);
  session.Let("UserID", options.user);
  session.Let("CompanyID", options.company);
  if (front.told > 0) return kFailed;
  if (IsNumber(options.customers)) session.Let("Customer", options.customers);
  Narrow(options.customers);
  // Its list is what the catalogue looks at, as it opens when the screen is first shown.
  frmCustMain->Form_Activate();
  const std::string shown = frmCustMain->lblAcctNum.Caption();
  if (IsNumber(options.customers) && shown != options.customers) {
    std::cerr << "custsearch: there is no customer " << options.customers << '\n';
    return kFailed;
  }
  if (!StandOn(options.report)) throw UsageError("there is no report \"" + options.report + "\" in the catalogue");
  Choose(options.customers);
  frmCustReports->cmdPrint(0);
  return engine.written && front.told == 0 ? kDone : kFailed;
}

}  // namespace

int RunReport(const Options& options) {
  const OwnFolder own;
  library::PlaceOptions where;
  where.libraryFolder = options.data;
  where.drives = options.drives;
  if (options.drives.empty()) where.localFolder = own.Path();
  library::Places places = library::FindPlaces(where);
  library::MakeTemporaryFile(*places.system, options.user);

  const auto made = std::make_shared<platform::Application*>(nullptr);
  auto front = std::make_unique<ToldOnTerminal>();
  auto engine = std::make_unique<IntoFile>(library::ReportPlaces{[made] { return *made; }, places.libraryFolder, places.dataFolder}, options,
                                           *front);
  const IntoFile& reports = *engine;
  const ToldOnTerminal& told = *front;

  platform::ApplicationParts parts;
  parts.engine = library::MakeEngine(*places.system);
  parts.system = std::move(places.system);
  parts.errorLog = suite::MakeErrorLog(own.Path() + "/errors.log");
  parts.reports = std::move(engine);
  parts.frontEnd = std::move(front);
  parts.path = places.libraryFolder;
  parts.title = "Customer Search";
  platform::Application app(std::move(parts));
  *made = &app;
  if (options.date) app.System().SetToday(options.date);
  orcussch::AttachApplication(&app);
  orcussch::ConnectScreens();
  const int status = Run(options, app, told, reports);
  if (status == kDone) std::cout << options.to << " written.\n";
  return status;
}

}  // namespace custsearch
