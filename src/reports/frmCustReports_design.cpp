#include "records/columns.h"
#include "reports/frmCustReports.h"
#include "session/ModCustSch.h"

// What the catalogue's design fixes: captions, columns, places, first states.
namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmCustReports> frmCustReports{App};
}  // namespace screens

namespace {

constexpr platform::Shortcut kShortcuts[] = {
    {"tb_print", "Ctrl+P", ""}, {"tb_preview", "Ctrl+Shift+P", ""}, {"cmdStop", "Escape", ""}, {"miClose", "Escape", ""}};

constexpr int kNameLength = 50;

platform::GridColumn Wide(platform::GridColumn column, int characters) {
  column.width = characters;
  return column;
}

std::vector<platform::GridColumn> Columns() {
  using namespace column;
  return {Wide(Closed(Plain("Sequence", "Sequence")), 12),
          Wide(Closed(Limited(Plain("Available Reports     ", "Description"), kNameLength)), 42), Wide(Closed(Plain("Name", "Name")), 15),
          Wide(Closed(Plain("Type", "Type")), 9), Wide(Closed(Plain("Required Print Media", "PrintMedia")), 44)};
}

}  // namespace

frmCustReports::frmCustReports(platform::Application& application)
    : Screen(application, "frmCustReports", "Customer Reports"),
      Toolbar1(*this, "Toolbar1", {{"tb_print", "Print"}, {"tb_preview", "Print Preview"}, {"tb_setup", "Print Setup"}}),
      lblCustomer(*this, "lblCustomer"),
      lblAcctNum(*this, "lblAcctNum"),
      fraReports(*this, "fraReports", "Report Selection:"),
      DataReports(*this, "DataReports"),
      grdReports(*this, "grdReports"),
      chkReportName(*this, "chkReportName", "Edit Name"),
      cmdRestoreName(*this, "cmdRestoreName", "Restore Name"),
      fraOptions(*this, "fraOptions", "Report Options:"),
      optCustomer(*this, "optCustomer"),
      chkPageBreak(*this, "chkPageBreak", "Page break on Customer"),
      lblCurrentReport(*this, "lblCurrentReport"),
      lblPrinter(*this, "lblPrinter"),
      lblPrintMedia(*this, "lblPrintMedia"),
      lblFirstLabel(*this, "lblFirstLabel", "Start at label:"),
      txtFirstLabel(*this, "txtFirstLabel", 0),
      cmdAlign(*this, "cmdAlign", "Alignment..."),
      ProgressBar1(*this, "ProgressBar1"),
      cmdStop(*this, "cmdStop", "Stop"),
      StatusBar1(*this, "StatusBar1"),
      cd1(*this, "cd1"),
      Report1(*this, "Report1"),
      miClose(*this, "miClose", "Close") {
  Design();
  AttachHandlers();
}

void frmCustReports::Design() {
  Shortcuts(kShortcuts);
  DataReports.RecordSource("CUReports");
  grdReports.BindTo(DataReports);
  grdReports.DefineColumns(Columns());
  grdReports.RowCommands({{"Print Preview", &Toolbar1.Button("tb_preview"), true}, {"Print", &Toolbar1.Button("tb_print")}});
  DataReports.Bind(lblCurrentReport[0], "Description");
  DataReports.Bind(lblCurrentReport[1], "Sequence");
  DataReports.Bind(lblPrintMedia, "PrintMedia");
  for (platform::Control* control : std::initializer_list<platform::Control*>{&grdReports, &chkReportName, &cmdRestoreName})
    control->Container(fraReports);

  int i = 0;
  for (const char* caption : {"Queried Customers", "All Customers", "Current Customer"}) optCustomer[i++].Caption(caption);
  optCustomer[0].Design(true);
  optCustomer.Each([this](platform::OptionButton& option, int) { option.Container(fraOptions); });
  chkPageBreak.Container(fraOptions);
  cmdStop.Visible(false);
  constexpr int kFigures = 2;
  txtFirstLabel.MaxLength(kFigures);
  txtFirstLabel.Value(1);
  ShowLabelOptions("");
}

void frmCustReports::AttachHandlers() {
  Toolbar1.ButtonClick = [this](const std::string& Key) { Toolbar1_ButtonClick(Key); };
  DataReports.Reposition = [this] { DataReports_Reposition(); };
  grdReports.LostFocus = [this] { grdReports_LostFocus(); };
  grdReports.MouseMove = [this] { StatusBar1.Panel(1, "Click on the report you want to print"); };
  constexpr int kDescription = 1;
  chkReportName.Click = [this] { grdReports.OpenColumn(kDescription, chkReportName.Value() != 0); };
  cmdRestoreName.Click = [this] { cmdRestoreName_Click(); };
  cmdAlign.Click = [this] { cmdAlign_Click(); };
  cmdStop.Click = [this] { mStopped = true; };
  miClose.Click = [this] { App().Unload(*this); };
}

}  // namespace orcussch
