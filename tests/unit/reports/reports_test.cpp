#include "maintenance/openers.h"
#include "reports/frmCustReports.h"
#include "reports/report_run.h"
#include "support/main_screen_test.h"

// What no user can bring about on the screens: runs that the keys don't start, a host without a report engine.
namespace {

using orcussch::frmCustMain;
using testing::ElementsAre;
using testing::IsEmpty;

class ReportsTest : public MainScreenTest {
 protected:
  ReportsTest() {
    AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName"}, {{std::int32_t{11}, "Ames"}});
    std::ofstream(folder / "ARCusDet.Rpt") << "a report";
  }

  void Execute(const std::string& statement) const {
    const auto engine = engine::MakeEngine();
    engine->OpenControlDatabase(CustomerFile())->Execute(statement, platform::dbFailOnError);
  }
};

/// The toolbar is shut in front of an empty catalogue.
TEST_F(ReportsTest, AnEmptyCatalogueSaysSo) {
  Execute("DELETE * FROM CUReports");
  Serve([&](frmCustMain&) {
    orcussch::screens::frmCustReports->cmdPrint(orcussch::destination::Printer);
    const auto& report = orcussch::screens::frmCustReports.peek()->Report1;
    EXPECT_FALSE(report.Job.WindowState.Given());
  });
  ASSERT_EQ(frontEnd->boxes.size(), 1u);
  EXPECT_EQ(frontEnd->boxes[0].text, "There are no reports to print!");
  EXPECT_EQ(frontEnd->boxes[0].style, platform::box::Information);
  EXPECT_EQ(frontEnd->boxes[0].title, "Customer Reports");
  EXPECT_THAT(Reports(), IsEmpty());
}

/// An account number that is not shown: the report comes out empty.
TEST_F(ReportsTest, WithoutAnAccountNumberNoCustomerIsAskedFor) {
  Serve([&](frmCustMain& screen) {
    screen.lblAcctNum.Caption("");
    screen.miPrint.UserClick();
    EXPECT_EQ(static_cast<const std::string&>(screen.Report1.Job.SelectionFormula), "{Customers.AcctNum}=0");
  });
}

/// A run that fails is told once and ends there, its status text standing; the screen can be worked on.
TEST_F(ReportsTest, AHostWithoutAnEngine) {
  Serve([&](frmCustMain& screen) {
    screen.miPreview.UserClick();
    EXPECT_EQ(screen.StatusBar1.Panel(1), "Preparing report, please wait!");
    EXPECT_TRUE(screen.Find("tb_Print")->OpenToUser());
  });
  EXPECT_THAT(Reports(), ElementsAre("frmReports.cmdPrint"));
  ASSERT_EQ(log->records.size(), 1u);
  EXPECT_EQ(log->records[0].number, 424);
}

}  // namespace
