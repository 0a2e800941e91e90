#include "queries/frmCustQueries.h"
#include "session/ModCustSch.h"

// The search boxes of the two lists. A search moves the list's current row; only marked rows count in a query.
namespace orcussch {

namespace {

constexpr int kEnter = 13;
constexpr const char* kSearchFirst = "Search First";
constexpr const char* kSearchNext = "Search Next";

}  // namespace

/// Typing goes to the label's tag and not to its caption: after a hit the next search goes on from there under the new text.
void frmCustQueries::txtSearch_Change(int Index) { lblSearch[Index].Tag(kSearchFirst); }

void frmCustQueries::txtSearch_KeyPress(int Index, int KeyAscii) {
  if (KeyAscii == kEnter && !txtSearch[Index].Text().empty()) SearchRecord(Index);
}

void frmCustQueries::SearchRecord(int Index) {
  if (txtSearch[Index].Text().empty()) return;
  App().MousePointer(platform::pointer::Hourglass);

  const std::string Criteria = "([" + grid[Index].Column(0).dataField + "] Like '" + FixQuotes(txtSearch[Index].Text()) + "*')";
  const platform::RecordsetRef Rs = Data[Index].Recordset();
  std::string Word;
  if (lblSearch[Index].Caption() == kSearchNext) {
    Word = "No more ";
    Rs->FindNext(Criteria);
  } else {
    Word = "No ";
    Rs->FindFirst(Criteria);
  }

  if (Rs->NoMatch()) {
    App().MsgBox(Word + lblSearch[Index].Caption() + "'s beginning with '" + txtSearch[Index].Text() + "' can be found!",
                 platform::box::Information + platform::box::OkOnly, grid[Index].Column(0).caption);
    lblSearch[Index].Caption(kSearchFirst);
  } else {
    lblSearch[Index].Caption(kSearchNext);
  }
  App().MousePointer(platform::pointer::Default);
}

}  // namespace orcussch
