#include "hostile/procedures.h"

namespace hostile {

Procedures AllProcedures() {
  Procedures all = RecordProcedures();
  for (Procedures more : {ListProcedures(), SetupProcedures(), QueryProcedures()})
    for (Procedure& procedure : more) all.push_back(std::move(procedure));
  return all;
}

}  // namespace hostile
