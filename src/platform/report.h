#pragma once

#include <map>
#include <string>

#include "platform/controls/control.h"

namespace platform {

/// Everything that one run of a report is given. Numbers count from 0; an empty data file keeps what the report file has.
struct ReportJob {
  int WindowState = 0;
  int CopiesToPrinter = 1;
  bool DiscardSavedData = false;
  std::string ReportFileName;
  std::map<int, std::string> DataFiles;
  std::string WindowTitle;
  std::map<int, std::string> Formulas;
  std::map<int, std::string> SortFields;
  int Destination = 0;  ///< 0 preview window, 1 printer
  std::string SelectionFormula;
  int PrinterStartPage = 0;
  int PrinterStopPage = 0;
};

/// The report engine behind the report controls.
class ReportEngine {
 public:
  virtual ~ReportEngine() = default;
  /// Runs the report; 0, or the engine's error number.
  virtual int PrintReport(const ReportJob& job) = 0;
};

/// A screen's report control: its job is filled property by property, then run.
class ReportControl final : public Control {
 public:
  using Control::Control;
  ReportControl(Form& form, std::string name) : Control(form, std::move(name)) {}
  ReportJob Job;
  /// Forgets everything set for the last report.
  void Reset() { Job = ReportJob{}; }
  /// Runs the job; without a report engine error 424.
  int PrintReport();
};

}  // namespace platform
