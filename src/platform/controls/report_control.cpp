#include "platform/controls/report_control.h"

#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/values/error.h"

namespace platform {

int ReportControl::PrintReport() {
  ReportEngine* engine = Owner().Host().Reports();
  if (!engine) throw error::ObjectRequired();
  return engine->PrintReport(Job);
}

}  // namespace platform
