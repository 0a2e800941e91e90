#include "reports/report_print.h"

#include "maintenance/frmCustMain.h"
#include "reports/company_formulas.h"
#include "reports/report_run.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

namespace {

/// A tab's report, and the file in which each of its tables lies; nullptr keeps the one that the report file names.
struct TabReport {
  const char* name;
  const std::string* files[3];
};

constexpr TabReport kTabReports[tab::Count] = {
    {"ARCusDet.Rpt", {&gCustomerPath, &gCustomerPath, &gCustomerPath}}, {"ARCusPho.Rpt", {&gCustomerPath, &gCustomerPath, &gCustomerPath}},
    {"ARAltAdr.Rpt", {&gCustomerPath, &gCustomerPath, nullptr}},        {"ARCustCC.Rpt", {&gCustomerPath, &gCustomerPath, &gCustomerPath}},
    {"ARLabRat.Rpt", {&gCustomerPath, &gCustomerPath, &gGLPath}},       {"ARCusCod.Rpt", {&gCustomerPath, &gCustomerPath, &gCustomerPath}},
    {"ARCustKW.Rpt", {&gCustomerPath, &gCustomerPath, nullptr}},
};

void NameDataFiles(platform::ReportJob& Job, const TabReport& Report) {
  int n = 0;
  for (const std::string* File : Report.files) Job.DataFiles[n++] = File ? *File : "";
}

}  // namespace

void ReportPrint(frmCustMain& screen, int Destination) {
  Trap("frmReports.cmdPrint", [&] {
    const int Tab = screen.Tab();
    if (!screen.data[Tab].Recordset()->HasRows()) return;

    screen.StatusBar1.Panel(1, kPreparingReport);
    platform::ReportControl& Report1 = screen.Report1;
    if (!BeginRun(Report1, screen.CommonDialog1)) return;

    const TabReport& Report = kTabReports[Tab];
    NameDataFiles(Report1.Job, Report);
    if (TakeReportFile(Report1, Report.name)) {
      Report1.Job.WindowTitle = std::string("Customer Maintenance");
      SetCompanyFormulas(Report1.Job);
      Report1.Job.Formulas[5] = PeriodFormula();
      const std::string& AcctNum = screen.lblAcctNum.Caption();
      const std::string Selection = OfCustomer(AcctNum.empty() ? "0" : AcctNum);
      App().DoEvents();
      if (!screen.Loaded()) return;
      RunReport(Report1, Destination, Selection);
    }
    if (!screen.Loaded()) return;

    screen.StatusBar1.Panel(1, "");
    App().DoEvents();
    App().MousePointer(platform::pointer::Default);
  });
}

}  // namespace orcussch
