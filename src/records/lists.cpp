#include "records/lists.h"

namespace orcussch {

bool HasRecords(const platform::DataControl& list) { return list.HasRecordset() && list.Recordset()->HasRows(); }

void StandOn(ResumeNext& on, const platform::DataControl& list, const std::string& position) {
  if (position.empty()) return;
  bool records = false;
  on([&] { records = list.Recordset()->HasRows(); });
  if (!records) return;
  bool noMatch = false;
  on([&] {
    list.Recordset()->FindFirst(position);
    noMatch = list.Recordset()->NoMatch();
  });
  if (noMatch) on([&] { list.Recordset()->MoveLast(); });
}

void UpdateOrDrop(ResumeNext& on, const platform::RecordsetRef& rows) {
  if (!on([&] { rows->Update(); })) Ignore()([&] { rows->CancelUpdate(); });
}

}  // namespace orcussch
