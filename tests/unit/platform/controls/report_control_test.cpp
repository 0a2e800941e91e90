#include "platform/controls/report_control.h"

#include <gtest/gtest.h>

#include "support/every_control.h"

// What outlives a report.
namespace {

class ReportControls : public ScreenTest {
 protected:
  platform::ReportControl report{*screen, "Report9"};
};

TEST_F(ReportControls, ResetSparesTheRangeOfPages) {
  report.Job.CopiesToPrinter = 3;
  report.Job.ReportFileName = std::string("a.rpt");
  report.Job.Formulas[3] = "x";
  report.Job.DataFiles[0] = "y";
  report.Job.SortFields[0] = "z";
  report.Job.PrinterStartPage = 2;
  report.Reset();
  EXPECT_FALSE(report.Job.CopiesToPrinter.Given());
  EXPECT_EQ(report.Job.CopiesToPrinter, 1);
  EXPECT_FALSE(report.Job.ReportFileName.Given());
  EXPECT_TRUE(report.Job.Formulas.empty() && report.Job.DataFiles.empty() && report.Job.SortFields.empty());
  EXPECT_EQ(report.Job.PrinterStartPage, 2);
  EXPECT_FALSE(report.Job.PrinterStopPage.Given()) << "what was never chosen stays so";
}

}  // namespace
