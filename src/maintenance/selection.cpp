#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

// Handing the current customer to the host, and the multiple selection of rows.
namespace orcussch {

namespace {

struct AnswerText {
  const char* field;
  std::string* answer;
};

}  // namespace

/// Whatever the tab, the customer is the one on whose row the customer list stands.
void frmCustMain::SelectCustomer() {
  const AnswerText texts[] = {
      {"FirstName", &gCustomerFirstName}, {"LastName", &gCustomerLastName}, {"Title", &gCustomerTitle}, {"Addr1", &gCustomerAddr1},
      {"Addr2", &gCustomerAddr2},         {"City", &gCustomerCity},         {"State", &gCustomerState}, {"Zip", &gCustomerZip}};
  const platform::RecordsetRef Rs = data[tab::Customers].Recordset();
  if (HasRecords(data[tab::Customers])) {
    gSelAcctNum = platform::CLng(Rs->Field("AcctNum"));
    for (const AnswerText& text : texts) *text.answer = platform::Trim(platform::CStr(platform::Concat("", Rs->Field(text.field))));
  } else {
    gSelAcctNum = 0;
    for (const AnswerText& text : texts) text.answer->clear();
  }
  orcussch::App().Unload(*this);
}

void frmCustMain::SelectAllRecords(platform::Grid& Grid, platform::RecordsetRef Rs) {
  Trap("frmCustMain,SelectAllRecords", [&] {
    orcussch::App().MousePointer(platform::pointer::Hourglass);
    orcussch::App().DoEvents();
    if (Rs->RecordCount() != 0) {
      Rs->MoveFirst();
      while (!Rs->Eof()) {
        Grid.SelBookmarks.Add(Rs->Bookmark());
        Rs->MoveNext();
        orcussch::App().DoEvents();
      }
      Rs->MoveFirst();
    }
    TestGridSelection(Grid);
    orcussch::App().MousePointer(platform::pointer::Default);
    orcussch::App().DoEvents();
  });
}

void frmCustMain::UnselectAllRecords(platform::Grid& Grid) {
  while (Grid.SelBookmarks.Count() != 0) Grid.SelBookmarks.Remove(0);
  TestGridSelection(Grid);
}

void frmCustMain::TestGridSelection(platform::Grid& Grid) {
  const bool Selection = Grid.SelBookmarks.Count() != 0;
  for (const char* key : {"tb_UnselectAll", "tb_UnassignSelected", "tb_AssignSelected"}) tb(key).Enabled(Selection);
  for (platform::MenuItem* item : {&miUnselectAll, &miUnassignSelected, &miAssignSelected}) item->Enabled(Selection);
}

}  // namespace orcussch
