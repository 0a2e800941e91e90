#include "printing/output/progress.h"

#include "printing/data/report_errors.h"

namespace printing {

void Ask(const Progress& progress, std::int64_t done) {
  if (progress && !progress(done)) throw ReportFailure(ReportError::Stopped, "stopped by the user");
}

}  // namespace printing
