#include "reports/frmMailLabel.h"

#include "platform/values/convert.h"
#include "records/columns.h"
#include "reports/company_formulas.h"
#include "reports/frmCustReports.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

namespace screens {
platform::ScreenRef<orcussch::frmMailLabel> frmMailLabel{App};
}  // namespace screens

namespace {

constexpr platform::Shortcut kShortcuts[] = {
    {"miUp", "Ctrl+Up", ""}, {"miDown", "Ctrl+Down", ""}, {"miOk", "Ctrl+Enter", ""}, {"miCancel", "Escape", ""}};

constexpr const char* kField = "Sort Field";
constexpr const char* kOrder = "Sort Order";
constexpr int kFields = 4;

/// The field of the label's row that a name of the list stands for.
std::string LabelField(const std::string& Name) {
  const bool known = Name == "Name" || Name == "City" || Name == "State";
  return "{CustLabelTempRpt." + (known ? Name : "Zip") + "}";
}

platform::GridColumn Column(const char* Name, int Width) {
  platform::GridColumn column = column::Closed(column::Plain(Name, Name));
  column.width = Width;
  return column;
}

}  // namespace

frmMailLabel::frmMailLabel(platform::Application& application)
    : Screen(application, "frmMailLabel", "Mailing Label Sorting"),
      sivbLB1(*this, "sivbLB1",
              "Use the arrow buttons to set the sort order of the mailing label fields then click ok to print/preview mailing labels"),
      DataSort(*this, "DataSort"),
      TDBGrid1(*this, "TDBGrid1"),
      CSSpin1(*this, "CSSpin1"),
      cmdSort(*this, "cmdSort"),
      StatusBar1(*this, "StatusBar1"),
      miUp(*this, "miUp", "Up"),
      miDown(*this, "miDown", "Down"),
      miOk(*this, "miOk", "Ok"),
      miCancel(*this, "miCancel", "Cancel"),
      mSort({kField, kOrder}, {{"Name", "1"}, {"City", "2"}, {"State", "3"}, {"Zip", "4"}}) {
  Shortcuts(kShortcuts);
  TDBGrid1.BindTo(DataSort);
  TDBGrid1.DefineColumns({Column(kField, 16), Column(kOrder, 12)});
  cmdSort[0].Caption("Ok");
  cmdSort[1].Caption("Cancel");

  CSSpin1.SpinUp = [this] { MoveField(false); };
  CSSpin1.SpinDown = [this] { MoveField(true); };
  cmdSort.Each([this](platform::CommandButton& button, int Index) { button.Click = [this, Index] { cmdSort_Click(Index); }; });
  cmdSort[0].MouseMove = [this] { StatusBar1.Panel(1, "Click 'Ok' to print mailing labels in the selected sort order"); };
  cmdSort[1].MouseMove = [this] { StatusBar1.Panel(1, "Click 'Cancel' to cancel printing mailing labels"); };
  const auto spin = [this](bool Down) {
    if (CSSpin1.Enabled()) MoveField(Down);
  };
  miUp.Click = [spin] { spin(false); };
  miDown.Click = [spin] { spin(true); };
  miOk.Click = [this] { cmdSort_Click(0); };
  miCancel.Click = [this] { cmdSort_Click(1); };
}

void frmMailLabel::Form_Load() { DataSort.Show(mSort); }

void frmMailLabel::Form_Activate() {
  TDBGrid1.Row(0);
  TDBGrid1.CursorColumn(0);
}

void frmMailLabel::Form_MouseMove() { StatusBar1.Panel(1, "Click the up/down arrow to change the sort order"); }

/// The field of the current row changes places with its neighbour, and stays the current one.
void frmMailLabel::MoveField(bool Down) {
  CSSpin1.Enabled(false);
  const int n = platform::CInt(DataSort.Recordset()->Field(kOrder));
  if (n == (Down ? kFields : 1)) {
    CSSpin1.Enabled(true);
    return;
  }
  App().MousePointer(platform::pointer::Hourglass);
  const int Row = n - 1;
  const int Other = Down ? Row + 1 : Row - 1;
  mSort.Swap(Row, Other, 0);
  DataSort.Show(mSort);
  TDBGrid1.Row(Other);
  App().DoEvents();
  if (!Loaded()) return;
  CSSpin1.Enabled(true);
  App().MousePointer(platform::pointer::Default);
}

/// The number of the formulas grows by the number of the field, not by one: the label reports know them under 0, 1, 3 and 6.
void frmMailLabel::cmdSort_Click(int Index) {
  Trap("frmMailLable.cmdSort_Click", [&] {
    cmdSort[Index].Enabled(false);
    frmCustReports* Reports = screens::frmCustReports.peek();
    if (Reports && Index == 0) {
      for (int i = 0; i < kFields; ++i) {
        const std::string Field = LabelField(mSort.At(i, 0));
        Reports->FormulaIndex(Reports->FormulaIndex() + i);
        Reports->Report1.Job.Formulas[Reports->FormulaIndex()] = TextFormula("Sort" + std::to_string(i), Field);
        Reports->Report1.Job.SortFields[i] = "+" + Field;
      }
    }
    if (Reports && Index == 1) Reports->Toolbar1.Tag("Cancel");
    cmdSort[Index].Enabled(true);
    App().Unload(*this);
  });
}

/// Every run begins with the order of the design.
void frmMailLabel::Form_Unload() { screens::frmMailLabel.release(); }

}  // namespace orcussch
