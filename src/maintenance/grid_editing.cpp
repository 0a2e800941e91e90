#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"

// Editing cells in the lists: the tests before a cell is taken, and the writing of the row.
namespace orcussch {

using platform::Value;

void frmCustMain::grid_BeforeColUpdate(int Index, int ColIndex, const Value& OldValue, bool& Cancel) {
  ResumeNext on("frmCustMain.grid_BeforeColUpdate");
  platform::Grid& list = grid[Index];
  std::string V;
  on([&] { V = platform::Trim(platform::CStr(platform::Concat("", list.ColumnValue(ColIndex)))); });

  std::string message;
  for (const CellTest& test : Record(Index).Design().cellTests) {
    if (list.Column(ColIndex).dataField != test.field) continue;
    bool refused = false;
    on([&] { refused = test.refused(V); });
    if (refused) message = test.message;
  }
  if (message.empty()) return;
  on([&] {
    App().MsgBox(message, platform::box::Information + platform::box::OkOnly, SSIndexTab1.TabCaption(Tab()) + "-  Invalid Grid Entry");
  });
  Cancel = true;
  on([&] { list.ColumnValue(ColIndex, OldValue); });
}

/// Writes the changed row when the cell is left, not only when the list moves on.
void frmCustMain::grid_AfterColEdit(int Index) {
  Trap("frmCustMain.grid_AfterColEdit", [&] {
    const platform::RecordsetRef rs = data[Index].Recordset();
    rs->Edit();
    rs->Update();
  });
}

}  // namespace orcussch
