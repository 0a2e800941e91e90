#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/modAppShutdown.h"

// The screen's life and its modes: what is enabled when.
namespace orcussch {

bool HasRecords(const platform::DataControl& Data) { return Data.HasRecordset() && Data.Recordset()->HasRows(); }

std::string TrimmedCaption(const frmCustMain& Screen, int Tab) { return platform::Trim(Screen.SSIndexTab1.TabCaption(Tab)); }

void frmCustMain::Form_Load() {
  Trap("frmCustMain.Form_Load", [this] {
    mFormActive = false;
    mInstance = orcussch::App().ThreadID();
    mToolbarReady = true;
    gFirstActivate = true;

    tb("tb_Select").Visible(!gNonSelection);
    miSelect.Visible(!gNonSelection);

    tb("tb_Find").Enabled(false);
    tb("tb_SaveRec").Enabled(false);
    tb("tb_CancelRec").Enabled(false);

    data.Each([this](platform::DataControl& list, int Tab) {
      list.DatabaseName(Tab <= tab::LaborRates ? gCustomerPath : gTempPath);
      mTabAcct[static_cast<std::size_t>(Tab)] = 0;
    });
    OpenComboLists();
    SSIndexTab1.Page(0);
    CaptionCombos();
    TakeHostBillingStatus();
    orcussch::App().DoEvents();
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

void frmCustMain::CaptionCombos() {
  cboDepts.ColumnCaption(0, "Dept. No.");
  cboDepts.ColumnCaption(1, "Dept. Name");
  cboDepts.ColumnCaption(2, "Dept. Labor Rate");
  cboCreditCards.ColumnCaption(0, "Credit Card Name");
  cboSalesRate.ColumnCaption(0, "Rate Type");
  cboPhoneTypes.ColumnCaption(0, "Phone Type");
}

/// A host that works for one kind of customer only fixes the kind of new ones too.
void frmCustMain::TakeHostBillingStatus() {
  if (gBillingStatus == "B") {
    optBillingStatus[0].Value(true);
    fraBillingStatus.Enabled(false);
  } else if (gBillingStatus == "N") {
    optBillingStatus[1].Value(true);
    fraBillingStatus.Enabled(false);
  }
}

void frmCustMain::Form_Activate() {
  if (!gFirstActivate) return;
  mFormActive = true;
  const int Card = mCardNumber;
  SQLData(tab::Customers);
  gFirstActivate = false;
  if (mCardNumber != Card) return;  // a card that was opened in a yield stays up, on its record
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
  orcussch::App().DoEvents();
  SafeAppUnloadAllForms(Name());
  orcussch::App().DoEvents();
  CloseFiles();
  orcussch::App().DoEvents();
  orcussch::App().DoEvents();
  screens::frmCustMain.release();
  orcussch::App().DoEvents();
}

void frmCustMain::EditingRecord(bool Editing) {
  Trap("frmCustMain.EditingRecord", [&] {
    orcussch::App().DoEvents();
    EnableSetupKeys(Editing);
    for (const char* key : {"tb_Refresh", "tb_AddRec", "tb_MapCustomer", "tb_MapAll", "tb_Statistics", "tb_Reports"})
      tb(key).Enabled(!Editing);
    for (const char* key : {"tb_SaveRec", "tb_CancelRec"}) tb(key).Enabled(Editing);
    if (Editing) {
      for (const char* key : {"tb_Print", "tb_Preview", "tb_Select", "tb_Find", "tb_EditRec", "tb_DeleteRec"}) tb(key).Enabled(false);
    } else {
      TestRecordcount();
    }
    // After TestRecordcount: at the end of an edit tabs 2 and 3 are open even for a non-billable customer until the next
    // row change closes them.
    for (int other = 0; other < tab::Count; ++other)
      if (other != Tab()) SSIndexTab1.TabEnabled(other, !Editing);
    orcussch::App().DoEvents();
  });
}

/// During an edit the setup key stays available whose table the tab's card uses.
void frmCustMain::EnableSetupKeys(bool Editing) {
  if (Tab() == tab::Customers) tb("tb_Queries").Enabled(!Editing);
  tb("tb_TaxSetup").Enabled(Tab() == tab::Customers || !Editing);
  tb("tb_CreditCardSetup").Enabled(Tab() == tab::CreditCards || !Editing);
  tb("tb_PhoneSetup").Enabled(Tab() == tab::Phones || !Editing);
}

void frmCustMain::EditSetup() {
  Trap("frmCustMain.EditSetup", [this] {
    SSIndexTab1.Page(1);
    orcussch::App().DoEvents();
    switch (Tab()) {
      case tab::Customers:
        txtLastName.SetFocus();
        break;
      case tab::Phones:
        txtPhoneArea.SetFocus();
        break;
      case tab::Addresses:
        txtAltAddr1.SetFocus();
        break;
      case tab::CreditCards:
        cboCreditCards.SetFocus();
        break;
      case tab::LaborRates:
        if (mRecordMode == "A")
          cboDepts.SetFocus();
        else
          txtRateAdjustment.SetFocus();
        break;
      case tab::CustomerTypes:
        txtCustomerType.SetFocus();
        break;
      case tab::KeyWords:
        txtKeyWord.SetFocus();
        break;
      default:
        break;
    }
    orcussch::App().DoEvents();
  });
}

void frmCustMain::TestRecordcount() {
  Trap("frmCustMain.TestRecordCount", [this] {
    orcussch::App().DoEvents();
    // The user may have been to another tab meanwhile, or have left.
    if (!Loaded()) return;
    const auto Current = static_cast<std::size_t>(Tab());
    const bool Records = data[Current].Recordset()->HasRows();
    for (const char* key : {"tb_Print", "tb_Preview", "tb_Select", "tb_EditRec", "tb_DeleteRec"}) tb(key).Enabled(Records);
    tb("tb_Find").Enabled(!txtSearch[Current].Text().empty());
    EnableSelectionKeys();
    EnableTabs();
    CloseTabsOfNonBillable();
    orcussch::App().DoEvents();
  });
}

void frmCustMain::EnableSelectionKeys() {
  const bool Selectable = Tab() == tab::CustomerTypes || Tab() == tab::KeyWords;
  const bool Records = Selectable && HasRecords(data[static_cast<std::size_t>(Tab())]);
  tb("tb_SelectAll").Enabled(Records);
  miSelectAll.Enabled(Records);
  if (Records) {
    TestGridSelection(grid[static_cast<std::size_t>(Tab())]);
    return;
  }
  for (const char* key : {"tb_UnselectAll", "tb_AssignSelected", "tb_UnassignSelected"}) tb(key).Enabled(false);
  for (platform::MenuItem* item : {&miUnselectAll, &miUnassignSelected, &miAssignSelected}) item->Enabled(false);
}

/// Without customers only the first tab can be reached.
void frmCustMain::EnableTabs() {
  const bool Enable = HasRecords(data[tab::Customers]);
  if (!Enable) SSIndexTab1.Tab(tab::Customers);
  for (int other = tab::Phones; other < tab::Count; ++other) SSIndexTab1.TabEnabled(other, Enable);
}

void frmCustMain::RefreshRecords() {
  data[static_cast<std::size_t>(Tab())].Refresh();
  data[static_cast<std::size_t>(Tab())].UpdateControls();
  if (Tab() != tab::LaborRates) return;
  data[tab::CustomerTypes].Refresh();
  data[tab::CustomerTypes].UpdateControls();
}

}  // namespace orcussch
