#include <set>
#include <sstream>

#include "support/main_screen_test.h"

// Every command of the main screen does something where its rule opens it.
namespace {

using orcussch::frmCustMain;
using platform::Control;

void OnBrowse(frmCustMain&) {}
void OnSearch(frmCustMain& screen) { screen.txtSearch[0].Text("nobody"); }
void OnCard(frmCustMain& screen) { screen.miAddRec.UserClick(); }
void OnTypes(frmCustMain& screen) { screen.SSIndexTab1.UserClick(orcussch::tab::CustomerTypes); }
void OnMarkedTypes(frmCustMain& screen) {
  OnTypes(screen);
  screen.grid[orcussch::tab::CustomerTypes].UserMark({screen.data[orcussch::tab::CustomerTypes].Recordset()->Bookmark()});
}
void OnAssignedTypes(frmCustMain& screen) {
  OnMarkedTypes(screen);
  screen.miAssignSelected.UserClick();
}

/// A command and a situation in which it has something to do.
struct Command {
  const char* name;
  void (*situation)(frmCustMain& screen);
};

constexpr Command kCommands[] = {
    {"tb_Print", OnBrowse},
    {"tb_Preview", OnBrowse},
    {"tb_PrintSetup", OnBrowse},
    {"tb_Select", OnBrowse},
    {"tb_Find", OnSearch},
    {"tb_Queries", OnBrowse},
    {"tb_Refresh", OnBrowse},
    {"tb_AddRec", OnBrowse},
    {"tb_EditRec", OnBrowse},
    {"tb_DeleteRec", OnBrowse},
    {"tb_SaveRec", OnCard},
    {"tb_CancelRec", OnCard},
    {"tb_MapCustomer", OnBrowse},
    {"tb_MapAll", OnBrowse},
    {"tb_Statistics", OnBrowse},
    {"tb_Reports", OnBrowse},
    {"tb_SelectAll", OnTypes},
    {"tb_UnselectAll", OnMarkedTypes},
    {"tb_UnassignSelected", OnAssignedTypes},
    {"tb_AssignSelected", OnMarkedTypes},
    {"tb_TaxSetup", OnBrowse},
    {"tb_CreditCardSetup", OnBrowse},
    {"tb_PhoneSetup", OnBrowse},
    {"miPrint", OnBrowse},
    {"miPreview", OnBrowse},
    {"miPrintSetup", OnBrowse},
    {"miExit", OnBrowse},
    {"miFind", OnSearch},
    {"miSelect", OnBrowse},
    {"miAddRec", OnBrowse},
    {"miEditRec", OnBrowse},
    {"miDeleteRec", OnBrowse},
    {"miSaveRec", OnCard},
    {"miCancelRec", OnCard},
    {"miRefresh", OnBrowse},
    {"miSetupTaxes", OnBrowse},
    {"miSetupCreditCards", OnBrowse},
    {"miSetupPhones", OnBrowse},
    {"miSetupMapCodes", OnBrowse},
    {"miMapCustomer", OnBrowse},
    {"miMapAll", OnBrowse},
    {"mnuUserStartup", OnBrowse},
    {"miQueries", OnBrowse},
    {"miStatistics", OnBrowse},
    {"miReports", OnBrowse},
    {"miRelationships", OnBrowse},
    {"miSelectAll", OnTypes},
    {"miUnselectAll", OnMarkedTypes},
    {"miUnassignSelected", OnAssignedTypes},
    {"miAssignSelected", OnMarkedTypes},
    {"cmdMapCode", OnCard},
};

void Click(Control& control) {
  if (auto* key = dynamic_cast<platform::ToolbarButton*>(&control))
    key->UserClick();
  else if (auto* item = dynamic_cast<platform::MenuItem*>(&control))
    item->UserClick();
  else if (auto* button = dynamic_cast<platform::CommandButton*>(&control))
    button->UserClick();
}

class CommandsTest : public MainScreenTest {
 protected:
  CommandsTest() {
    AddRows(CustomerFile(), "Customers", {"LastName"}, {{"Ames"}, {"Bell"}});
    AddRows(CustomerFile(), "DataCodes", {"Code", "Description"}, {{std::int16_t{1}, "Old"}, {std::int16_t{2}, "New"}});
  }

  /// What a user could notice of a command, as one text.
  std::string Noticed(const frmCustMain& screen) const {
    std::ostringstream text;
    text << "boxes " << frontEnd->boxes.size() << " screens " << otherScreens << " reports " << log->records.size();
    if (!screen.Loaded()) return text.str() + " unloaded";
    text << " tab " << screen.SSIndexTab1.Tab() << " page " << screen.SSIndexTab1.Page() << " status " << screen.StatusBar1.Panel(1);
    text << " printer " << screen.Report1.Job.CopiesToPrinter.Given() << " report " << screen.Report1.Job.ReportFileName.Given()
         << " lists";
    screen.data.Each([&](const platform::DataControl& data, int) { text << ' ' << data.RefreshCount(); });
    text << " marked";
    screen.grid.Each([&](const platform::Grid& grid, int) { text << ' ' << grid.SelBookmarks.Count(); });
    text << " assigned " << orcussch::dbCustomer->OpenRecordset("SELECT AcctNum FROM CustCodes")->RecordCount();
    return text.str();
  }

  /// Whether the command does something in its situation.
  bool DoesSomething(const Command& command) {
    bool changed = false;
    Serve([&](frmCustMain& screen) {
      command.situation(screen);
      Control* control = screen.Find(command.name);
      ASSERT_NE(control, nullptr) << command.name;
      EXPECT_TRUE(control->EffectivelyEnabled()) << command.name;
      const std::string before = Noticed(screen);
      Click(*control);
      changed = Noticed(screen) != before;
    });
    orcussch::dbCustomer.Reset();
    Execute("DELETE * FROM CustCodes");
    return changed;
  }

  void Execute(const std::string& statement) const {
    const auto engine = engine::MakeEngine();
    const auto workspace = engine->CreateWorkspace("Test", "Admin", "", 2);
    engine->AppendWorkspace(workspace);
    workspace->OpenDatabase(CustomerFile())->Execute(statement, platform::dbFailOnError);
    workspace->Close();
  }
};

TEST_F(CommandsTest, EveryCommandOfTheScreenIsTested) {
  std::set<std::string> known;
  for (const Command& command : kCommands) known.insert(command.name);
  Serve([&](frmCustMain& screen) {
    for (const auto& key : screen.Toolbar1.Buttons()) EXPECT_TRUE(known.contains(key->Name())) << key->Name();
    for (const platform::Menu* menu : {&screen.mnuFile, &screen.mnuEdit, &screen.mnuDate, &screen.mnuSetup, &screen.mnuTools})
      for (const platform::MenuItem* item : menu->Items()) EXPECT_TRUE(known.contains(item->Name())) << item->Name();
  });
}

TEST_F(CommandsTest, EachDoesSomething) {
  for (const Command& command : kCommands) EXPECT_TRUE(DoesSomething(command)) << command.name;
}

/// On a card and in an empty company: open when the rule says so.
TEST_F(CommandsTest, TheyFollowTheirRules) {
  const std::vector<std::string> closedOnCard = {"tb_Print",      "tb_Preview", "tb_Queries", "tb_MapCustomer",     "tb_MapAll",
                                                 "tb_Statistics", "tb_Reports", "tb_Refresh", "tb_CreditCardSetup", "tb_PhoneSetup"};
  const std::vector<std::string> listRows = {"tb_Print", "tb_Preview"};
  Serve([&](frmCustMain& screen) {
    OnCard(screen);
    for (const std::string& key : closedOnCard) EXPECT_FALSE(screen.Find(key)->EffectivelyEnabled()) << key << " on the card";
    EXPECT_TRUE(screen.Find("tb_TaxSetup")->EffectivelyEnabled());
  });
  Serve([&](frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(orcussch::tab::Phones);
    EXPECT_FALSE(screen.Find("tb_Queries")->EffectivelyEnabled());
    EXPECT_FALSE(screen.miQueries.Enabled());
    for (const std::string& key : listRows) EXPECT_FALSE(screen.Find(key)->EffectivelyEnabled()) << key << " without phones";
    for (const char* key : {"tb_MapCustomer", "tb_MapAll", "tb_Statistics", "tb_Reports", "tb_TaxSetup", "tb_PhoneSetup"})
      EXPECT_TRUE(screen.Find(key)->EffectivelyEnabled()) << key << " on the phones";
  });
  Execute("DELETE * FROM Customers");
  Serve([&](frmCustMain& screen) {
    for (const std::string& key : listRows) EXPECT_FALSE(screen.Find(key)->EffectivelyEnabled()) << key << " without customers";
    EXPECT_TRUE(screen.Find("tb_Queries")->EffectivelyEnabled());
    EXPECT_TRUE(screen.Find("tb_Statistics")->EffectivelyEnabled());
  });
}

}  // namespace
