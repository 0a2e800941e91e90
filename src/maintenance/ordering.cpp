#include "maintenance/frmCustMain.h"
#include "records/lists.h"

// How the user orders a list: by the options and by clicks on headings.
namespace orcussch {

/// An empty list is not rebuilt; the choice counts at the next rebuild.
void frmCustMain::optOrder_Click(int Tab) {
  if (HasRecords(data[Tab])) SQLData(Tab);
}

void frmCustMain::grid_HeadClick(int Index, int ColIndex) {
  if (OrderByColumn(Index, ColIndex) && HasRecords(data[Index])) SQLData(Index);
}

/// As a click on the heading and one on the option, with one rebuild.
void frmCustMain::grid_Sort(int Index, int ColIndex, bool Descending) {
  if (!OrderByColumn(Index, ColIndex)) return;
  platform::OptionButton& direction = Record(Index).optOrder[Descending ? 1 : 0];
  if (!direction.Value())
    direction.Value(true);
  else
    optOrder_Click(Index);
}

/// What the next rebuild orders by; false for a column that can't be ordered by.
bool frmCustMain::OrderByColumn(int Index, int ColIndex) {
  const platform::GridColumn& column = grid[Index].Column(ColIndex);

  txtSearch[Index].Text("");
  fraSearch[Index].Tag(column.dataField);
  lblSearch[Index].Caption(column.caption);

  const std::optional<std::string> order = Record(Index).OrderBy(column, ColIndex);
  if (!order) return false;
  fraOrder[Index].Tag(*order);

  Record(Index).optOrder[0].Caption("Ascending " + lblSearch[Index].Caption());
  Record(Index).optOrder[1].Caption("Descending " + lblSearch[Index].Caption());
  return true;
}

}  // namespace orcussch
