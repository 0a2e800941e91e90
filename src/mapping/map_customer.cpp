#include "maintenance/frmCustMain.h"
#include "mapping/frmMap.h"
#include "records/fields.h"

namespace orcussch {

void MapCustomer(const std::string& Scope) {
  frmCustMain& main = *screens::frmCustMain.peek();
  platform::DataControl& customers = main.data[tab::Customers];
  if (!customers.OnRecord()) return;
  const std::int32_t AcctNum = LongOf(customers.Recordset(), "AcctNum");
  main.Tag("");
  main.Toolbar1.Tag(Scope);
  screens::frmMap.Show();
  if (screens::frmCustMain.peek() != &main || !main.Loaded()) return;
  if (main.Tag() == "Unload") return main.App().Unload(main);

  // Anew, so that a position that was stored on the map is seen at once.
  platform::Grid& list = main.grid[tab::Customers];
  const int LeftCol = list.LeftCol(0);
  customers.Refresh();
  const platform::RecordsetRef rows = customers.Recordset();
  rows->FindFirst("[AcctNum]=" + std::to_string(AcctNum));
  if (rows->NoMatch()) rows->MoveFirst();
  list.LeftCol(0, LeftCol);
}

}  // namespace orcussch
