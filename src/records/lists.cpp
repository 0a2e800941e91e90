#include "records/lists.h"

namespace orcussch {

bool HasRecords(const platform::DataControl& list) { return list.HasRecordset() && list.Recordset()->HasRows(); }

void StandOn(ResumeNext& on, const platform::DataControl& list, const std::string& position) {
  if (position.empty()) return;
  bool Records = false;
  on([&] { Records = list.Recordset()->HasRows(); });
  if (!Records) return;
  bool NoMatch = false;
  on([&] {
    list.Recordset()->FindFirst(position);
    NoMatch = list.Recordset()->NoMatch();
  });
  if (NoMatch) on([&] { list.Recordset()->MoveLast(); });
}

void UpdateOrDrop(ResumeNext& on, const platform::RecordsetRef& rows) {
  if (!on([&] { rows->Update(); })) Ignore()([&] { rows->CancelUpdate(); });
}

}  // namespace orcussch
