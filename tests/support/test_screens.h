#pragma once

#include <string>

#include "platform/controls/buttons.h"
#include "platform/controls/combo.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/tab_control.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/controls/lists.h"
#include "platform/controls/report_control.h"
#include "platform/controls/text_box.h"
#include "platform/controls/toolbar.h"
#include "platform/host/application.h"
#include "platform/host/screen.h"

namespace test_support {

/// A small second screen, opened from the first.
class frmSecond final : public platform::Screen {
 public:
  explicit frmSecond(platform::Application& app) : Screen(app, "frmSecond", "Second") {
    cmdClose.Click = [this] { App().Unload(*this); };
  }
  void Form_Load() override { App().DoEvents(); }
  platform::TextBox txtSecond{*this, "txtSecond"};
  platform::CommandButton cmdClose{*this, "cmdClose", "Close"};
};

/// A screen with every kind of control, whose buttons do what the scripted user has to cope with.
class frmFirst final : public platform::Screen {
 public:
  explicit frmFirst(platform::Application& app);
  void Form_Load() override;
  void Form_Unload() override;
  void Form_MouseMove() override { StatusBar1.Panel(1, "over the screen"); }

  /// The file with the table "People" that the list shows.
  std::string database;
  std::string order = "Number";
  int closedWith = 0;  ///< rows pending when it was unloaded
  bool unloaded = false;

  platform::Toolbar Toolbar1{*this, "Toolbar1", {{"tb_Find", "Find it"}, {"tb_SaveRec", "Save it"}, {"tb_Hidden", "Never seen"}}};
  platform::MenuItem miFind{*this, "miFind", "Find"};
  platform::MenuItem miExit{*this, "miExit", "Exit"};
  platform::Menu mnuFile{*this, "mnuFile", "&File", {&miFind, &miExit}};
  platform::TextBox txtName{*this, "txtName", 10};
  platform::TextBox txtPhone{*this, "txtPhone", 0, "%%%-%%%%"};
  platform::TextBox txtLocked{*this, "txtLocked"};
  platform::NumberEdit txtNumber{*this, "txtNumber"};
  platform::CurrencyEdit txtMoney{*this, "txtMoney"};
  platform::DateEdit txtDate{*this, "txtDate"};
  platform::ComboBox cboColor{*this, "cboColor"};
  platform::CheckBox chkWanted{*this, "chkWanted", "Wanted"};
  platform::ControlArray<platform::OptionButton, 2> optWay{*this, "optWay"};
  platform::Frame fraBox{*this, "fraBox", "Box"};
  platform::TextBox txtInBox{*this, "txtInBox"};
  platform::TabControl SSIndexTab1{*this, "SSIndexTab1", {"First", "Second", "Third"}};
  platform::TextBox txtOnTab{*this, "txtOnTab"};
  platform::DataControl data{*this, "data", 0};
  platform::Grid grid{*this, "grid", 0};
  platform::ListBox lstLines{*this, "lstLines"};
  platform::ScrollBar Scroll1{*this, "Scroll1"};
  platform::SpinButton Spin1{*this, "Spin1"};
  platform::ProgressBar Progress1{*this, "Progress1"};
  platform::Label lblInfo{*this, "lblInfo", "Info"};
  platform::CommandButton cmdSecond{*this, "cmdSecond", "Second"};
  platform::CommandButton cmdTell{*this, "cmdTell", "Tell"};
  platform::CommandButton cmdAsk{*this, "cmdAsk", "Ask"};
  platform::CommandButton cmdFail{*this, "cmdFail", "Fail"};
  platform::CommandButton cmdLog{*this, "cmdLog", "Log"};
  platform::CommandButton cmdWork{*this, "cmdWork", "Work"};
  platform::CommandButton cmdPrint{*this, "cmdPrint", "Print"};
  platform::CommandButton cmdPrinter{*this, "cmdPrinter", "Printer"};
  platform::CommandButton cmdMap{*this, "cmdMap", "Map"};
  platform::CommandButton cmdAccount{*this, "cmdAccount", "Account"};
  platform::StatusBar StatusBar1{*this, "StatusBar1"};
  platform::ReportControl Report1{*this, "Report1"};
  platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};

 private:
  void AttachEdits();
  void AttachButtons();
  void AttachList();
  void Work();
  void Map();
  void Account();
};

}  // namespace test_support
