#include "maintenance/frmCustMain.h"
#include "maintenance/openers.h"
#include "platform/values/convert.h"
#include "records/lists.h"
#include "session/ModCustSch.h"
#include "session/modAppShutdown.h"

// The screen's life and its modes: what is enabled when.
namespace orcussch {

std::string TrimmedCaption(const frmCustMain& Screen, int Tab) { return platform::Trim(Screen.SSIndexTab1.TabCaption(Tab)); }

void frmCustMain::Form_Load() {
  Trap("frmCustMain.Form_Load", [this] {
    mFormActive = false;
    mInstance = App().ThreadID();
    mToolbarReady = true;
    gFirstActivate = true;

    tb("tb_Select").Visible(!gNonSelection);
    miSelect.Visible(!gNonSelection);

    tb("tb_Find").Enabled(false);
    tb("tb_SaveRec").Enabled(false);
    tb("tb_CancelRec").Enabled(false);

    data.Each([this](platform::DataControl& list, int Tab) {
      list.DatabaseName(*Record(Tab).Design().database);
      Record(Tab).mAcct = Record(Tab).mListOf = 0;
    });
    OpenComboLists();
    SSIndexTab1.Page(0);
    for (const auto& record : mRecords) record->Loading();
    App().DoEvents();
  });
}

void frmCustMain::OpenComboLists() {
  for (platform::DataControl* list : {&DataPhoneTypes, &DataSalesRate, &DataTerms, &DataCreditCards}) list->DatabaseName(gCustomerPath);
  DataTaxBasis.DatabaseName(gTempPath);
  DataDepts.DatabaseName(gGLPath);
  for (platform::DataControl* list : {&DataPhoneTypes, &DataSalesRate, &DataTerms, &DataTaxBasis, &DataCreditCards, &DataDepts}) {
    list->Refresh();
    list->UpdateControls();
  }
}

void frmCustMain::Form_Activate() {
  if (!gFirstActivate) return;
  mFormActive = true;
  const int card = mCardNumber;
  SQLData(tab::Customers);
  gFirstActivate = false;
  if (mCardNumber != card) return;  // a card that was opened in a yield stays up, on its record
  if (Tab() != tab::Customers) SSIndexTab1.Tab(tab::Customers);
  txtSearch[tab::Customers].SetFocus();
  StandOnHostAccount();
  TestRecordcount();
}

void frmCustMain::StandOnHostAccount() {
  platform::DataControl& customers = data[tab::Customers];
  if (!HasRecords(customers) || gHostAcctNum <= 0) return;
  customers.Recordset()->FindFirst("[AcctNum]=" + std::to_string(gHostAcctNum));
  if (customers.Recordset()->NoMatch()) customers.Recordset()->MoveFirst();
}

void frmCustMain::Form_Unload() {
  App().DoEvents();
  if (platform::Form* queries = gMainOpeners.queryScreen ? gMainOpeners.queryScreen() : nullptr; queries && IsFormLoaded(queries)) {
    App().Unload(*queries);
    App().DoEvents();
  }
  SafeAppUnloadAllForms(Name());
  App().DoEvents();
  CloseFiles();
  App().DoEvents();
  App().DoEvents();
  screens::frmCustMain.release();
  App().DoEvents();
}

void frmCustMain::EditingRecord(bool Editing) {
  Trap("frmCustMain.EditingRecord", [&] {
    const int card = mCardNumber;
    App().DoEvents();
    // Another card came up in the yield, or went: the keys are set for what is to be seen now.
    if (mCardNumber != card) return;
    EnableSetupKeys(Editing);
    for (const char* key : {"tb_Refresh", "tb_AddRec", "tb_MapCustomer", "tb_MapAll", "tb_Statistics", "tb_Reports"})
      tb(key).Enabled(!Editing);
    for (const char* key : {"tb_SaveRec", "tb_CancelRec"}) tb(key).Enabled(Editing);
    if (Editing) {
      for (const char* key : {"tb_Print", "tb_Preview", "tb_Select", "tb_Find", "tb_EditRec", "tb_DeleteRec"}) tb(key).Enabled(false);
    } else {
      TestRecordcount();
      if (mCardNumber != card) return;
    }
    // After TestRecordcount: at the end of an edit tabs 2 and 3 are open even for a non-billable customer until the next
    // row change closes them.
    for (int other = 0; other < tab::Count; ++other)
      if (other != Tab()) SSIndexTab1.TabEnabled(other, !Editing);
    App().DoEvents();
  });
}

/// During an edit the setup key stays available whose table the tab's card uses.
void frmCustMain::EnableSetupKeys(bool Editing) {
  if (Tab() == tab::Customers) tb("tb_Queries").Enabled(!Editing);
  for (const std::string key : {"tb_TaxSetup", "tb_CreditCardSetup", "tb_PhoneSetup"})
    tb(key.c_str()).Enabled(key == Record(Tab()).Design().setupKey || !Editing);
}

void frmCustMain::EditSetup() {
  Trap("frmCustMain.EditSetup", [this] {
    SSIndexTab1.Page(1);
    App().DoEvents();
    Record(Tab()).FirstField().SetFocus();
    App().DoEvents();
  });
}

void frmCustMain::TestRecordcount() {
  Trap("frmCustMain.TestRecordCount", [this] {
    const int card = mCardNumber;
    App().DoEvents();
    // The user may have been to another tab meanwhile, have opened a card or have left.
    if (!Loaded() || mCardNumber != card) return;
    const int current = Tab();
    const bool records = HasRecords(data[current]);  // a list that could not be opened has reported that itself
    for (const char* key : {"tb_Print", "tb_Preview", "tb_Select", "tb_EditRec", "tb_DeleteRec"}) tb(key).Enabled(records);
    tb("tb_Find").Enabled(!txtSearch[current].Text().empty());
    EnableSelectionKeys();
    EnableTabs();
    CloseTabsOfNonBillable();
    App().DoEvents();
  });
}

void frmCustMain::EnableSelectionKeys() {
  const bool records = Record(Tab()).Design().assigns && HasRecords(data[Tab()]);
  tb("tb_SelectAll").Enabled(records);
  miSelectAll.Enabled(records);
  if (records) {
    TestGridSelection(grid[Tab()]);
    return;
  }
  for (const char* key : {"tb_UnselectAll", "tb_AssignSelected", "tb_UnassignSelected"}) tb(key).Enabled(false);
  for (platform::MenuItem* item : {&miUnselectAll, &miUnassignSelected, &miAssignSelected}) item->Enabled(false);
}

/// Without customers only the first tab can be reached.
void frmCustMain::EnableTabs() {
  const bool enable = HasRecords(data[tab::Customers]);
  if (!enable) SSIndexTab1.Tab(tab::Customers);
  for (int other = 0; other < tab::Count; ++other)
    if (other != tab::Customers) SSIndexTab1.TabEnabled(other, enable);
}

void frmCustMain::RefreshRecords() {
  data[Tab()].Refresh();
  data[Tab()].UpdateControls();
  const std::optional<int> other = Record(Tab()).Design().refreshedWith;
  if (!other) return;
  data[*other].Refresh();
  data[*other].UpdateControls();
}

}  // namespace orcussch
