#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

// The lists of customer types and key words with a check column: copies in the temporary database, marked with this
// screen's instance, in which the current customer's entries are ticked.
namespace orcussch {

namespace {

/// Runs one statement of a load; a failure is reported there and the list shows what got in. False after one.
bool Run(const platform::DatabaseRef& Db, const std::string& SQL) {
  bool ErrorFlag = false;
  ExecuteSQLStmt(Db, SQL, false, ErrorFlag);
  return !ErrorFlag;
}

}  // namespace

void frmCustMain::LoadTaxBasis(bool Customer) {
  mTaxesLoaded = false;
  Trap("frmCustMain.LoadAvailableKeyWords", [&] {
    const std::string Instance = std::to_string(mInstance);
    orcussch::App().DoEvents();
    bool Loaded = Run(dbTemp, "Delete * From CU_AssignTaxes Where (Instance = " + Instance + ");");
    // The right joins keep a tax that has no type or entity.
    Loaded =
        Run(dbCustomer, "INSERT INTO CU_AssignTaxes ( Instance, TaxID, Assign, Description, TypeDescription, EntityDescription )" +
                            InFile(gTempPath) + " SELECT " + Instance +
                            " As Instance, TaxGrid.TaxID, False AS Assign, TaxGrid.Description, TaxTypes.TypeDescription, "
                            "TaxEntities.EntityDescription"
                            " FROM TaxTypes RIGHT JOIN (TaxEntities RIGHT JOIN TaxGrid ON TaxEntities.TaxEntity = TaxGrid.TaxEntity) ON "
                            "TaxTypes.TaxType = TaxGrid.TaxType"
                            ";") &&
        Loaded;
    Loaded = SQLTaxBasis() && Loaded;
    if (Customer && data[tab::Customers].OnRecord()) TickCustomersTaxes();
    mTaxesLoaded = Loaded;
    if (HasRecords(DataTaxBasis)) DataTaxBasis.Recordset()->MoveFirst();
    orcussch::App().DoEvents();
  });
}

void frmCustMain::TickCustomersTaxes() {
  const platform::RecordsetRef Taxes = DataTaxBasis.Recordset();
  for (const char* Field : {"TaxBasisA", "TaxBasisB", "TaxBasisC", "TaxBasisD"}) {
    const platform::Value Tax = data[tab::Customers].Recordset()->Field(Field);
    if (Tax.IsNull() || platform::CLng(Tax) <= 0) continue;
    Taxes->FindFirst("[TaxID]=" + platform::CStr(Tax));
    if (Taxes->NoMatch()) continue;
    Taxes->Edit();
    Taxes->SetField("Assign", true);
    Taxes->Update();
  }
}

void frmCustMain::LoadCustTypes() {
  Trap("frmCustMain.LoadCustTypes", [this] {
    const std::string Instance = std::to_string(mInstance);
    const std::string Head = "INSERT INTO CU_AssignDataCodes ( Instance, Assign, Code, Description )" + InFile(gTempPath);
    orcussch::App().DoEvents();
    Run(dbTemp, "Delete * From CU_AssignDataCodes Where (Instance = " + Instance + ");");
    mAssignAcct[tab::CustomerTypes].reset();
    if (data[tab::Customers].OnRecord()) {
      const std::int32_t Acct = platform::CLng(data[tab::Customers].Recordset()->Field("AcctNum"));
      mAssignAcct[tab::CustomerTypes] = Acct;
      Run(dbCustomer, Head + " SELECT " + Instance +
                          " As Instance, True AS Assign, DataCodes.Code, DataCodes.Description"
                          " FROM DataCodes INNER JOIN CustCodes ON DataCodes.Code = CustCodes.CustCodes"
                          " WHERE (CustCodes.AcctNum=" +
                          std::to_string(Acct) + ");");
    }
    // The ticked rows stand already: the table's key refuses them here, so that the ticks survive.
    Run(dbCustomer, Head + " SELECT " + Instance +
                        " As Instance, False AS Assign, DataCodes.Code, DataCodes.Description"
                        " FROM DataCodes;");
    orcussch::App().DoEvents();
  });
}

void frmCustMain::LoadKeyWords() {
  Trap("frmCustMain.LoadKeywords", [this] {
    const std::string Instance = std::to_string(mInstance);
    const std::string Head = "INSERT INTO CU_AssignKeywords ( Instance, Assign, Keyword )" + InFile(gTempPath);
    orcussch::App().DoEvents();
    Run(dbTemp, "Delete * From CU_AssignKeywords Where (Instance = " + Instance + ");");
    mAssignAcct[tab::KeyWords].reset();
    if (data[tab::Customers].OnRecord()) {
      const std::int32_t Acct = platform::CLng(data[tab::Customers].Recordset()->Field("AcctNum"));
      mAssignAcct[tab::KeyWords] = Acct;
      Run(dbCustomer, Head + " SELECT " + Instance +
                          " As Instance, True AS Assign, Keyword"
                          " FROM KeyWords INNER JOIN Lookups ON KeyWords.KeyWord = Lookups.Text"
                          " WHERE (AcctNum=" +
                          std::to_string(Acct) + ");");
    }
    Run(dbCustomer, Head + " SELECT " + Instance +
                        " As Instance, False AS Assign, Keyword"
                        " FROM Keywords;");
    orcussch::App().DoEvents();
  });
}

void frmCustMain::SelectedAssignment(bool Assign) {
  Trap("frmCustMain.UnassignSelected", [&] {
    orcussch::App().DoEvents();
    const bool OnList = SSIndexTab1.Page() == 0;
    if (OnList ? Tab() <= tab::LaborRates : Tab() != tab::Customers) return;
    const int Current = Tab();
    platform::Grid& Grid = OnList ? grid[static_cast<std::size_t>(Current)] : grdTaxBasis;
    if (Grid.SelBookmarks.Count() == 0) return;
    // The rows that the user saw marked; a list that is opened anew in a yield does not know them any more (error 3159).
    const std::vector<platform::Bookmark> Selected = Grid.SelBookmarks.All();
    for (const platform::Bookmark& Row : Selected) {
      Grid.CurrentBookmark(Row);
      Grid.ColumnValue(0, Assign);
      if (Current > tab::LaborRates) grid_AfterColUpdate(Current, 0);
      orcussch::App().DoEvents();
    }
    Grid.Row(0);  // writes the last change
    orcussch::App().MousePointer(platform::pointer::Default);
    orcussch::App().DoEvents();
  });
}

/// Codes count from 1; the highest one plus one, gaps are not used again.
std::int16_t frmCustMain::NextDataCode() {
  std::int16_t Next = 0;
  Trap("frmCustMain.NextDataCode", [&] {
    const Opened Codes(dbCustomer->OpenRecordset("SELECT Max([Code]) AS MaxCode FROM DataCodes WHERE [Code]>0;"));
    if (Codes->RecordCount() == 0) {
      Next = 1;
    } else {
      const platform::Value MaxCode = Codes->Field("MaxCode");
      Next = MaxCode.IsNull() ? std::int16_t{1} : platform::CInt(platform::CLng(MaxCode) + 1);
    }
  });
  return Next;
}

/// The list of taxes keeps its caption.
void frmCustMain::optTaxDisp_Click() { SQLTaxBasis(); }

void frmCustMain::optCustTypeDisp_Click() {
  SQLData(tab::CustomerTypes);
  CaptionFilteredList(tab::CustomerTypes, optCustTypeDisp);
}

void frmCustMain::optKeyWordDisp_Click() {
  SQLData(tab::KeyWords);
  CaptionFilteredList(tab::KeyWords, optKeyWordDisp);
}

/// By the filter that is on now: another one may have been chosen while the list was built.
void frmCustMain::CaptionFilteredList(int Tab, const Array<platform::OptionButton, 3>& Display) {
  const std::string List = TrimmedCaption(*this, Tab);
  const std::string Customer = lblCustomer.Caption();
  platform::Grid& list = grid[static_cast<std::size_t>(Tab)];
  if (Display[1].Value())
    list.Caption(Customer + " assigned " + List);
  else if (Display[2].Value())
    list.Caption(List + "  not assigned to " + Customer);
  else
    list.Caption("All " + List);
}

}  // namespace orcussch
