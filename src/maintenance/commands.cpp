#include "maintenance/frmCustMain.h"
#include "maintenance/openers.h"
#include "session/ModCustSch.h"

// Toolbar and menu: one table of commands, each under the key of its toolbar button.
namespace orcussch {

namespace {

struct Command {
  const char* key;
  void (*run)(frmCustMain& screen);
};

/// Commands of a program without their screen keep their key, follow its enabling rule and do nothing.
template <MainOpeners::Opener MainOpeners::*Which>
void Open(frmCustMain& screen) {
  if (gMainOpeners.*Which) (gMainOpeners.*Which)(screen);
}

}  // namespace

void frmCustMain::AttachCommands() {
  Toolbar1.ButtonClick = [this](const std::string& Key) { Toolbar1_ButtonClick(Key); };

  const std::pair<platform::MenuItem*, const char*> sameAsKey[] = {
      {&miPrint, "tb_Print"},
      {&miPreview, "tb_Preview"},
      {&miPrintSetup, "tb_PrintSetup"},
      {&miFind, "tb_Find"},
      {&miSelect, "tb_Select"},
      {&miAddRec, "tb_AddRec"},
      {&miEditRec, "tb_EditRec"},
      {&miDeleteRec, "tb_DeleteRec"},
      {&miCancelRec, "tb_CancelRec"},
      {&miSetupTaxes, "tb_TaxSetup"},
      {&miSetupCreditCards, "tb_CreditCardSetup"},
      {&miSetupPhones, "tb_PhoneSetup"},
      {&miMapCustomer, "tb_MapCustomer"},
      {&miMapAll, "tb_MapAll"},
      {&miQueries, "tb_Queries"},
      {&miReports, "tb_Reports"},
      {&miSelectAll, "tb_SelectAll"},
      {&miUnselectAll, "tb_UnselectAll"},
      {&miUnassignSelected, "tb_UnassignSelected"},
      {&miAssignSelected, "tb_AssignSelected"},
  };
  for (const auto& [item, key] : sameAsKey)
    item->Click = [this, command = std::string(key)] { UserRuns(command, [&] { RunCommand(command); }); };

  miExit.Click = [this] { App().Unload(*this); };
  // The menu's save has no follow-on, its refresh is the fuller one.
  miSaveRec.Click = [this] { UserRuns("tb_SaveRec", [this] { RecordSave(); }); };
  miRefresh.Click = [this] { RefreshRecords(); };
  miSetupMapCodes.Click = [this] {
    Find("cmdMapCode")->Tag("");
    Open<&MainOpeners::mapCodes>(*this);
  };
  mnuUserStartup.Click = [this] { Open<&MainOpeners::userOptions>(*this); };
  miStatistics.Click = [this] { Open<&MainOpeners::statistics>(*this); };  // on no record either
  miRelationships.Click = [this] { Open<&MainOpeners::relationships>(*this); };
  miTypedBack.Click = [this] { mDesk.BringBack(); };
  mDesk.AttachRefusals();
}

bool frmCustMain::AddsOwner() const { return SSIndexTab1.Page() == 1 && Tab() == tab::Customers && mRecordMode == "A"; }

void frmCustMain::UserRuns(const std::string& Key, const std::function<void()>& body) {
  const CardDesk::Start start = mDesk.Begins(Key);
  body();
  mDesk.Ended(Key, start);
}

void frmCustMain::Toolbar1_ButtonClick(const std::string& Key) {
  Trap("frmCustMain.Toolbar1_ButtonClick", [&] {
    if (!mToolbarReady) return;
    Toolbar1.Enabled(false);
    UserRuns(Key, [&] { RunCommand(Key); });
    if (!Loaded()) return;  // the customer was selected and the screen is gone
    if (Key == "tb_SaveRec") SaveAndGoOn();
    Toolbar1.Enabled(true);
    App().MousePointer(platform::pointer::Default);
    App().DoEvents();
  });
}

/// A new customer's phone is taken next; whether the save succeeded is not asked.
void frmCustMain::SaveAndGoOn() {
  if (Tab() != tab::Customers || mRecordMode != "A" || !gAddPhone) return;
  SSIndexTab1.Tab(tab::Phones);
  RecordAdd();
  mDesk.WentOn();
}

void frmCustMain::RunCommand(const std::string& Key) {
  static constexpr Command kCommands[] = {
      {"tb_Print", Open<&MainOpeners::print>},
      {"tb_Preview", Open<&MainOpeners::preview>},
      {"tb_PrintSetup", [](frmCustMain& screen) { PrinterSetup(screen); }},
      {"tb_Select", [](frmCustMain& screen) { screen.SelectCustomer(); }},
      {"tb_Find", [](frmCustMain& screen) { screen.FindOnTab(); }},
      {"tb_Queries", Open<&MainOpeners::queries>},
      {"tb_Refresh", [](frmCustMain& screen) { screen.data[screen.Tab()].Refresh(); }},
      {"tb_AddRec", [](frmCustMain& screen) { screen.RecordAdd(); }},
      {"tb_EditRec", [](frmCustMain& screen) { screen.RecordEdit(); }},
      {"tb_DeleteRec", [](frmCustMain& screen) { screen.RecordDelete(); }},
      {"tb_SaveRec", [](frmCustMain& screen) { screen.RecordSave(); }},
      {"tb_CancelRec", [](frmCustMain& screen) { screen.RecordCancel(); }},
      {"tb_MapCustomer", Open<&MainOpeners::mapCustomer>},
      {"tb_MapAll", Open<&MainOpeners::mapAll>},
      {"tb_Statistics",
       [](frmCustMain& screen) {
         if (screen.data[tab::Customers].OnRecord()) Open<&MainOpeners::statistics>(screen);
       }},
      {"tb_Reports", Open<&MainOpeners::reports>},
      {"tb_SelectAll", [](frmCustMain& screen) { screen.SelectAllOnTab(); }},
      {"tb_UnselectAll", [](frmCustMain& screen) { screen.UnselectAllOnTab(); }},
      {"tb_UnassignSelected", [](frmCustMain& screen) { screen.SelectedAssignment(false); }},
      {"tb_AssignSelected", [](frmCustMain& screen) { screen.SelectedAssignment(true); }},
      {"tb_TaxSetup", Open<&MainOpeners::taxSetup>},
      {"tb_CreditCardSetup", Open<&MainOpeners::creditCardSetup>},
      {"tb_PhoneSetup", Open<&MainOpeners::phoneSetup>},
  };
  for (const Command& command : kCommands)
    if (Key == command.key) return command.run(*this);
}

void frmCustMain::FindOnTab() {
  if (!txtSearch[Tab()].Text().empty()) SearchRecord(Tab());
}

void frmCustMain::SelectAllOnTab() {
  const TickList ticks = Record(Tab()).Ticks();
  if (ticks.grid) SelectAllRecords(*ticks.grid, ticks.data->Recordset());
}

void frmCustMain::UnselectAllOnTab() {
  const TickList ticks = Record(Tab()).Ticks();
  if (ticks.grid) UnselectAllRecords(*ticks.grid);
}

}  // namespace orcussch
