#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

// Changing tabs.
namespace orcussch {

void frmCustMain::SSIndexTab1_BeforeTabClick(bool& Cancel) {
  if (tb("tb_SaveRec").Enabled()) Cancel = true;
}

void frmCustMain::SSIndexTab1_Click() {
  const int NewTab = Tab();
  const auto n = static_cast<std::size_t>(NewTab);
  if (NewTab != tab::Customers) {
    const std::int32_t Acct = platform::CLng(data[tab::Customers].Recordset()->Field("AcctNum"));
    if (mTabAcct[n] != Acct)
      LoadTab(NewTab);
    else
      TestRecordcount();
    if (Tab() != NewTab) return;  // another tab was chosen in a yield, and its own click has set what follows
    tb("tb_Queries").Enabled(false);
    miQueries.Enabled(false);
  } else {
    TestRecordcount();
    if (Tab() != NewTab) return;
    tb("tb_Queries").Enabled(true);
    miQueries.Enabled(true);
  }
  tb("tb_Find").Enabled(!txtSearch[n].Text().empty());
  miFind.Enabled(!txtSearch[n].Text().empty());
  txtSearch[n].SetFocus();
}

/// The customers' list has moved by itself while another tab was up, which can only have come up in a yield: that tab's list
/// belongs to the customer of before.
void frmCustMain::FollowCustomer() {
  if (Tab() != tab::Customers && HasRecords(data[tab::Customers])) LoadTab(Tab());
}

void frmCustMain::LoadTab(int Tab) {
  const std::string Caption = TrimmedCaption(*this, Tab);
  platform::Grid& list = grid[static_cast<std::size_t>(Tab)];
  switch (Tab) {
    case tab::LaborRates:
      list.Caption(lblCustomer.Caption() + " - " + Caption);
      optAllDept[0].Value(true);
      break;
    case tab::CustomerTypes:
      list.Caption("All " + Caption);
      optCustTypeDisp[0].Value(true);
      LoadCustTypes();
      break;
    case tab::KeyWords:
      list.Caption("All " + Caption);
      optKeyWordDisp[0].Value(true);
      LoadKeyWords();
      break;
    default:
      list.Caption(lblCustomer.Caption() + " - " + Caption);
      break;
  }
  SQLData(Tab);
  orcussch::App().DoEvents();
}

}  // namespace orcussch
