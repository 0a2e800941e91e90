#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "reports/company_formulas.h"
#include "reports/frmCustReports.h"
#include "reports/frmMailLabel.h"
#include "reports/label_reports.h"
#include "reports/report_run.h"
#include "session/ModCustSch.h"

// The run of one report of the catalogue.
namespace orcussch {

using platform::Value;

namespace {

/// What a row of the catalogue calls the user's temporary file, whose own name has his number.
constexpr const char* kTemporaryFile = "ORVTEMP.ZDB";

}  // namespace

bool frmCustReports::Chosen::IsSorted() const { return IsMailingLabels(File); }

bool frmCustReports::Chosen::IsLabels() const { return IsLabelReport(File); }

void frmCustReports::cmdPrint(int Destination) {
  Trap("frmReports.cmdPrint", [&] {
    const platform::RecordsetRef Rows = DataReports.Recordset();
    if (Rows->Bof() && Rows->Eof()) {
      App().MsgBox("There are no reports to print!", platform::box::Information, "Customer Reports");
      return;
    }

    ProgressBar1.Value(0);
    StatusBar1.Panel(1, kPreparingReport);
    const Chosen Report = Choose(Rows);
    if (!BeginRun(Report1, cd1)) return;

    if (TakeReportFile(Report1, Report.File)) {
      bool Stop = false;
      Prepare(Report, Stop);
      if (!Loaded()) return;
      ProgressBar1.Value(100);
      App().DoEvents();
      if (!Loaded()) return;
      if (!Stop) RunReport(Report1, Destination, Report.IsLabels() ? "" : Report.Selection);
    }
    if (!Loaded()) return;

    ProgressBar1.Value(0);
    StatusBar1.Panel(1, "");
    App().DoEvents();
    App().MousePointer(platform::pointer::Default);
  });
}

frmCustReports::Chosen frmCustReports::Choose(const platform::RecordsetRef& Rows) const {
  Chosen Report;
  Report.File = TextOf(Rows, "Name");
  Report.Description = TextOf(Rows, "Description");
  for (std::size_t i = 0; i < Report.DataFiles.size(); ++i) Report.DataFiles[i] = Rows->Field("DataFiles" + std::to_string(i));
  Report.CustomerTable = Rows->Field("CustomerTable");
  Report.PageBreak = IsTrue(Rows->Field("CustomerPageBreak"));
  Report.BreakWanted = chkPageBreak.Value() == 1;
  Report.Queried = optCustomer[0].Value() && fraOptions.Enabled();
  Report.Current = optCustomer[2].Value();
  Report.AcctNum = lblAcctNum.Caption();
  Report.FirstLabel = FirstLabelOf(Report.File, txtFirstLabel.Value());

  // Whether the options are open is not asked here: a current customer that was left on still counts.
  Report.Selection = TextOf(Rows, "SelectionFormula");
  if (Report.Current && !Report.AcctNum.empty()) {
    if (!Report.Selection.empty()) Report.Selection += " And ";
    Report.Selection += OfCustomer(Report.AcctNum);
  }
  return Report;
}

/// Over a query the customers' table is the copy in the temporary file, whatever the row says, and no other table is.
void frmCustReports::NameDataFiles(const Chosen& Report) {
  for (int i = 0; i < static_cast<int>(Report.DataFiles.size()); ++i) {
    const Value& File = Report.DataFiles[static_cast<std::size_t>(i)];
    std::string& Path = Report1.Job.DataFiles[i];
    if (File.IsNull()) {
      Path = "";
      continue;
    }
    const std::string Name = platform::CStr(File);
    const bool Temporary = Report.Queried ? IsNumber(Report.CustomerTable, i) : platform::UCase(Name) == kTemporaryFile;
    Path = Temporary ? gTempPath : mDataPath + Name;
  }
}

void frmCustReports::Prepare(const Chosen& Report, bool& Stop) {
  Report1.Job.WindowTitle = Report.Description + " Report";
  NameDataFiles(Report);
  if (Report.IsLabels())
    PrepareLabels(Report, Stop);
  else
    PrepareReport(Report);
  if (!Loaded() || !Report.PageBreak) return;
  // A boolean formula bears no quotes.
  Report1.Job.Formulas[++mFormulaIndex] = std::string("CustomerBreak=") + (Report.BreakWanted ? "True" : "False");
}

void frmCustReports::PrepareReport(const Chosen& Report) {
  SetCompanyFormulas(Report1.Job);
  Report1.Job.Formulas[5] = TextFormula("ReportName", Report.Description);
  Report1.Job.Formulas[6] = PeriodFormula();
  mFormulaIndex = 6;
  if (Report.Queried) CopyQueriedCustomers();
}

/// The customers of the main screen's list, in one statement.
void frmCustReports::CopyQueriedCustomers() {
  bool Failed = false;
  ClearORVTempTable("Customers", Failed);
  if (!Loaded()) return;
  ProgressBar1.Value(30);
  App().DoEvents();
  const frmCustMain* Main = screens::frmCustMain.peek();
  if (!Loaded() || !Main) return;
  const std::string SQL = "INSERT INTO Customers" + InFile(gTempPath) + Main->data[tab::Customers].RecordSource();
  ExecuteSQLStmt(dbCustomer, SQL, false, Failed);
  if (!Loaded()) return;
  ProgressBar1.Value(80);
  App().DoEvents();
}

/// What the sort screen ends with is not asked: a cancelled one leaves the report file's own order.
void frmCustReports::PrepareLabels(const Chosen& Report, bool& Stop) {
  mFormulaIndex = 0;
  Report1.Job.FirstLabel = Report.FirstLabel;
  if (!Report.Current && Report.IsSorted()) {
    Toolbar1.Tag("");
    App().MousePointer(platform::pointer::Default);
    screens::frmMailLabel.Show();
    if (!Loaded()) return;
    App().MousePointer(platform::pointer::Hourglass);
  }
  bool Failed = false;
  LoadLabels(Failed);
  Stop = StopAsked();
}

}  // namespace orcussch
