#pragma once

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/lists.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/application.h"

namespace desktop_test {

/// A screen with every kind of control, which records what its handlers see.
class frmSample final : public platform::Form {
 public:
  explicit frmSample(platform::Application& app);

  std::vector<std::string> seen;  ///< events in order: "Click cmdGo"
  std::int32_t best = 0;          ///< the number of the row that stands out

  platform::Toolbar Toolbar1{
      *this, "Toolbar1", {{"tb_Find", "Find Record"}, {"tb_SaveRec", "Save Records"}, {"tb_Print", "Print Report", true}}};
  platform::MenuItem miFind{*this, "miFind", "Find"};
  platform::MenuItem miPrint{*this, "miPrint", "Print"};
  platform::MenuItem miExit{*this, "miExit", "Exit"};
  platform::Menu mnuFile{*this, "mnuFile", "&File", {&miFind, &miPrint, &miExit}};
  platform::Label lblName{*this, "lblName", "Customer && name"};
  platform::TabControl SSIndexTab1{*this, "SSIndexTab1", {"  One  ", "  Two  ", "  Three  "}};
  platform::DataControl data{*this, "data"};
  platform::TextBox txtSearch{*this, "txtSearch", 0, ""};
  platform::Grid grid{*this, "grid"};
  platform::TextBox txtText{*this, "txtText", 10};
  platform::TextBox txtPhone{*this, "txtPhone", 7, "%%%-%%%%"};
  platform::NumberEdit txtNumber{*this, "txtNumber"};
  platform::CurrencyEdit txtMoney{*this, "txtMoney"};
  platform::DateEdit txtDate{*this, "txtDate"};
  platform::TextBox txtMemo{*this, "txtMemo"};
  platform::Frame fraBox{*this, "fraBox", "Box:"};
  platform::CheckBox chkOn{*this, "chkOn", "On"};
  platform::ControlArray<platform::OptionButton, 3> optWay{*this, "optWay"};
  platform::Frame pnlPlain{*this, "pnlPlain"};
  platform::ComboBox cboColour{*this, "cboColour"};
  platform::CommandButton cmdGo{*this, "cmdGo", "Go"};
  platform::ProgressBar barDone{*this, "barDone"};
  platform::ListBox lstLines{*this, "lstLines"};
  platform::ScrollBar scrValue{*this, "scrValue"};
  platform::SpinButton spnValue{*this, "spnValue"};
  platform::StatusBar StatusBar1{*this, "StatusBar1"};
};

/// Columns of the sample list, in design order.
namespace column {
inline constexpr int Number = 0, Name = 1, Amount = 2, Born = 3, Member = 4, Grade = 5;
}

}  // namespace desktop_test
