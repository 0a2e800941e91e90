#include "maintenance/openers.h"

#include "entry/screens.h"
#include "support/controls.h"
#include "support/main_screen_test.h"

// The commands of screens that stand above the main screen.
namespace {

using orcussch::frmCustMain;
using orcussch::MainOpeners;

class OpenersTest : public MainScreenTest {
 protected:
  OpenersTest() {
    AddRows(CustomerFile(), "Customers", {"AcctNum", "LastName"}, {{11, "Hale"}});
    opened.clear();
  }
  ~OpenersTest() override { orcussch::ConnectScreens(); }

  static void Fill() {
    MainOpeners& openers = orcussch::gMainOpeners;
    openers.print = [](frmCustMain&) { opened.emplace_back("print"); };
    openers.preview = [](frmCustMain&) { opened.emplace_back("preview"); };
    openers.queries = [](frmCustMain&) { opened.emplace_back("queries"); };
    openers.reports = [](frmCustMain&) { opened.emplace_back("reports"); };
    openers.statistics = [](frmCustMain&) { opened.emplace_back("statistics"); };
    openers.mapCustomer = [](frmCustMain&) { opened.emplace_back("one on the map"); };
    openers.mapAll = [](frmCustMain&) { opened.emplace_back("all on the map"); };
    openers.relationships = [](frmCustMain&) { opened.emplace_back("relationships"); };
    openers.taxSetup = [](frmCustMain&) { opened.emplace_back("taxes"); };
    openers.creditCardSetup = [](frmCustMain&) { opened.emplace_back("credit cards"); };
    openers.phoneSetup = [](frmCustMain&) { opened.emplace_back("phones"); };
    openers.mapCodes = [](frmCustMain& owner) { opened.push_back("map codes " + owner.Find("cmdMapCode")->Tag()); };
    openers.userOptions = [](frmCustMain&) { opened.emplace_back("options"); };
  }

  static std::vector<std::string> opened;
};
std::vector<std::string> OpenersTest::opened;

TEST_F(OpenersTest, EachItemOpensItsScreen) {
  Fill();
  Serve([&](frmCustMain& screen) {
    for (platform::MenuItem* item : {&screen.miPrint, &screen.miPreview, &screen.miQueries, &screen.miStatistics, &screen.miReports,
                                     &screen.miMapCustomer, &screen.miMapAll, &screen.miRelationships, &screen.miSetupTaxes,
                                     &screen.miSetupCreditCards, &screen.miSetupPhones, &screen.miSetupMapCodes, &screen.mnuUserStartup})
      item->UserClick();
    EXPECT_THAT(opened, testing::ElementsAre("print", "preview", "queries", "statistics", "reports", "one on the map", "all on the map",
                                             "relationships", "taxes", "credit cards", "phones", "map codes ", "options"));
    opened.clear();
    for (const char* key : {"tb_Print", "tb_Preview", "tb_Queries", "tb_Statistics", "tb_Reports", "tb_MapCustomer", "tb_MapAll",
                            "tb_TaxSetup", "tb_CreditCardSetup", "tb_PhoneSetup"})
      screen.Toolbar1.Button(key).UserClick();
    EXPECT_THAT(opened, testing::ElementsAre("print", "preview", "queries", "statistics", "reports", "one on the map", "all on the map",
                                             "taxes", "credit cards", "phones"));
    opened.clear();
    screen.miEditRec.UserClick();
    ButtonOf(screen, "cmdMapCode").UserClick();
    EXPECT_THAT(opened, testing::ElementsAre("map codes Select"));
    EXPECT_TRUE(ButtonOf(screen, "cmdMapCode").Enabled());
  });
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

/// A statistics card needs a customer; the menu does not ask.
TEST_F(OpenersTest, TheStatisticsKeyNeedsARecord) {
  Fill();
  Serve([&](frmCustMain& screen) {
    screen.data[0].Recordset()->MoveLast();
    screen.data[0].Recordset()->MoveNext();
    screen.Toolbar1.Button("tb_Statistics").UserClick();
    EXPECT_THAT(opened, testing::IsEmpty());
    screen.miStatistics.UserClick();
    EXPECT_THAT(opened, testing::ElementsAre("statistics"));
  });
}

TEST_F(OpenersTest, ACommandWithoutItsScreenDoesNothing) {
  orcussch::gMainOpeners = {};
  Serve([&](frmCustMain& screen) {
    for (const char* key : {"tb_Print", "tb_Statistics", "tb_MapAll", "tb_Reports"}) screen.Toolbar1.Button(key).UserClick();
    for (platform::MenuItem* item : {&screen.miMapAll, &screen.miReports, &screen.miRelationships}) item->UserClick();
    EXPECT_TRUE(screen.Toolbar1.Enabled());
  });
  EXPECT_EQ(otherScreens, 0);
  EXPECT_THAT(Reports(), testing::IsEmpty());
}

}  // namespace
