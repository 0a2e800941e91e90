#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/lists.h"

// Changing tabs.
namespace orcussch {

void frmCustMain::SSIndexTab1_BeforeTabClick(bool& Cancel) {
  if (tb("tb_SaveRec").Enabled()) Cancel = true;
}

void frmCustMain::SSIndexTab1_Click() {
  const int newTab = Tab();
  const int card = mCardNumber;
  if (newTab != tab::Customers) {
    const std::int32_t acct = platform::CLng(data[tab::Customers].Recordset()->Field("AcctNum"));
    if (Record(newTab).mAcct != acct)
      LoadTab(newTab);
    else
      TestRecordcount();
    if (Tab() != newTab) return;  // another tab was chosen in a yield, and its own click has set what follows
    tb("tb_Queries").Enabled(false);
    miQueries.Enabled(false);
  } else {
    TestRecordcount();
    if (Tab() != newTab || CardCameUp(card)) return;
    tb("tb_Queries").Enabled(true);
    miQueries.Enabled(true);
  }
  if (CardCameUp(card)) return;
  tb("tb_Find").Enabled(!txtSearch[newTab].Text().empty());
  miFind.Enabled(!txtSearch[newTab].Text().empty());
  txtSearch[newTab].SetFocus();
}

void frmCustMain::FollowCustomer() {
  if (Tab() != tab::Customers && HasRecords(data[tab::Customers])) LoadTab(Tab());
}

void frmCustMain::LoadTab(int Tab) {
  Record(Tab).Visit(TrimmedCaption(*this, Tab));
  SQLData(Tab);
  App().DoEvents();
}

}  // namespace orcussch
