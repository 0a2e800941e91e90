#include "desktop/support/sample_screen.h"

namespace desktop_test {

using namespace platform;

namespace {
constexpr Shortcut kShortcuts[] = {
    {"miFind", "F3", "tb_Find"}, {"miPrint", "Ctrl+P", "tb_Print"}, {"miExit", "Ctrl+Q", ""}, {"tb_SaveRec", "Ctrl+S", ""}};
}  // namespace

frmSample::frmSample(Application& app) : Form(app, "frmSample", "Sample Screen") {
  Shortcuts(kShortcuts);
  const auto note = [this](std::string what) { return [this, what] { seen.push_back(what); }; };
  grid.DefineColumns({{"No.", "Number", "", {}, false, false, true, 0},
                      {"Name", "Name", "", {}, false, true, true, 0},
                      {"Amount", "Amount", "Currency", {}, false, false, true, 0},
                      {"Born", "Born", "Short Date", {}, false, false, true, 0},
                      {"Member", "Member", "", {}, true, true, true, 0},
                      {"Grade", "Grade", "", {{"A", "First"}, {"B", "Second"}}, false, true, true, 0}});
  grid.Splits(2);
  grid.MarksRows(true);
  grid.BindTo(data);
  grid.SearchBox(txtSearch);
  grid.RowCommands({{"Find", &Toolbar1.Button("tb_Find"), true}, {"Print", &Toolbar1.Button("tb_Print")}});
  grid.Emphasize("Number", {{"The best", [this] { return Value(best); }}});
  grid.Sort = [this](int column, bool descending) { seen.push_back("Sort " + std::to_string(column) + (descending ? " down" : " up")); };
  txtMemo.MultiLine(true);
  for (Control* control : {static_cast<Control*>(&txtSearch), static_cast<Control*>(&grid)}) control->PutOnTab(SSIndexTab1, 0, 0);
  for (Control* control : std::initializer_list<Control*>{&txtText, &txtPhone, &txtNumber, &txtMoney, &txtDate, &txtMemo})
    control->PutOnTab(SSIndexTab1, 0, 1);
  for (Control* control :
       std::initializer_list<Control*>{&fraBox, &cboColour, &cmdGo, &barDone, &lstLines, &scrValue, &spnValue, &pnlPlain})
    control->PutOnTab(SSIndexTab1, 1, 0);
  chkOn.Container(fraBox);
  optWay.Each([&](OptionButton& option, int index) {
    option.Caption("Way " + std::to_string(index));
    option.Container(fraBox);
    option.Design(index == 0);
    option.Click = note("Click optWay(" + std::to_string(index) + ")");
  });
  cboColour.Fill({{1, "Red", {"Red", "r"}}, {2, "Green", {"Green", "g"}}, {3, "Grey", {"Grey", "y"}}});
  lstLines.AddItem("first");
  lstLines.AddItem("second");

  Toolbar1.ButtonClick = [this](const std::string& key) { seen.push_back("ButtonClick " + key); };
  miFind.Click = note("Click miFind");
  miPrint.Click = note("Click miPrint");
  miExit.Click = [this] { Host().Unload(*this); };
  SSIndexTab1.Click = [this](int previous) { seen.push_back("Click SSIndexTab1 " + std::to_string(previous)); };
  txtText.Change = note("Change txtText");
  txtText.GotFocus = note("GotFocus txtText");
  txtText.LostFocus = note("LostFocus txtText");
  txtPhone.GotFocus = note("GotFocus txtPhone");
  chkOn.Click = note("Click chkOn");
  chkOn.MouseMove = note("MouseMove chkOn");
  cmdGo.Click = note("Click cmdGo");
  cmdGo.GotFocus = note("GotFocus cmdGo");
  cboColour.Change = note("Change cboColour");
  grid.HeadClick = [this](int column) { seen.push_back("HeadClick " + std::to_string(column)); };
  grid.SelChange = [this](bool&) { seen.push_back("SelChange"); };
  lstLines.Click = note("Click lstLines");
  scrValue.Change = note("Change scrValue");
  spnValue.SpinUp = note("SpinUp");
  spnValue.SpinDown = note("SpinDown");
}

}  // namespace desktop_test
