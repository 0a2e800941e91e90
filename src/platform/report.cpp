#include "platform/report.h"

#include "platform/application.h"
#include "platform/controls/form.h"

namespace platform {

int ReportControl::PrintReport() {
  ReportEngine* engine = Owner().App().Reports();
  if (!engine) throw error::ObjectRequired();
  return engine->PrintReport(Job);
}

}  // namespace platform
