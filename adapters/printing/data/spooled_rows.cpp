#include "printing/data/spooled_rows.h"

namespace printing {

SpooledRows::SpooledRows(RowSource& rows) : fields_(rows.Fields()) {
  while (rows.Next()) file_.Write(rows.Row());
  file_.Rewind();
}

}  // namespace printing
