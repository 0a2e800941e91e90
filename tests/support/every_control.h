#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/data_file.h"
#include "engine/engine.h"
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
#include "support/hosted_test.h"

/// A screen with every kind of control; its handlers write down their names.
class frmEvery final : public platform::Form {
 public:
  explicit frmEvery(platform::Application& app);
  void Form_Unload() override { seen.emplace_back("Form_Unload"); }

  std::vector<std::string> seen;
  /// What was seen since the last question.
  std::vector<std::string> Seen() { return std::exchange(seen, {}); }

  platform::Toolbar Toolbar1{*this, "Toolbar1", {{"tb_Go", "Go"}}};
  platform::MenuItem miGo{*this, "miGo", "Go"};
  platform::TextBox txtText{*this, "txtText", 5};
  platform::TextBox txtPhone{*this, "txtPhone", 0, "%%%-%%%%"};
  platform::NumberEdit txtNumber{*this, "txtNumber"};
  platform::CurrencyEdit txtMoney{*this, "txtMoney"};
  platform::DateEdit txtDate{*this, "txtDate"};
  platform::CheckBox chkOn{*this, "chkOn"};
  platform::ControlArray<platform::OptionButton, 3> optWay{*this, "optWay"};
  platform::CommandButton cmdGo{*this, "cmdGo"};
  platform::ComboBox cboColor{*this, "cboColor"};
  platform::TabControl tabs{*this, "tabs", {"One", "Two", "Three"}};
  platform::TextBox txtOnTab{*this, "txtOnTab"};
  platform::Frame fraBox{*this, "fraBox", "Box"};
  platform::TextBox txtInBox{*this, "txtInBox"};
  platform::DataControl data{*this, "data"};
  platform::Grid grid{*this, "grid"};
  platform::ListBox lstLines{*this, "lstLines"};
  platform::ScrollBar scrValue{*this, "scrValue"};
  platform::SpinButton spnValue{*this, "spnValue"};

 private:
  void Watch(platform::Control& control);
};

inline frmEvery::frmEvery(platform::Application& app) : Form(app, "frmEvery", "Every") {
  const auto note = [this](const std::string& what) { return [this, what] { seen.push_back(what); }; };
  Toolbar1.ButtonClick = [this](const std::string& key) { seen.push_back("Click " + key); };
  miGo.Click = note("Click miGo");
  for (platform::TextBox* box : std::initializer_list<platform::TextBox*>{&txtText, &txtPhone, &txtNumber, &txtMoney, &txtDate}) {
    box->Change = note("Change " + box->Name());
    box->KeyPress = [this](int&) { seen.emplace_back("KeyPress"); };
  }
  chkOn.Click = note("Click chkOn");
  optWay[1].Design(true);
  optWay.Each([&](platform::OptionButton& option, int) { option.Click = note("Click " + option.FullName()); });
  cmdGo.Click = note("Click cmdGo");
  cboColor.Fill({{platform::Value("R"), "Red", {"Red"}}, {platform::Value("G"), "Green", {"Green"}}});
  cboColor.Change = note("Change cboColor");
  tabs.BeforeTabClick = [this](int tab, bool&) { seen.push_back("BeforeTabClick " + std::to_string(tab)); };
  tabs.Click = [this](int previous) { seen.push_back("Click tabs from " + std::to_string(previous)); };
  txtOnTab.PutOnTab(tabs, 0, 0);
  txtInBox.Container(fraBox);
  lstLines.AddItem("one");
  lstLines.AddItem("two");
  lstLines.Click = note("Click lstLines");
  scrValue.Change = note("Change scrValue");
  spnValue.SpinUp = note("SpinUp");
  spnValue.SpinDown = note("SpinDown");
  for (platform::Control* control : std::initializer_list<platform::Control*>{&txtText, &txtPhone, &txtOnTab, &txtInBox, &cmdGo})
    Watch(*control);
  grid.BindTo(data);
  data.Reposition = note("Reposition");
}

inline void frmEvery::Watch(platform::Control& control) {
  control.GotFocus = [this, &control] { seen.push_back("GotFocus " + control.Name()); };
  control.LostFocus = [this, &control] { seen.push_back("LostFocus " + control.Name()); };
}

/// An application with that screen, and a file "People" with three rows: 1 Adams, 2 Baker, 3 Cole.
class ScreenTest : public HostedTest {
 protected:
  ScreenTest() {
    using platform::FieldType;
    platform::TableDefinition people;
    people.name = "People";
    people.fields = {{"Number", FieldType::Counter, 0, platform::Null},
                     {"Name", FieldType::Text, 10, platform::Null},
                     {"Amount", FieldType::Currency, 0, platform::Value(platform::Currency{0})},
                     {"Active", FieldType::Boolean, 0, platform::Value(false)}};
    people.indexes = {{"PrimaryKey", {"Number"}, true, true}, {"Name", {"Name"}, true, false}};
    engine::CreateDataFile(folder / "people.zdb", std::vector<platform::TableDefinition>{people});
    const std::vector<std::string> fields = {"Name"};
    const auto rows = engine::OpenBulkWriter(folder / "people.zdb", "People", fields);
    for (const char* name : {"Adams", "Baker", "Cole"}) rows->Add(std::vector<platform::Value>{platform::Value(name)});
    rows->Finish();

    screen = std::make_unique<frmEvery>(*app);
    app->Load(*screen);
  }

  /// The list of people by name, opened.
  void OpenList() {
    screen->data.DatabaseName(folder / "people.zdb");
    screen->data.RecordSource("SELECT * FROM People ORDER BY Name");
    platform::GridColumn name;
    name.caption = "Name";
    name.dataField = "Name";
    name.open = true;
    platform::GridColumn active = name;
    active.caption = active.dataField = "Active";
    active.checkBox = true;
    screen->grid.DefineColumns({name, active});
    screen->data.Refresh();
    screen->Seen();
  }
  /// The first field of a query's first row, as another program sees it.
  std::string Stored(const std::string& sql) {
    const auto other = engine::MakeEngine();
    const auto database = other->OpenControlDatabase(folder / "people.zdb");
    const auto rows = database->OpenRecordset(sql);
    return rows->Eof() ? "none" : rows->Field(0).As<std::string>();
  }
  void Elsewhere(const std::string& sql) {
    const auto other = engine::MakeEngine();
    other->OpenControlDatabase(folder / "people.zdb")->Execute(sql, platform::dbFailOnError);
  }

  std::unique_ptr<frmEvery> screen;
};
