#include "hostile/procedures.h"

namespace hostile {

Procedures AllProcedures() {
  Procedures all = RecordProcedures();
  Procedures lists = ListProcedures();
  for (Procedure& procedure : lists) all.push_back(std::move(procedure));
  return all;
}

}  // namespace hostile
