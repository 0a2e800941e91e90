#include "queries/frmCustQueries.h"
#include "records/list_search.h"
#include "session/ModCustSch.h"

// The search boxes of the two lists. A search moves the list's current row; only marked rows count in a query.
namespace orcussch {

namespace {

constexpr int kEnter = 13;

}  // namespace

/// Typing goes to the label's tag and not to its caption: after a hit the next search goes on from there under the new text.
void frmCustQueries::txtSearch_Change(int Index) { lblSearch[Index].Tag(kSearchFirst); }

void frmCustQueries::txtSearch_KeyPress(int Index, int KeyAscii) {
  if (KeyAscii == kEnter && !txtSearch[Index].Text().empty()) SearchRecord(Index);
}

/// The label tells how far the search is, and a box calls the rows by it too: users know the texts so.
void frmCustQueries::SearchRecord(int Index) {
  if (txtSearch[Index].Text().empty()) return;
  SearchList(App(), Data[Index].Recordset(), {grid[Index].Column(0).dataField, lblSearch[Index], lblSearch[Index], txtSearch[Index]},
             FixQuotes(txtSearch[Index].Text()), grid[Index].Column(0).caption);
}

}  // namespace orcussch
