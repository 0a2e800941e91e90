#include "maintenance/frmCustMain.h"

#include "maintenance/shortcuts.h"
#include "session/ModCustSch.h"

// What the screen's design fixes: captions, lengths, masks, places, first states. Nothing here runs a rule.
namespace orcussch {

using platform::Control;
using platform::Toolbar;

namespace screens {
platform::ScreenRef<orcussch::frmCustMain> frmCustMain{App};
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

std::array<std::unique_ptr<RecordTab>, tab::Count> MakeRecords(frmCustMain& screen) {
#define ORCUSSCH_TAB(name) Make##name##Tab(screen),
  return {{ORCUSSCH_TABS(ORCUSSCH_TAB)}};
#undef ORCUSSCH_TAB
}

}  // namespace

frmCustMain::frmCustMain(platform::Application& application)
    : Screen(application, "frmCustMain", "Customer Maintenance"),
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
      SSIndexTab1(*this, "SSIndexTab1", std::vector<std::string>(tab::Count)),
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
      mRecords(MakeRecords(*this)),
      grid(*this, "grid"),
      StatusBar1(*this, "StatusBar1"),
      Report1(*this, "Report1"),
      CommonDialog1(*this, "CommonDialog1"),
      miTypedBack(*this, "miTypedBack", "Back to What Was Typed") {
  Shortcuts(kCustMainShortcuts);
  DesignLists();
  DesignComboLists();
  AttachCommands();
  AttachHandlers();
}

frmCustMain::~frmCustMain() = default;

void frmCustMain::DesignLists() {
  for (int i = 0; i < tab::Count; ++i) {
    const TabDesign& design = Record(i).Design();
    const bool customers = i == tab::Customers;
    SSIndexTab1.TabCaption(i, design.caption);
    fraOrder[i].Tag(design.field);
    fraSearch[i].Tag(design.field);
    lblSearch[i].Caption(design.prompt);
    txtSearch[i].Mask(design.searchMask);
    auto& options = Record(i).optOrder;
    options[0].Caption(design.ascending);
    options[1].Caption(design.descending);
    options[0].Design(true);

    for (Control* control : std::initializer_list<Control*>{&fraOrder[i], &fraSearch[i], &grid[i]}) control->PutOnTab(SSIndexTab1, i, 0);
    for (Control* control : std::initializer_list<Control*>{&options[0], &options[1]}) control->Container(fraOrder[i]);
    for (Control* control : std::initializer_list<Control*>{&lblSearch[i], &txtSearch[i]}) control->Container(fraSearch[i]);
    grid[i].BindTo(data[i]);
    grid[i].DefineColumns(design.columns);
    grid[i].MarksRows(design.assigns);
    grid[i].SearchBox(txtSearch[i]);
    // A host that opened the screen for a customer wants one; else the user came to look after them.
    grid[i].RowCommands({{"Select", &tb("tb_Select"), customers}, {"Edit", &tb("tb_EditRec"), true}, {"Delete", &tb("tb_DeleteRec")}});
    EmphasizeDefaults(i);
    // The customers stay on the screen when they can't be read anew; another list would stand under the wrong customer's name.
    data[i].EmptyAfterFailure(!customers);
  }
  grid[tab::Customers].Splits(2);
  grid[tab::Customers].ChoosesRows(true);
  data[tab::Customers].Bind(lblAcctNum, "AcctNum");
}

/// The rows that the customer names in a default field stand out.
void frmCustMain::EmphasizeDefaults(int Tab) {
  const RecordTab& record = Record(Tab);
  std::vector<platform::RowEmphasis> rows;
  for (const DefaultRow& row : record.Design().defaultRows)
    rows.push_back({row.name, [this, field = row.field] {
                      const platform::DataControl& customers = data[tab::Customers];
                      return customers.OnRecord() ? customers.Recordset()->Field(field) : platform::Value(platform::Null);
                    }});
  if (!rows.empty()) grid[Tab].Emphasize(record.Key(), std::move(rows));
}

void frmCustMain::DesignComboLists() {
  DataPhoneTypes.RecordSource("PhoneTypes");
  DataCreditCards.RecordSource("Select CreditCardType, CreditCardName From CreditCardTypes Order By CreditCardName;");
  DataTerms.RecordSource("Terms");
  DataSalesRate.RecordSource("MaterialSalesRateCodes");
  DataDepts.RecordSource("Departments");
  DataTaxBasis.RecordSource("CU_AssignTaxes");
}

void frmCustMain::AttachHandlers() {
  SSIndexTab1.BeforeTabClick = [this](int, bool& Cancel) { SSIndexTab1_BeforeTabClick(Cancel); };
  SSIndexTab1.Click = [this](int) { SSIndexTab1_Click(); };

  for (int i = 0; i < tab::Count; ++i) {
    data[i].Reposition = [this] { data_Reposition(); };
    txtSearch[i].Change = [this, i] { txtSearch_Change(i); };
    txtSearch[i].KeyPress = [this, i](int& KeyAscii) { txtSearch_KeyPress(i, KeyAscii); };
    Record(i).optOrder.Each([this, i](platform::OptionButton& option, int) { option.Click = [this, i] { optOrder_Click(i); }; });
    grid[i].HeadClick = [this, i](int ColIndex) { grid_HeadClick(i, ColIndex); };
    grid[i].Sort = [this, i](int ColIndex, bool Descending) { grid_Sort(i, ColIndex, Descending); };
    grid[i].LostFocus = [this, i] { grid_LostFocus(i); };
    grid[i].BeforeColUpdate = [this, i](int ColIndex, const platform::Value& OldValue, bool& Cancel) {
      grid_BeforeColUpdate(i, ColIndex, OldValue, Cancel);
    };
    grid[i].AfterColUpdate = [this, i](int ColIndex) { Record(i).CellTaken(ColIndex); };
    grid[i].AfterColEdit = [this, i](int) { grid_AfterColEdit(i); };
    grid[i].SelChange = [this, i](bool&) {
      if (Record(i).Design().assigns) TestGridSelection(grid[i]);
    };
  }
}

}  // namespace orcussch
