#include "platform/controls/report_control.h"

#include <utility>

#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/values/error.h"

namespace platform {

void ReportControl::Reset() {
  ReportJob fresh;
  fresh.PrinterStartPage = Job.PrinterStartPage;
  fresh.PrinterStopPage = Job.PrinterStopPage;
  Job = std::move(fresh);
}

int ReportControl::PrintReport() {
  ReportEngine* engine = Owner().Host().Reports();
  if (!engine) throw error::ObjectRequired();
  return engine->PrintReport(Job);
}

}  // namespace platform
