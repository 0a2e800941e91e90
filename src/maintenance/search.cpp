#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

// The search box: one step on the tab's list, by the beginning of a field.
namespace orcussch {

namespace {

constexpr int kEnter = 13;
constexpr const char* kSearchFirst = "Search First";
constexpr const char* kSearchNext = "Search Next";

}  // namespace

/// On the customer list a status is searched by its first letter, for which the stored code stands.
std::string frmCustMain::SearchValue(int Tab) const {
  const std::string Text = txtSearch[Tab].Text();
  if (Tab == tab::Customers && fraSearch[Tab].Tag() == "Status") {
    const std::string Letter = platform::Left(Text, 1);
    if (Letter == "A") return "0";
    if (Letter == "O") return "1";
    if (Letter == "P") return "2";
  }
  return FixQuotes(Text);
}

void frmCustMain::SearchRecord(int Tab) {
  if (txtSearch[Tab].Text().empty()) return;
  App().MousePointer(platform::pointer::Hourglass);

  const std::string Criteria = "([" + fraSearch[Tab].Tag() + "] Like '" + SearchValue(Tab) + "*')";
  const platform::RecordsetRef Rs = data[Tab].Recordset();
  std::string Word;
  if (fraSearch[Tab].Caption() == kSearchNext) {
    Word = "No more ";
    Rs->FindNext(Criteria);
  } else {
    Word = "No ";
    Rs->FindFirst(Criteria);
  }

  if (Rs->NoMatch()) {
    App().MsgBox(Word + lblSearch[Tab].Caption() + "'s beginning with '" + txtSearch[Tab].Text() + "' can be found!",
                 platform::box::Information + platform::box::OkOnly, SSIndexTab1.TabCaption(SSIndexTab1.Tab()) + " Search");
    fraSearch[Tab].Caption(kSearchFirst);
  } else {
    fraSearch[Tab].Caption(kSearchNext);
  }
  App().MousePointer(platform::pointer::Default);
}

void frmCustMain::txtSearch_Change(int Index) {
  fraSearch[Index].Caption(kSearchFirst);
  tb("tb_Find").Enabled(!txtSearch[Index].Text().empty());
}

void frmCustMain::txtSearch_KeyPress(int Index, int& KeyAscii) {
  if (KeyAscii == kEnter && !txtSearch[Index].Text().empty()) SearchRecord(Index);
}

}  // namespace orcussch
