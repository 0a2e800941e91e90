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
  const auto n = static_cast<std::size_t>(Tab);
  const std::string Text = txtSearch[n].Text();
  if (Tab == tab::Customers && fraSearch[n].Tag() == "Status") {
    const std::string Letter = platform::Left(Text, 1);
    if (Letter == "A") return "0";
    if (Letter == "O") return "1";
    if (Letter == "P") return "2";
  }
  return FixQuotes(Text);
}

void frmCustMain::SearchRecord(int Tab) {
  const auto n = static_cast<std::size_t>(Tab);
  if (txtSearch[n].Text().empty()) return;
  orcussch::App().MousePointer(platform::pointer::Hourglass);

  const std::string Criteria = "([" + fraSearch[n].Tag() + "] Like '" + SearchValue(Tab) + "*')";
  const platform::RecordsetRef Rs = data[n].Recordset();
  std::string Word;
  if (fraSearch[n].Caption() == kSearchNext) {
    Word = "No more ";
    Rs->FindNext(Criteria);
  } else {
    Word = "No ";
    Rs->FindFirst(Criteria);
  }

  if (Rs->NoMatch()) {
    orcussch::App().MsgBox(Word + lblSearch[n].Caption() + "'s beginning with '" + txtSearch[n].Text() + "' can be found!",
                           platform::box::Information + platform::box::OkOnly, SSIndexTab1.TabCaption(SSIndexTab1.Tab()) + " Search");
    fraSearch[n].Caption(kSearchFirst);
  } else {
    fraSearch[n].Caption(kSearchNext);
  }
  orcussch::App().MousePointer(platform::pointer::Default);
}

void frmCustMain::txtSearch_Change(int Index) {
  const auto n = static_cast<std::size_t>(Index);
  fraSearch[n].Caption(kSearchFirst);
  tb("tb_Find").Enabled(!txtSearch[n].Text().empty());
}

void frmCustMain::txtSearch_KeyPress(int Index, int& KeyAscii) {
  if (KeyAscii == kEnter && !txtSearch[static_cast<std::size_t>(Index)].Text().empty()) SearchRecord(Index);
}

}  // namespace orcussch
