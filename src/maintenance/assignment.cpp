#include "maintenance/frmCustMain.h"
#include "platform/convert.h"
#include "session/ModCustSch.h"

// The lists of customer types and key words with a check column: copies in the temporary database, marked with this
// screen's instance, in which the current customer's entries are ticked.
namespace orcussch {

namespace {

/// Runs one statement of a load; a failure is reported there and the list shows what got in.
void Run(const platform::DatabaseRef& Db, const std::string& SQL) {
  bool ErrorFlag = false;
  ExecuteSQLStmt(Db, SQL, false, ErrorFlag);
}

}  // namespace

void frmCustMain::LoadCustTypes() {
  Trap("frmCustMain.LoadCustTypes", [this] {
    const std::string Instance = std::to_string(mInstance);
    const std::string Head = "INSERT INTO CU_AssignDataCodes ( Instance, Assign, Code, Description ) IN '" + gTempPath + "'";
    orcussch::App().DoEvents();
    Run(dbTemp, "Delete * From CU_AssignDataCodes Where (Instance = " + Instance + ");");
    if (data[tab::Customers].OnRecord()) {
      const std::int32_t Acct = platform::CLng(data[tab::Customers].Recordset().Field("AcctNum"));
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
    const std::string Head = "INSERT INTO CU_AssignKeywords ( Instance, Assign, Keyword ) IN '" + gTempPath + "'";
    orcussch::App().DoEvents();
    Run(dbTemp, "Delete * From CU_AssignKeywords Where (Instance = " + Instance + ");");
    if (data[tab::Customers].OnRecord()) {
      const std::int32_t Acct = platform::CLng(data[tab::Customers].Recordset().Field("AcctNum"));
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

void frmCustMain::optCustTypeDisp_Click(int Index) {
  SQLData(tab::CustomerTypes);
  CaptionFilteredList(tab::CustomerTypes, Index);
}

void frmCustMain::optKeyWordDisp_Click(int Index) {
  SQLData(tab::KeyWords);
  CaptionFilteredList(tab::KeyWords, Index);
}

void frmCustMain::CaptionFilteredList(int Tab, int Index) {
  const std::string List = TrimmedCaption(*this, Tab);
  const std::string Customer = lblCustomer.Caption();
  platform::Grid& list = grid[static_cast<std::size_t>(Tab)];
  if (Index == 1)
    list.Caption(Customer + " assigned " + List);
  else if (Index == 2)
    list.Caption(List + "  not assigned to " + Customer);
  else
    list.Caption("All " + List);
}

}  // namespace orcussch
