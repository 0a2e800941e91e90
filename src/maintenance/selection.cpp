#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/lists.h"
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
  const platform::RecordsetRef rs = data[tab::Customers].Recordset();
  if (HasRecords(data[tab::Customers])) {
    gSelAcctNum = platform::CLng(rs->Field("AcctNum"));
    for (const AnswerText& text : texts) *text.answer = platform::Trim(platform::CStr(platform::Concat("", rs->Field(text.field))));
  } else {
    gSelAcctNum = 0;
    for (const AnswerText& text : texts) text.answer->clear();
  }
  App().Unload(*this);
}

void frmCustMain::SelectAllRecords(platform::Grid& Grid, platform::RecordsetRef Rs) {
  const int card = mCardNumber;
  Trap("frmCustMain,SelectAllRecords", [&] {
    App().MousePointer(platform::pointer::Hourglass);
    App().DoEvents();
    if (Rs->RecordCount() != 0) {
      Rs->MoveFirst();
      while (!Rs->Eof()) {
        Grid.SelBookmarks.Add(Rs->Bookmark());
        Rs->MoveNext();
        App().DoEvents();
      }
      Rs->MoveFirst();
    }
    TestGridSelection(Grid);
    App().MousePointer(platform::pointer::Default);
    App().DoEvents();
  });
  KeepCard(CurrentRecord(), card);
}

void frmCustMain::UnselectAllRecords(platform::Grid& Grid) {
  while (Grid.SelBookmarks.Count() != 0) Grid.SelBookmarks.Remove(0);
  TestGridSelection(Grid);
}

void frmCustMain::TestGridSelection(platform::Grid& Grid) {
  const bool selection = Grid.SelBookmarks.Count() != 0;
  for (const char* key : {"tb_UnselectAll", "tb_UnassignSelected", "tb_AssignSelected"}) tb(key).Enabled(selection);
  for (platform::MenuItem* item : {&miUnselectAll, &miUnassignSelected, &miAssignSelected}) item->Enabled(selection);
}

void frmCustMain::SelectedAssignment(bool Assign) {
  const int card = mCardNumber;
  Trap("frmCustMain.UnassignSelected", [&] {
    App().DoEvents();
    RecordTab& record = Record(Tab());
    const TickList ticks = record.Ticks();
    if (!ticks.grid || SSIndexTab1.Page() != ticks.page) return;
    platform::Grid& list = *ticks.grid;
    if (list.SelBookmarks.Count() == 0) return;
    // The rows that the user saw marked; a list that is opened anew in a yield does not know them any more (error 3159).
    const std::vector<platform::Bookmark> selected = list.SelBookmarks.All();
    for (const platform::Bookmark& row : selected) {
      list.CurrentBookmark(row);
      list.ColumnValue(0, Assign);
      record.CellTaken(0);
      App().DoEvents();
    }
    list.Row(0);  // writes the last change
    App().MousePointer(platform::pointer::Default);
    App().DoEvents();
  });
  KeepCard(CurrentRecord(), card);
}

}  // namespace orcussch
