#include "setup/main_lists.h"

#include <string>

#include "maintenance/frmCustMain.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "records/lists.h"
#include "session/failures.h"

namespace orcussch {

void ReloadCombo(platform::DataControl& source) {
  Ignore on;
  on([&] { source.Refresh(); });
  on([&] { source.UpdateControls(); });
}

void ReloadOnListPage(platform::DataControl& list, const char* key) {
  Ignore on;
  bool Shown = false;
  on([&] { Shown = HasRecords(list) && screens::frmCustMain.peek()->SSIndexTab1.Page() == 0; });
  if (!Shown) return;
  std::int32_t Id = 0;
  on([&] { Id = LongOf(list.Recordset(), key); });
  on([&] { list.Refresh(); });
  on([&] { list.UpdateControls(); });
  bool Rows = false;
  on([&] { Rows = HasRecords(list); });
  if (!Rows) return;
  on([&] { list.Recordset()->FindFirst(std::string("[") + key + "]=" + std::to_string(Id)); });
  on([&] {
    if (list.Recordset()->NoMatch()) list.Recordset()->MoveFirst();
  });
}

void CloseTable(platform::RecordsetRef& table) {
  Ignore()([&] { table->Close(); });
  table = {};
}

}  // namespace orcussch
