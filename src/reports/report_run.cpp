#include "reports/report_run.h"

#include "platform/controls/form/form.h"
#include "session/ModCustSch.h"

namespace orcussch {

namespace {
constexpr int kMaximised = 2;
}  // namespace

bool BeginRun(platform::ReportControl& Report, const platform::CommonDialog& Dialog) {
  Report.Reset();
  App().DoEvents();
  if (!Report.Owner().Loaded()) return false;
  Report.Job.WindowState = kMaximised;
  Report.Job.CopiesToPrinter = Dialog.Copies;
  Report.Job.DiscardSavedData = true;
  App().DoEvents();
  return Report.Owner().Loaded();
}

bool TakeReportFile(platform::ReportControl& Report, const std::string& Name) {
  Report.Job.ReportFileName = platform::WithSeparator(App().System(), App().Path()) + Name;
  const std::string& Path = Report.Job.ReportFileName;
  if (FileExists(Path)) return true;
  App().MsgBox("The report file " + Path + " was not found.", platform::box::OkOnly, "");
  return false;
}

void RunReport(platform::ReportControl& Report, int Destination, const std::string& Selection) {
  Report.Job.Destination = Destination;
  Report.Job.SelectionFormula = Selection;
  App().DoEvents();
  if (!Report.Owner().Loaded()) return;
  const int Result = Report.PrintReport();
  if (Result != 0) App().MsgBox("Crystal report error:" + std::to_string(Result), platform::box::OkOnly, "");
}

std::string OfCustomer(const std::string& AcctNum) { return "{Customers.AcctNum}=" + AcctNum; }

}  // namespace orcussch
