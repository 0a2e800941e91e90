#include "maintenance/frmCustMain.h"

#include <algorithm>

#include "maintenance/shortcuts.h"
#include "session/ModCustSch.h"

// What the screen's design fixes: captions, lengths, masks, places, first states. Nothing here runs a rule.
namespace orcussch {

using platform::Control;
using platform::Toolbar;

namespace screens {
platform::ScreenRef<orcussch::frmCustMain> frmCustMain;
}  // namespace screens

namespace {

std::vector<Toolbar::Key> ToolbarKeys() {
  return {
      {"tb_Print", "Print Report"},
      {"tb_Preview", "Preview Report"},
      {"tb_PrintSetup", "Printer Setup"},
      {"tb_Select", "Select Current Customer", true},
      {"tb_Find", "Find Record"},
      {"tb_Queries", "Show Queries"},
      {"tb_Refresh", "Refresh Records"},
      {"tb_AddRec", "Add Record", true},
      {"tb_EditRec", "Edit Current Record"},
      {"tb_DeleteRec", "Delete Current Record"},
      {"tb_SaveRec", "Save Records"},
      {"tb_CancelRec", "Cancel Saving Record"},
      {"tb_MapCustomer", "Map Current Customer", true},
      {"tb_MapAll", "Map All Customers"},
      {"tb_Statistics", "Current Customer Statistics"},
      {"tb_Reports", "Customer Reports"},
      {"tb_SelectAll", "Select All Records", true},
      {"tb_UnselectAll", "Unselect All Records"},
      {"tb_UnassignSelected", "Unassign Selected Records"},
      {"tb_AssignSelected", "Assign Selected Records"},
      {"tb_TaxSetup", "Tax Setup", true},
      {"tb_CreditCardSetup", "Credit Card Setup"},
      {"tb_PhoneSetup", "Phone Setup"},
  };
}

/// First order and search settings of a tab; a click on a heading changes them.
struct ListDesign {
  const char* field;
  const char* ascending;
  const char* descending;
  const char* prompt;
  const char* searchMask;
};

constexpr ListDesign kLists[tab::Count] = {
    {"LastName", "Ascending Customer Last Name", "Descending Customer Last Name", "Customer Last Name", ""},
    {"Area", "Ascending Area Code", "Descending Area Code", "Area Code", "(%%%)"},
    {"Addr1", "Ascending Address 1", "Descending Address 1", "Address 1", ""},
    {"CCNumber", "Ascending Number", "Descending Number", "Number", "%%%%%-%%%"},
    {"Dept", "Ascending Department No.", "Descending Department", "Department No.", ""},
    {"Description", "Ascending Description", "Descending Description", "Description", ""},
    {"Keyword", "Ascending Key Word", "Descending Key Word", "Key Word", ""},
};

constexpr const char* kDisplayFilters[3] = {"Display All", "Display Assigned", "Display Unassigned"};

constexpr const char* kMonths[13] = {"[All Months]", "January", "February",  "March",   "April",    "May",     "June",
                                     "July",         "August",  "September", "October", "November", "December"};

template <std::size_t N>
void CaptionOptions(platform::ControlArray<platform::OptionButton, N>& options, const char* const (&captions)[N]) {
  options.Each([&](platform::OptionButton& option, int index) {
    option.Caption(captions[index]);
    option.Design(index == 0);
  });
}

}  // namespace

frmCustMain::frmCustMain()
    : Screen(orcussch::App(), "frmCustMain", "Customer Maintenance"),
      Toolbar1(*this, "Toolbar1", ToolbarKeys()),
      miPrint(*this, "miPrint", "Print"),
      miPreview(*this, "miPreview", "Print Preview"),
      miPrintSetup(*this, "miPrintSetup", "Print Setup"),
      miExit(*this, "miExit", "Exit"),
      miFind(*this, "miFind", "Find"),
      miSelect(*this, "miSelect", "Select Current Customer"),
      miAddRec(*this, "miAddRec", "Add Record"),
      miEditRec(*this, "miEditRec", "Edit Record"),
      miDeleteRec(*this, "miDeleteRec", "Delete Record"),
      miSaveRec(*this, "miSaveRec", "Save Record"),
      miCancelRec(*this, "miCancelRec", "Cancel Saving Record"),
      miRefresh(*this, "miRefresh", "Refresh Records"),
      miSetupTaxes(*this, "miSetupTaxes", "Tax Rates"),
      miSetupCreditCards(*this, "miSetupCreditCards", "Credit Card Types"),
      miSetupPhones(*this, "miSetupPhones", "Phone Types"),
      miSetupMapCodes(*this, "miSetupMapCodes", "Map Codes"),
      miMapCustomer(*this, "miMapCustomer", "Map Customer"),
      miMapAll(*this, "miMapAll", "Map All Customers"),
      mnuUserStartup(*this, "mnuUserStartup", "User Options"),
      miQueries(*this, "miQueries", "Queries"),
      miStatistics(*this, "miStatistics", "Customer Statistics"),
      miReports(*this, "miReports", "Customer Reports"),
      miRelationships(*this, "miRelationships", "Customer Relationships"),
      miSelectAll(*this, "miSelectAll", "Select All Records"),
      miUnselectAll(*this, "miUnselectAll", "Unselect All Records"),
      miUnassignSelected(*this, "miUnassignSelected", "Unassign Selected Record"),
      miAssignSelected(*this, "miAssignSelected", "Assign Selected Record"),
      mnuFile(*this, "mnuFile", "&File", {&miPrint, &miPreview, &miPrintSetup, &miExit}),
      mnuEdit(*this, "mnuEdit", "&Edit", {&miFind, &miSelect}),
      mnuDate(*this, "mnuDate", "&Data", {&miAddRec, &miEditRec, &miDeleteRec, &miSaveRec, &miCancelRec, &miRefresh}),
      mnuSetup(*this, "mnuSetup", "&Setup",
               {&miSetupTaxes, &miSetupCreditCards, &miSetupPhones, &miSetupMapCodes, &miMapCustomer, &miMapAll, &mnuUserStartup}),
      mnuTools(
          *this, "mnuTools", "&Tools",
          {&miQueries, &miStatistics, &miReports, &miRelationships, &miSelectAll, &miUnselectAll, &miUnassignSelected, &miAssignSelected}),
      lblCustomer(*this, "lblCustomer"),
      lblAcctNum(*this, "lblAcctNum"),
      SSIndexTab1(*this, "SSIndexTab1",
                  {"  Customers  ", "  Phones ", "  Alternate Address  ", "  Credit Cards    ", "  Dept. Labor Rates  ",
                   "  Customer Types  ", "  Key Words  "}),
      data(*this, "data"),
      DataPhoneTypes(*this, "DataPhoneTypes"),
      DataSalesRate(*this, "DataSalesRate"),
      DataTerms(*this, "DataTerms"),
      DataTaxBasis(*this, "DataTaxBasis"),
      DataCreditCards(*this, "DataCreditCards"),
      DataDepts(*this, "DataDepts"),
      fraSearch(*this, "fraSearch", "Search First:"),
      lblSearch(*this, "lblSearch"),
      txtSearch(*this, "txtSearch", 0, ""),
      fraOrder(*this, "fraOrder", "Order By:"),
      optOrder0(*this, "optOrder0"),
      optOrder1(*this, "optOrder1"),
      optOrder2(*this, "optOrder2"),
      optOrder3(*this, "optOrder3"),
      optOrder4(*this, "optOrder4"),
      optOrder5(*this, "optOrder5"),
      optOrder6(*this, "optOrder6"),
      optAllDept(*this, "optAllDept"),
      txtAdjustAllDept(*this, "txtAdjustAllDept"),
      cmdAddAllDepts(*this, "cmdAddAllDepts", "Add All Departments"),
      optCustTypeDisp(*this, "optCustTypeDisp"),
      optKeyWordDisp(*this, "optKeyWordDisp"),
      grid(*this, "grid"),
      txtLastName(*this, "txtLastName", 30),
      txtFirstName(*this, "txtFirstName", 15),
      txtTitle(*this, "txtTitle", 5),
      txtAddr1(*this, "txtAddr1", 30),
      txtAddr2(*this, "txtAddr2", 30),
      txtCity(*this, "txtCity", 25),
      txtState(*this, "txtState", 2),
      txtZip(*this, "txtZip", 10),
      txtCountry(*this, "txtCountry", 30),
      cboTerms(*this, "cboTerms"),
      txtCreditLimit(*this, "txtCreditLimit"),
      chkHoldCredit(*this, "chkHoldCredit", "Hold Credit"),
      fraStatus(*this, "fraStatus", "Customer Status:"),
      optStatus(*this, "optStatus"),
      fraBillingStatus(*this, "fraBillingStatus", "Billing Status:"),
      optBillingStatus(*this, "optBillingStatus"),
      chkAgeMethod(*this, "chkAgeMethod", "Age from invoice date"),
      chkOmitFinChg(*this, "chkOmitFinChg", "Omit Finance Charges"),
      txtEMail(*this, "txtEMail", 40),
      txtWebSite(*this, "txtWebSite", 40),
      cboSalesRate(*this, "cboSalesRate"),
      cmdPlusMinus(*this, "cmdPlusMinus", "+"),
      txtSalesRatePer(*this, "txtSalesRatePer"),
      fraLaborRate(*this, "fraLaborRate", "Default Customer Labor Rate:"),
      optLaborRate(*this, "optLaborRate"),
      txtLaborRate(*this, "txtLaborRate"),
      cmdMapCode(*this, "cmdMapCode", "Lookup"),
      lblMapCode(*this, "lblMapCode"),
      fraTax(*this, "fraTax", "Tax Exemption:"),
      txtTaxID(*this, "txtTaxID", 15),
      txtExemptExpireDate(*this, "txtExemptExpireDate"),
      fraTaxBasis(*this, "fraTaxBasis", "Applicable Customer Taxes:"),
      optTaxDisp(*this, "optTaxDisp"),
      grdTaxBasis(*this, "grdTaxBasis"),
      fraComment(*this, "fraComment", "Comment:"),
      txtComment(*this, "txtComment"),
      lblPhoneRecordID(*this, "lblPhoneRecordID"),
      txtPhoneArea(*this, "txtPhoneArea", 3, "(%%%)"),
      txtPhone(*this, "txtPhone", 7, "%%%-%%%%"),
      txtPhoneExt(*this, "txtPhoneExt", 5),
      cboPhoneTypes(*this, "cboPhoneTypes"),
      txtPhoneComment(*this, "txtPhoneComment", 20),
      chkDefaultPhone(*this, "chkDefaultPhone", "Default Phone Number"),
      lblAltAddressID(*this, "lblAltAddressID"),
      txtAltAddr1(*this, "txtAltAddr1", 30),
      txtAltAddr2(*this, "txtAltAddr2", 30),
      txtAltCity(*this, "txtAltCity", 25),
      txtAltState(*this, "txtAltState", 2),
      txtAltZip(*this, "txtAltZip", 10),
      txtAltCountry(*this, "txtAltCountry", 30),
      cboActiveMonth(*this, "cboActiveMonth"),
      txtAltComment(*this, "txtAltComment", 30),
      chkDefaultAddr(*this, "chkDefaultAddr"),
      cboCreditCards(*this, "cboCreditCards"),
      txtCCNumber(*this, "txtCCNumber", 30),
      txtCCHolder(*this, "txtCCHolder", 30),
      txtCCMonth(*this, "txtCCMonth", 2, "%%"),
      txtCCYear(*this, "txtCCYear", 4, "%%%%"),
      txtCCLimit(*this, "txtCCLimit"),
      txtCCComment(*this, "txtCCComment", 30),
      chkDefaultCC(*this, "chkDefaultCC", "Default Credit Card"),
      cboDepts(*this, "cboDepts"),
      txtRateAdjustment(*this, "txtRateAdjustment"),
      SSPanel1(*this, "SSPanel1"),
      txtDeptNo(*this, "txtDeptNo"),
      txtDeptRate(*this, "txtDeptRate"),
      txtDeptAdjust(*this, "txtDeptAdjust"),
      txtDeptAdjustRate(*this, "txtDeptAdjustRate"),
      txtCustomerType(*this, "txtCustomerType", 30),
      chkAssignCustType(*this, "chkAssignCustType", "Assign New Customer Type to Current Customer"),
      txtKeyWord(*this, "txtKeyWord", 20),
      chkAssignKeyWord(*this, "chkAssignKeyWord", "Assign New Key Word to Current Customer"),
      StatusBar1(*this, "StatusBar1"),
      Report1(*this, "Report1"),
      CommonDialog1(*this, "CommonDialog1"),
      miTypedBack(*this, "miTypedBack", "Back to What Was Typed") {
  Shortcuts(kCustMainShortcuts);
  DesignListPages();
  DesignListRows();
  DesignCards();
  DesignCombos();
  DesignColumns();
  AttachCommands();
  AttachHandlers();
  mRecords = {MakeCustomersTab(*this),  MakePhonesTab(*this),        MakeAddressesTab(*this), MakeCreditCardsTab(*this),
              MakeLaborRatesTab(*this), MakeCustomerTypesTab(*this), MakeKeyWordsTab(*this)};
}

frmCustMain::~frmCustMain() = default;

void frmCustMain::DesignListPages() {
  for (int i = 0; i < tab::Count; ++i) {
    const ListDesign& list = kLists[i];
    const auto n = static_cast<std::size_t>(i);
    fraOrder[n].Tag(list.field);
    fraSearch[n].Tag(list.field);
    lblSearch[n].Caption(list.prompt);
    txtSearch[n].Mask(list.searchMask);
    auto& options = optOrder(i);
    options[0].Caption(list.ascending);
    options[1].Caption(list.descending);
    options[0].Design(true);

    for (Control* control : {static_cast<Control*>(&fraOrder[n]), static_cast<Control*>(&fraSearch[n]), static_cast<Control*>(&grid[n])})
      control->PutOnTab(SSIndexTab1, i, 0);
    for (Control* control : {static_cast<Control*>(&options[0]), static_cast<Control*>(&options[1])}) control->Container(fraOrder[n]);
    for (Control* control : {static_cast<Control*>(&lblSearch[n]), static_cast<Control*>(&txtSearch[n])}) control->Container(fraSearch[n]);
    grid[n].BindTo(data[n]);
    grid[n].MarksRows(i > tab::LaborRates);
    grid[n].SearchBox(txtSearch[n]);
    // The customers stay on the screen when they can't be read anew; another list would stand under the wrong customer's name.
    data[n].EmptyAfterFailure(i != tab::Customers);
  }
  CaptionOptions(optCustTypeDisp, kDisplayFilters);
  CaptionOptions(optKeyWordDisp, kDisplayFilters);
  optCustTypeDisp.Each([this](Control& option, int) { option.PutOnTab(SSIndexTab1, tab::CustomerTypes, 0); });
  optKeyWordDisp.Each([this](Control& option, int) { option.PutOnTab(SSIndexTab1, tab::KeyWords, 0); });

  CaptionOptions(optAllDept, {"Add all departmental labor rate records to current customer",
                              "Apply adjustment % to current customers departmental labor rate records"});
  txtAdjustAllDept.ToolTipText("Enter the adjustment % you want to add to all departments");
  for (Control* control : {static_cast<Control*>(&optAllDept[0]), static_cast<Control*>(&optAllDept[1]),
                           static_cast<Control*>(&txtAdjustAllDept), static_cast<Control*>(&cmdAddAllDepts)})
    control->PutOnTab(SSIndexTab1, tab::LaborRates, 0);

  data[0].Bind(lblAcctNum, "AcctNum");
}

void frmCustMain::DesignCards() {
  const auto onCard = [this](int Tab, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->PutOnTab(SSIndexTab1, Tab, 1);
    mCards[static_cast<std::size_t>(Tab)] = controls;
  };
  const auto in = [](Control& frame, std::initializer_list<Control*> controls) {
    for (Control* control : controls) control->Container(frame);
  };

  onCard(tab::Customers, {&txtLastName, &txtFirstName, &txtTitle,      &txtAddr1,       &txtAddr2,        &txtCity,       &txtState,
                          &txtZip,      &txtCountry,   &cboTerms,      &txtCreditLimit, &chkHoldCredit,   &fraStatus,     &fraBillingStatus,
                          &txtEMail,    &txtWebSite,   &cboSalesRate,  &cmdPlusMinus,   &txtSalesRatePer, &fraLaborRate,  &fraTaxBasis,
                          &fraTax,      &cmdMapCode,   &lblMapCode[0], &lblMapCode[1],  &chkAgeMethod,    &chkOmitFinChg, &fraComment});
  CaptionOptions(optStatus, {"Active", "Inactive", "Prospect"});
  CaptionOptions(optBillingStatus, {"Billable Customer", "Non-Billable Work Location"});
  CaptionOptions(optLaborRate, {"None", "Customer", "Customer Departmental"});
  CaptionOptions(optTaxDisp, kDisplayFilters);
  in(fraStatus, {&optStatus[0], &optStatus[1], &optStatus[2]});
  in(fraBillingStatus, {&optBillingStatus[0], &optBillingStatus[1]});
  in(fraLaborRate, {&optLaborRate[0], &optLaborRate[1], &optLaborRate[2], &txtLaborRate});
  in(fraTaxBasis, {&optTaxDisp[0], &optTaxDisp[1], &optTaxDisp[2], &grdTaxBasis});
  in(fraTax, {&txtTaxID, &txtExemptExpireDate});
  in(fraComment, {&txtComment});
  txtComment.MultiLine(true);
  txtLaborRate.Enabled(false);  // as option 0 of the labor rates leaves it
  txtCreditLimit.ToolTipText("Enter -1 for No Limit.  Enter 0 for C.O.D.");
  chkHoldCredit.ToolTipText("Hold Customer Credit");
  grdTaxBasis.Tag("Assign, Description");
  grdTaxBasis.BindTo(DataTaxBasis);
  grdTaxBasis.MarksRows(true);

  onCard(tab::Phones, {&lblPhoneRecordID, &txtPhoneArea, &txtPhone, &txtPhoneExt, &cboPhoneTypes, &txtPhoneComment, &chkDefaultPhone});

  onCard(tab::Addresses, {&lblAltAddressID, &txtAltAddr1, &txtAltAddr2, &txtAltCity, &txtAltState, &txtAltZip, &txtAltCountry,
                          &cboActiveMonth[0], &cboActiveMonth[1], &txtAltComment, &chkDefaultAddr[0], &chkDefaultAddr[1]});
  chkDefaultAddr[0].Caption("Default Shipping Address");
  chkDefaultAddr[1].Caption("Default Billing Address");

  onCard(tab::CreditCards,
         {&cboCreditCards, &txtCCNumber, &txtCCHolder, &txtCCMonth, &txtCCYear, &txtCCLimit, &txtCCComment, &chkDefaultCC});
  txtCCYear.ToolTipText("Enter the 4 digit year");

  onCard(tab::LaborRates, {&cboDepts, &txtRateAdjustment, &SSPanel1});
  in(SSPanel1, {&txtDeptNo, &txtDeptRate, &txtDeptAdjust, &txtDeptAdjustRate});
  for (platform::TextBox* figure : {&txtDeptNo, static_cast<platform::TextBox*>(&txtDeptRate),
                                    static_cast<platform::TextBox*>(&txtDeptAdjust), static_cast<platform::TextBox*>(&txtDeptAdjustRate)})
    figure->Locked(true);

  onCard(tab::CustomerTypes, {&txtCustomerType, &chkAssignCustType});
  onCard(tab::KeyWords, {&txtKeyWord, &chkAssignKeyWord});
}

bool frmCustMain::IsOnCard(const platform::Control& control, int Tab) const {
  const auto& card = mCards[static_cast<std::size_t>(Tab)];
  if (std::find(card.begin(), card.end(), &control) != card.end()) return true;
  return control.Container() && IsOnCard(*control.Container(), Tab);
}

void frmCustMain::DesignCombos() {
  DataPhoneTypes.RecordSource("PhoneTypes");
  DataCreditCards.RecordSource("Select CreditCardType, CreditCardName From CreditCardTypes Order By CreditCardName;");
  DataTerms.RecordSource("Terms");
  DataSalesRate.RecordSource("MaterialSalesRateCodes");
  DataDepts.RecordSource("Departments");
  DataTaxBasis.RecordSource("CU_AssignTaxes");

  cboTerms.FillFrom(DataTerms, "Terms", "Message", {{"Message", "", ""}});
  cboSalesRate.FillFrom(DataSalesRate, "SalesRate", "RateDescription", {{"RateDescription", "", ""}});
  cboPhoneTypes.FillFrom(DataPhoneTypes, "Type", "TypeDescription", {{"TypeDescription", "", ""}});
  cboCreditCards.FillFrom(DataCreditCards, "CreditCardType", "CreditCardName", {{"CreditCardName", "", ""}});
  cboDepts.FillFrom(DataDepts, "DeptNumber", "DeptDescription",
                    {{"DeptNumber", "", ""}, {"DeptDescription", "", ""}, {"DefaultLaborRate", "", "Currency"}});

  std::vector<platform::ComboRow> months;
  for (std::int16_t month = 0; month < 13; ++month) months.push_back({month, kMonths[month], {kMonths[month]}});
  cboActiveMonth.Each([&](platform::ComboBox& combo, int) { combo.Fill(months); });
}

void frmCustMain::AttachHandlers() {
  SSIndexTab1.BeforeTabClick = [this](int, bool& Cancel) { SSIndexTab1_BeforeTabClick(Cancel); };
  SSIndexTab1.Click = [this](int) { SSIndexTab1_Click(); };

  for (int i = 0; i < tab::Count; ++i) {
    const auto n = static_cast<std::size_t>(i);
    data[n].Reposition = [this] { data_Reposition(); };
    txtSearch[n].Change = [this, i] { txtSearch_Change(i); };
    txtSearch[n].KeyPress = [this, i](int& KeyAscii) { txtSearch_KeyPress(i, KeyAscii); };
    optOrder(i).Each([this, i](platform::OptionButton& option, int) { option.Click = [this, i] { optOrder_Click(i); }; });
    grid[n].HeadClick = [this, i](int ColIndex) { grid_HeadClick(i, ColIndex); };
    grid[n].Sort = [this, i](int ColIndex, bool Descending) { grid_Sort(i, ColIndex, Descending); };
    grid[n].LostFocus = [this, i] { grid_LostFocus(i); };
    grid[n].BeforeColUpdate = [this, i](int ColIndex, const platform::Value& OldValue, bool& Cancel) {
      grid_BeforeColUpdate(i, ColIndex, OldValue, Cancel);
    };
    grid[n].AfterColUpdate = [this, i](int ColIndex) { grid_AfterColUpdate(i, ColIndex); };
    grid[n].AfterColEdit = [this, i](int) { grid_AfterColEdit(i); };
    grid[n].SelChange = [this, i, n](bool&) {
      if (i > tab::LaborRates) TestGridSelection(grid[n]);
    };
  }
  grdTaxBasis.HeadClick = [this](int ColIndex) { grdTaxBasis_HeadClick(ColIndex); };
  grdTaxBasis.AfterColUpdate = [this](int) { grdTaxBasis_AfterColUpdate(); };
  grdTaxBasis.SelChange = [this](bool&) { TestGridSelection(grdTaxBasis); };
  optTaxDisp.Each([this](platform::OptionButton& option, int) { option.Click = [this] { optTaxDisp_Click(); }; });
  optCustTypeDisp.Each([this](platform::OptionButton& option, int) { option.Click = [this] { optCustTypeDisp_Click(); }; });
  optKeyWordDisp.Each([this](platform::OptionButton& option, int) { option.Click = [this] { optKeyWordDisp_Click(); }; });

  optLaborRate.Each([this](platform::OptionButton& option, int i) {
    option.Click = [this, i] { optLaborRate_Click(i); };
    option.MouseMove = [this, i] { optLaborRate_MouseMove(i); };
  });
  fraLaborRate.MouseMove = [this] { fraLaborRate_MouseMove(); };
  txtCreditLimit.MouseMove = [this] { txtCreditLimit_MouseMove(); };
  optAllDept.Each([this](platform::OptionButton& option, int i) { option.Click = [this, i] { optAllDept_Click(i); }; });
  cmdAddAllDepts.Click = [this] { cmdAddAllDepts_Click(); };
  cboDepts.Change = [this] { DeptChange(); };
  txtRateAdjustment.Change = [this] { txtRateAdjustment_Change(); };
  txtComment.GotFocus = [this] { txtComment_GotFocus(); };
  txtComment.LostFocus = [this] { txtComment_LostFocus(); };
  txtPhoneArea.KeyPress = [this](int& KeyAscii) { txtPhoneArea_KeyPress(KeyAscii); };
  txtPhoneArea.GotFocus = [this] { mAreaDigits.clear(); };
  txtZip.LostFocus = [this] { txtZip_LostFocus(); };
  cmdPlusMinus.Click = [this] { cmdPlusMinus_Click(); };
  cmdMapCode.Click = [this] { cmdMapCode_Click(); };
}

}  // namespace orcussch
