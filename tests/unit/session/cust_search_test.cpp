#include "maintenance/frmCustMain.h"
#include "session/openers.h"
#include "support/session_test.h"

namespace orcussch {
namespace {

using platform::Value;
using testing::ElementsAre;

int NumberOf(const std::function<void()>& act) {
  try {
    act();
  } catch (const platform::Error& error) {
    return error.Number();
  }
  return 0;
}

class CustSearchTest : public SessionTest {};

TEST_F(CustSearchTest, UnknownPropertiesAreAnErrorOfTheCaller) {
  CustSearch host(*app);
  EXPECT_EQ(NumberOf([&] { host.Get("CustomerCountry"); }), 438);
  EXPECT_EQ(NumberOf([&] { host.Let("CustomerCountry", "x"); }), 438);
  EXPECT_FALSE(CustSearch::IsProperty("CustomerCountry"));
  EXPECT_TRUE(CustSearch::IsProperty("CUSTOMERZIP"));
  EXPECT_TRUE(events.all.empty());
}

TEST_F(CustSearchTest, GetsReturnTheirTypes) {
  CustSearch host(*app);
  EXPECT_EQ(host.UserID().Kind(), platform::ValueKind::Long);
  EXPECT_EQ(host.Customer().Kind(), platform::ValueKind::Long);
  EXPECT_EQ(host.NonSelection().Kind(), platform::ValueKind::Boolean);
  EXPECT_EQ(host.BillingStatus().Kind(), platform::ValueKind::Text);
  EXPECT_EQ(host.Company().Kind(), platform::ValueKind::Text);
  EXPECT_TRUE(host.CompanyID().IsEmpty());
  for (const char* text : {"CustomerLastName", "CustomerFirstName", "CustomerTitle", "CustomerAddr1", "CustomerAddr2", "CustomerCity",
                           "CustomerState", "CustomerZip"})
    EXPECT_EQ(host.Get(text).Kind(), platform::ValueKind::Text) << text;
}

TEST_F(CustSearchTest, LetsTakeAnyKindOfValue) {
  CustSearch host(*app);
  host.UserID(Value(12.5));
  EXPECT_EQ(host.UserID(), Value(12));
  host.UserID(Value(true));
  EXPECT_EQ(host.UserID(), Value(-1));
  host.UserID(Value());
  EXPECT_EQ(host.UserID(), Value(0));
  host.NonSelection(Value(2));
  EXPECT_EQ(host.NonSelection(), Value(true));
  host.BillingStatus(Value(7));
  EXPECT_EQ(host.BillingStatus(), Value("7"));
  host.BillingStatus(Value());
  EXPECT_EQ(host.BillingStatus(), Value(""));
  EXPECT_TRUE(events.all.empty());
}

TEST_F(CustSearchTest, ANullIsToldAndChangesNothing) {
  CustSearch host(*app);
  host.UserID(5);
  host.BillingStatus("B");
  for (const char* property : {"UserID", "Customer", "NonSelection", "BillingStatus", "Company", "CustomerCity"}) {
    frontEnd->boxes.clear();
    host.Let(property, platform::Null);
    ASSERT_EQ(frontEnd->boxes.size(), 1U) << property;
    EXPECT_EQ(frontEnd->boxes[0].text, "Invalid use of Null");
  }
  EXPECT_EQ(host.UserID(), Value(5));
  EXPECT_EQ(host.BillingStatus(), Value("B"));
  EXPECT_TRUE(log->records.empty());
}

TEST_F(CustSearchTest, TheCompanyLetReportsUnderItsLiteral) {
  CustSearch host(*app);
  host.CompanyID(platform::Null);
  gWorkspaceName = "CustomerSearch#4711";
  host.CompanyID("x");
  EXPECT_THAT(Reports(), ElementsAre("CustSearch.CompanyID[PropertyLet] ", "CustSearch.CompanyID[PropertyLet] CustomerSearch#4711"));
}

TEST_F(CustSearchTest, ASecondShowUserInsideTheFirstDoesNothing) {
  MakeCompany();
  CustSearch host(*app);
  host.UserID(1);
  host.CompanyID(1);
  EXPECT_FALSE(CustSearch::Running());
  int shown = 0;
  frontEnd->serve = [&](platform::Form& form) {
    ++shown;
    EXPECT_EQ(form.Name(), "frmCustMain");
    EXPECT_TRUE(CustSearch::Running());
    host.ShowUser();
    EXPECT_TRUE(CustSearch::Running());
  };
  host.ShowUser();
  EXPECT_EQ(shown, 1);
  EXPECT_FALSE(CustSearch::Running());
  host.ShowUser();
  EXPECT_EQ(shown, 2);
}

TEST_F(CustSearchTest, ShowUserReadsTheStartupRowAndShowsOneScreen) {
  MakeCompany();
  CustSearch host(*app);
  host.UserID(1);
  host.CompanyID(1);
  host.Let("CustomerZip", "12345");
  frontEnd->serve = [&](platform::Form&) { EXPECT_EQ(host.Get("CustomerZip"), Value("")); };
  gAddPhone = false;
  host.ShowUser();
  EXPECT_TRUE(gAddPhone);
  EXPECT_THAT(events.all, ElementsAre("unloaded frmCustMain"));
  EXPECT_EQ(app->FormCount(), 0);
}

/// The query screen comes first for a user whose start-up row says so, once there is one.
TEST_F(CustSearchTest, AUserCanBeginWithTheQueries) {
  MakeCompany();
  static std::vector<std::string> shown;
  frontEnd->serve = [](platform::Form& form) { shown.push_back(form.Name()); };
  const std::pair<const char*, bool> rows[] = {{"", false}, {"(1, True, True)", false}, {"(1, False, True)", true}};
  for (const auto& [row, first] : rows) {
    CustSearch host(*app);
    host.UserID(1);
    host.CompanyID(1);
    dbCustomer->Execute("DELETE * FROM UserStartup");
    if (*row != 0) dbCustomer->Execute(std::string("INSERT INTO UserStartup (UserNum, StartGrid, AddPhone) VALUES ") + row);
    host.CompanyID(1);
    for (const bool there : {false, true}) {
      ConnectScreens();
      gSessionOpeners.showQueries = there ? [] { shown.push_back("queries"); } : static_cast<void (*)()>(nullptr);
      shown.clear();
      host.ShowUser();
      if (there && first)
        EXPECT_THAT(shown, ElementsAre("queries", "frmCustMain")) << row;
      else
        EXPECT_THAT(shown, ElementsAre("frmCustMain")) << row;
    }
  }
  ConnectScreens();
  EXPECT_TRUE(log->records.empty());
}

TEST_F(CustSearchTest, AnObjectThatGoesWhileAScreenIsUpTakesItAlong) {
  MakeCompany();
  auto host = std::make_unique<CustSearch>(*app);
  host->UserID(1);
  host->CompanyID(1);
  screens::frmCustMain->Caption("loaded, not shown");
  ASSERT_EQ(app->FormCount(), 1);
  host.reset();
  EXPECT_EQ(app->FormCount(), 0);
  EXPECT_TRUE(log->records.empty());
  EXPECT_EQ(app->Engine().WorkspaceCount(), 1);
}

TEST_F(CustSearchTest, AnotherApplicationBeginsANewModule) {
  {
    CustSearch host(*app);
    host.UserID(12);
    host.Company("Acme");
  }
  AttachApplication(nullptr);
  AttachApplication(app.get());
  CustSearch host(*app);
  EXPECT_EQ(host.UserID(), Value(0));
  EXPECT_EQ(host.Company(), Value(std::string(40, ' ')));
  EXPECT_EQ(gTempDir, folder.Path() + "/orvTEMP/") << "Main has run again";
}

}  // namespace
}  // namespace orcussch
