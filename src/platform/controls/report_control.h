#pragma once

#include "platform/controls/form/control.h"
#include "platform/services/report_engine.h"

namespace platform {

/// A screen's report control: its job is filled property by property, then run.
class ReportControl final : public Control {
 public:
  using Control::Control;
  ReportJob Job;
  /// Forgets everything set for the last report, but for the range of pages, which belongs to the printer.
  void Reset();
  /// Runs the job; without a report engine error 424.
  int PrintReport();
};

}  // namespace platform
