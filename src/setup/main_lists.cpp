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
  bool shown = false;
  on([&] { shown = HasRecords(list) && screens::frmCustMain.peek()->SSIndexTab1.Page() == 0; });
  if (!shown) return;
  std::int32_t id = 0;
  on([&] { id = LongOf(list.Recordset(), key); });
  on([&] { list.Refresh(); });
  on([&] { list.UpdateControls(); });
  bool rows = false;
  on([&] { rows = HasRecords(list); });
  if (!rows) return;
  on([&] { list.Recordset()->FindFirst(std::string("[") + key + "]=" + std::to_string(id)); });
  on([&] {
    if (list.Recordset()->NoMatch()) list.Recordset()->MoveFirst();
  });
}

void CloseTable(platform::RecordsetRef& table) {
  Ignore()([&] { table->Close(); });
  table = {};
}

}  // namespace orcussch
