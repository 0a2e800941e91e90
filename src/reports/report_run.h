#pragma once

#include <string>

#include "platform/controls/common_dialog.h"
#include "platform/controls/report_control.h"

/// What the runs of all reports have in common.
namespace orcussch {

/// The status line while a run goes on.
inline constexpr const char* kPreparingReport = "Preparing report, please wait!";

/// Destinations of a run.
namespace destination {
inline constexpr int Preview = 0;
inline constexpr int Printer = 1;
}  // namespace destination

/// Forgets the last report and sets what every run has: a maximised preview, the copies that the screen's dialog names by then, data read
/// afresh. Yields twice; false when the control's screen has gone meanwhile.
bool BeginRun(platform::ReportControl& Report, const platform::CommonDialog& Dialog);

/// Names the report file, which lies in the program's folder. A file that is not there is told to the user: false.
bool TakeReportFile(platform::ReportControl& Report, const std::string& Name);

/// Runs the report there, over the rows of that selection. Yields before; what the engine refuses is told to the user by its number.
void RunReport(platform::ReportControl& Report, int Destination, const std::string& Selection);

/// The condition that is met by one customer's rows alone.
std::string OfCustomer(const std::string& AcctNum);

}  // namespace orcussch
