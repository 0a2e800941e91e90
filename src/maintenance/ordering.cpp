#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

// How the user orders a list: by the options and by clicks on headings.
namespace orcussch {

platform::ControlArray<platform::OptionButton, 2>& frmCustMain::optOrder(int Tab) {
  platform::ControlArray<platform::OptionButton, 2>* const options[] = {&optOrder0, &optOrder1, &optOrder2, &optOrder3,
                                                                        &optOrder4, &optOrder5, &optOrder6};
  return *options[Tab];
}

/// An empty list is not rebuilt; the choice counts at the next rebuild.
void frmCustMain::optOrder_Click(int Tab) {
  if (HasRecords(data[static_cast<std::size_t>(Tab)])) SQLData(Tab);
}

void frmCustMain::grid_HeadClick(int Index, int ColIndex) {
  if (OrderByColumn(Index, ColIndex) && HasRecords(data[static_cast<std::size_t>(Index)])) SQLData(Index);
}

/// As a click on the heading and one on the option, with one rebuild.
void frmCustMain::grid_Sort(int Index, int ColIndex, bool Descending) {
  if (!OrderByColumn(Index, ColIndex)) return;
  platform::OptionButton& Direction = optOrder(Index)[Descending ? 1 : 0];
  if (!Direction.Value())
    Direction.Value(true);
  else
    optOrder_Click(Index);
}

/// What the next rebuild orders by; false for a column that can't be ordered by.
bool frmCustMain::OrderByColumn(int Index, int ColIndex) {
  const auto n = static_cast<std::size_t>(Index);
  const platform::GridColumn& column = grid[n].Column(ColIndex);

  txtSearch[n].Text("");
  fraSearch[n].Tag(column.dataField);
  lblSearch[n].Caption(column.caption);

  const std::string Field = platform::UCase(column.dataField);
  switch (Index) {
    case tab::Customers:
      if (Field == "COMMENTS") {
        orcussch::App().MsgBox("Customer records cannot be ordered by the comment field because it is a memo field in the database!",
                               platform::box::Information + platform::box::OkOnly, "Customer Order");
        return false;
      }
      // With its table's name, since a query may join other tables that have the field too.
      fraOrder[n].Tag(Field == "ACCTNUM" ? "Customers.AcctNum" : column.dataField);
      break;
    case tab::Phones:
      fraOrder[n].Tag(column.dataField);
      txtSearch[n].Mask(ColIndex == 2 ? "(%%%)" : ColIndex == 3 ? "%%%-%%%%" : "");
      break;
    case tab::CreditCards:
      fraOrder[n].Tag(column.dataField);
      txtSearch[n].Mask("");
      break;
    case tab::LaborRates:
      // A computed column's name can't be ordered on.
      fraOrder[n].Tag(column.dataField == "Adjusted Rate" ? "[DefaultLaborRate]+([DefaultLaborRate]*[Adjustment]/100)" : column.dataField);
      break;
    default:
      fraOrder[n].Tag(column.dataField);
      break;
  }

  optOrder(Index)[0].Caption("Ascending " + lblSearch[n].Caption());
  optOrder(Index)[1].Caption("Descending " + lblSearch[n].Caption());
  return true;
}

void frmCustMain::grdTaxBasis_HeadClick(int ColIndex) {
  grdTaxBasis.Tag(grdTaxBasis.Column(ColIndex).dataField);
  if (HasRecords(DataTaxBasis)) SQLTaxBasis();
}

}  // namespace orcussch
