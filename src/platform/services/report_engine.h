#pragma once

#include <map>
#include <string>
#include <utility>

namespace platform {

/// A number or a text of a report, and whether it was given since the last Reset.
template <class T>
class ReportSetting {
 public:
  ReportSetting() = default;
  explicit ReportSetting(T atFirst) : value_(std::move(atFirst)) {}
  ReportSetting& operator=(T value) {
    value_ = std::move(value);
    given_ = true;
    return *this;
  }
  operator const T&() const { return value_; }
  bool Given() const noexcept { return given_; }

 private:
  T value_{};
  bool given_ = false;
};

/// Everything that one run of a report is given. Numbers count from 0; an empty data file keeps what the report file has.
struct ReportJob {
  ReportSetting<int> WindowState{0};
  ReportSetting<int> CopiesToPrinter{1};
  ReportSetting<bool> DiscardSavedData{false};
  ReportSetting<std::string> ReportFileName;
  std::map<int, std::string> DataFiles;
  ReportSetting<std::string> WindowTitle;
  std::map<int, std::string> Formulas;
  std::map<int, std::string> SortFields;
  ReportSetting<int> Destination{0};  ///< 0 preview window, 1 printer
  ReportSetting<std::string> SelectionFormula;
  ReportSetting<int> PrinterStartPage{0};
  ReportSetting<int> PrinterStopPage{0};
  ReportSetting<int> FirstLabel{1};  ///< of sheets of labels: the first one that is still on the first sheet
};

/// The report engine behind the report controls.
class ReportEngine {
 public:
  virtual ~ReportEngine() = default;
  /// Runs the report; 0, or the engine's error number.
  virtual int PrintReport(const ReportJob& job) = 0;
  /// Lets the user say how his printer's pages are moved, with a sheet to measure it by for the labels of that report.
  virtual void AlignPrinter(const std::string& /*reportFileName*/) {}
  /// Previews that are still open go: at the session's end, and with another company.
  virtual void CloseAll() {}
};

}  // namespace platform
