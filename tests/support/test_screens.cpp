#include "support/test_screens.h"

#include "platform/values/convert.h"

namespace test_support {

using platform::Value;

namespace {

platform::GridColumn Column(const char* caption, const char* field) {
  platform::GridColumn column;
  column.caption = caption;
  column.dataField = field;
  return column;
}

}  // namespace

frmFirst::frmFirst(platform::Application& app) : Screen(app, "frmFirst", "First") {
  static constexpr platform::Shortcut kShortcuts[] = {{"miFind", "F3", "tb_Find"}, {"miExit", "Ctrl+Q", ""}, {"tb_SaveRec", "Ctrl+S", ""}};
  Shortcuts(kShortcuts);
  txtLocked.Locked(true);
  txtInBox.Container(fraBox);
  txtOnTab.PutOnTab(SSIndexTab1, 1, 0);
  optWay[0].Design(true);
  Toolbar1.Button("tb_Hidden").Visible(false);
  cboColor.Fill({{Value("R"), "Red", {"Red"}}, {Value("G"), "Green", {"Green"}}});
  lstLines.AddItem("one");
  lstLines.AddItem("two");
  grid.BindTo(data);
  grid.DefineColumns({Column("No.", "Number"), Column("Name", "Name"), Column("Amount", "Amount"), Column("Active", "Active")});
  grid.DesignColumn(1).open = true;
  grid.DesignColumn(2).numberFormat = "Currency";
  grid.DesignColumn(3).open = grid.DesignColumn(3).checkBox = true;
  grid.Splits(2);
  grid.MarksRows(true);
  AttachEdits();
  AttachButtons();
  AttachList();
}

void frmFirst::Form_Load() {
  if (database.empty()) return;
  data.DatabaseName(database);
  data.RecordSource("SELECT * FROM People ORDER BY " + order);
  data.Refresh();
}

void frmFirst::Form_Unload() {
  unloaded = true;
  closedWith = grid.DataChanged() ? 1 : 0;
}

void frmFirst::AttachEdits() {
  txtName.Change = [this] { lblInfo.Caption("Name " + txtName.Text()); };
  txtName.KeyPress = [this](int& key) {
    if (key == 13) lblInfo.Caption("Enter in name");
  };
  chkWanted.Click = [this] { lblInfo.Caption("Wanted " + std::to_string(chkWanted.Value())); };
  optWay[1].Click = [this] { lblInfo.Caption("Way 1"); };
  cboColor.Change = [this] { lblInfo.Caption("Color " + platform::CStr(cboColor.BoundValue())); };
  SSIndexTab1.BeforeTabClick = [this](int tab, bool& cancel) { cancel = tab == 2 && chkWanted.Value() == 0; };
  lstLines.Click = [this] { lblInfo.Caption("Line " + std::to_string(lstLines.ListIndex())); };
  lstLines.DblClick = [this] { lblInfo.Caption("Line twice"); };
  Scroll1.Change = [this] { lblInfo.Caption("Scrolled " + std::to_string(Scroll1.Value())); };
  Spin1.SpinUp = [this] { lblInfo.Caption("Up"); };
  Spin1.SpinDown = [this] { lblInfo.Caption("Down"); };
  cmdTell.MouseMove = [this] { StatusBar1.Panel(1, "over the button"); };
}

void frmFirst::AttachButtons() {
  Toolbar1.ButtonClick = [this](const std::string& key) { lblInfo.Caption("Key " + key); };
  miFind.Click = [this] { lblInfo.Caption("Item Find"); };
  miExit.Click = [this] { App().Unload(*this); };
  cmdSecond.Click = [this] {
    frmSecond second(App());
    App().Show(second);
    lblInfo.Caption("Second said " + second.txtSecond.Text());
  };
  cmdTell.Click = [this] { App().MsgBox("First line\rsecond \"line\"", platform::box::Information, "Telling"); };
  cmdAsk.Click = [this] {
    const int answer = App().MsgBox("Really?", platform::box::YesNo + platform::box::Question, "Asking");
    lblInfo.Caption("Answer " + std::to_string(answer));
  };
  cmdFail.Click = [] { throw platform::Error(3021, "No current record."); };
  cmdLog.Click = [this] {
    App().ErrorLog().Write({1, false, "test", "frmFirst.cmdLog", 1, 3061, "Too few parameters."});
    App().MsgBox("An error occurred in module: frmFirst.cmdLog", platform::box::Exclamation, "Program Execution Error");
  };
  cmdWork.Click = [this] { Work(); };
  cmdPrint.Click = [this] {
    Report1.Reset();
    Report1.Job.ReportFileName = "List.Rpt";
    Report1.Job.WindowTitle = "";
    Report1.Job.Formulas[0] = "Title=\"x\"";
    Report1.Job.Destination = 1;
    lblInfo.Caption("Printed " + std::to_string(Report1.PrintReport()));
  };
  cmdPrinter.Click = [this] {
    CommonDialog1.ShowPrinter();
    lblInfo.Caption("Pages " + std::to_string(CommonDialog1.FromPage) + "-" + std::to_string(CommonDialog1.ToPage));
  };
  cmdMap.Click = [this] { Map(); };
  cmdAccount.Click = [this] { Account(); };
}

void frmFirst::AttachList() {
  grid.HeadClick = [this](int column) {
    order = grid.Column(column).dataField;
    data.RecordSource("SELECT * FROM People ORDER BY " + order);
    data.Refresh();
  };
  grid.SelChange = [this](bool&) { lblInfo.Caption("Marked " + std::to_string(grid.SelBookmarks.Count())); };
  grid.BeforeColUpdate = [this](int column, const Value&, bool& cancel) {
    cancel = column == 1 && platform::CStr(grid.ColumnValue(column)).empty();
  };
}

/// Three yields, a status text, a busy pointer and a bar that fills.
void frmFirst::Work() {
  App().MousePointer(platform::pointer::Hourglass);
  StatusBar1.Panel(1, "Please wait!");
  for (int step = 1; step <= 3; ++step) {
    Progress1.Value(step * 10);
    App().DoEvents();
  }
  StatusBar1.Panel(1, "");
  App().MousePointer(platform::pointer::Default);
}

void frmFirst::Map() {
  platform::MapEngine& map = *App().Map();
  map.OnPinClicked = [this](const std::string& key) { lblInfo.Caption("Pin " + key); };
  map.Prepare();
  const platform::GeocodeAnswer answer = map.Geocode("1 Main St,Springfield");
  map.AddPin({"17", answer.latitude, answer.longitude, "Smith", 5730, "push.bmp"});
  lblInfo.Caption("Candidates " + std::to_string(answer.candidates.size()) + " distance " + std::to_string(map.Distance(1, 2, 4, 6)));
  map.Draw(answer.latitude, answer.longitude, 26400);
}

void frmFirst::Account() {
  platform::AccountsLookupInput input;
  input[0] = "Acme";
  input[4] = std::int32_t{2};
  const platform::ChosenAccount chosen = App().Accounts()->Run(input);
  lblInfo.Caption(chosen.chosen ? "Account " + chosen.account + "-" + chosen.department : "No account");
}

}  // namespace test_support
