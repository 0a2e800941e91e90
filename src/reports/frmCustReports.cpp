#include "reports/frmCustReports.h"

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "reports/label_reports.h"
#include "reports/report_run.h"
#include "session/ModCustSch.h"

// The catalogue's life, its rows and its toolbar.
namespace orcussch {

namespace {

/// A command of the toolbar is at work.
class Running {
 public:
  explicit Running(bool& Flag) : mFlag(Flag) { mFlag = true; }
  ~Running() { mFlag = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  bool& mFlag;
};

}  // namespace

void frmCustReports::Form_Load() {
  Trap("frmCustReports.Form_Load", [this] {
    mDataPath = GetDataPath(gCompanyID, "");
    DataReports.DatabaseName(gCustomerPath);
    DataReports.Refresh();
    ShowCustomer();
    Caption("Customer Reports - " + platform::Trim(gCompany.CompName));
    ShowPrinter();
    App().DoEvents();
  });
}

/// Which customers can be asked for follows from the main screen's list: without rows only all of them, and the query's own only while
/// the list bears a query's caption.
void frmCustReports::ShowCustomer() {
  const frmCustMain& Main = *screens::frmCustMain;
  const bool Rows = Main.data[tab::Customers].Recordset()->HasRows();
  const bool Queried = Rows && platform::Left(Main.grid[tab::Customers].Caption(), 1) == "Q";
  optCustomer[0].Enabled(Queried);
  if (!Queried) optCustomer[1].Value(true);
  if (!Rows) optCustomer[2].Enabled(false);
  lblCustomer.Caption(Rows ? Main.lblCustomer.Caption() : "");
  lblAcctNum.Caption(Rows ? Main.lblAcctNum.Caption() : "");
}

void frmCustReports::ShowPrinter() {
  const std::string Name = App().DefaultPrinter();
  lblPrinter.Caption(Name.empty() ? "No printer" : Name);
}

/// Both tests are of Bof: nothing can be chosen in an empty list, nor in front of the first row. A row that is clicked on while a report
/// runs leaves the toolbar shut.
void frmCustReports::DataReports_Reposition() {
  Trap("frmCustReports.DataReports_Reposition", [this] {
    const platform::RecordsetRef Rows = DataReports.Recordset();
    if (Rows->Bof()) {
      Toolbar1.Enabled(false);
      ShowLabelOptions("");
    } else {
      ShowLabelOptions(TextOf(Rows, "Name"));
      Toolbar1.Enabled(!mRunning);
      chkPageBreak.Value(0);
      chkPageBreak.Enabled(IsTrue(Rows->Field("CustomerPageBreak")));
      fraOptions.Enabled(IsTrue(Rows->Field("CustomerSelection")));
    }
    App().DoEvents();
  });
}

/// Each row begins with a whole sheet.
void frmCustReports::ShowLabelOptions(const std::string& File) {
  const bool Labels = IsLabelReport(File);
  txtFirstLabel.Value(1);
  lblFirstLabel.Visible(Labels);
  txtFirstLabel.Visible(Labels);
  cmdAlign.Visible(Labels);
}

/// A name that was typed in is stored at once.
void frmCustReports::grdReports_LostFocus() {
  if (grdReports.DataChanged()) grdReports.WritePendingRow();
}

void frmCustReports::cmdRestoreName_Click() {
  cmdRestoreName.Enabled(false);
  const platform::RecordsetRef Rows = DataReports.Recordset();
  if (Rows->HasRows()) {
    Rows->Edit();
    Rows->SetField("Description", Rows->Field("DefaultDescription"));
    try {
      Rows->Update();
    } catch (const platform::Error&) {
      Ignore()([&] { Rows->CancelUpdate(); });  // the name that is stored is the one that a run goes by
      throw;
    }
  }
  cmdRestoreName.Enabled(true);
}

void frmCustReports::cmdAlign_Click() {
  Trap("frmCustReports.cmdAlign_Click", [this] {
    platform::ReportEngine* Engine = App().Reports();
    const platform::RecordsetRef Rows = DataReports.Recordset();
    if (!Engine || !Rows->HasRows()) return;
    Engine->AlignPrinter(platform::WithSeparator(App().System(), App().Path()) + TextOf(Rows, "Name"));
    if (Loaded()) ShowPrinter();
  });
}

void frmCustReports::Toolbar1_ButtonClick(const std::string& Key) {
  Trap("frmCustReports.Toolbar1_Click", [&] {
    const Running Guard(mRunning);
    Toolbar1.Enabled(false);
    App().MousePointer(platform::pointer::Hourglass);
    App().DoEvents();
    if (!Loaded()) return;
    if (grdReports.DataChanged()) grdReports.WritePendingRow();
    if (Key == "tb_print") cmdPrint(destination::Printer);
    if (Key == "tb_preview") cmdPrint(destination::Preview);
    if (Key == "tb_setup") {
      PrinterSetup(*this);
      ShowPrinter();
    }
    if (!Loaded()) return;
    Toolbar1.Enabled(true);
    App().MousePointer(platform::pointer::Default);
    App().DoEvents();
  });
}

/// The next time begins as it was designed.
void frmCustReports::Form_Unload() { screens::frmCustReports.release(); }

}  // namespace orcussch
