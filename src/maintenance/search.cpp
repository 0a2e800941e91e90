#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/list_search.h"
#include "session/ModCustSch.h"

// The search box: one step on the tab's list, by the beginning of a field.
namespace orcussch {

namespace {

constexpr int kEnter = 13;

}  // namespace

/// On the customer list a status is searched by its first letter, for which the stored code stands.
std::string frmCustMain::SearchValue(int Tab) const {
  const std::string text = txtSearch[Tab].Text();
  if (Tab == tab::Customers && fraSearch[Tab].Tag() == "Status") {
    const std::string letter = platform::Left(text, 1);
    if (letter == "A") return "0";
    if (letter == "O") return "1";
    if (letter == "P") return "2";
  }
  return FixQuotes(text);
}

void frmCustMain::SearchRecord(int Tab) {
  if (txtSearch[Tab].Text().empty()) return;
  SearchList(App(), data[Tab].Recordset(), {fraSearch[Tab].Tag(), fraSearch[Tab], lblSearch[Tab], txtSearch[Tab]}, SearchValue(Tab),
             SSIndexTab1.TabCaption(SSIndexTab1.Tab()) + " Search");
}

void frmCustMain::txtSearch_Change(int Index) {
  fraSearch[Index].Caption(kSearchFirst);
  tb("tb_Find").Enabled(!txtSearch[Index].Text().empty());
}

void frmCustMain::txtSearch_KeyPress(int Index, int& KeyAscii) {
  if (KeyAscii == kEnter && !txtSearch[Index].Text().empty()) SearchRecord(Index);
}

}  // namespace orcussch
