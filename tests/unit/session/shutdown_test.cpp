#include "support/session_test.h"

namespace orcussch {
namespace {

using testing::ElementsAre;

class ShutdownTest : public SessionTest {
 protected:
  ShutdownTest() { MakeCompany(); }
  void Open() {
    if (!host) host = std::make_unique<CustSearch>(*app);
    host->UserID(1);
    host->CompanyID(1);
  }
  /// A workspace of the host's own in the same engine.
  platform::WorkspaceRef HostWorkspace(const std::string& name) {
    auto workspace = app->Engine().CreateWorkspace(name, "Admin", "", 2);
    app->Engine().AppendWorkspace(workspace);
    return workspace;
  }
  std::unique_ptr<CustSearch> host;
};

TEST_F(ShutdownTest, ANameThatNoWorkspaceBearsDoesNothing) {
  Open();
  EXPECT_TRUE(SafeAppShutdown("CustomerSearch#1"));
  EXPECT_EQ(app->Engine().WorkspaceCount(), 2);
  EXPECT_EQ(rsCustomers->RecordCount(), 0);
  EXPECT_TRUE(SafeAppShutdown(""));
  EXPECT_EQ(app->Engine().WorkspaceCount(), 2);
  EXPECT_TRUE(events.all.empty());
}

TEST_F(ShutdownTest, TheNamedWorkspaceIsClosedWithAllThatIsInIt) {
  Open();
  const auto forgotten = dbCustomer->OpenRecordset("SELECT * FROM Phones");
  EXPECT_GT(dbCustomer->RecordsetCount(), 14);
  EXPECT_TRUE(SafeAppShutdown(" CustomerSearch#4711  ")) << "names are trimmed";
  EXPECT_EQ(app->Engine().WorkspaceCount(), 1);
  EXPECT_EQ(app->Engine().WorkspaceAt(0)->Name(), "#Default Workspace#");
  EXPECT_THROW(forgotten->MoveFirst(), platform::Error);
  EXPECT_THROW(dbCustomer->RecordsetCount(), platform::Error);
  EXPECT_FALSE(dbCustomer.IsNothing());
  EXPECT_TRUE(events.all.empty());
}

TEST_F(ShutdownTest, OtherWorkspacesOfTheHostAreLeftAlone) {
  const auto before = HostWorkspace("Billing");
  const auto database = before->OpenDatabase(folder / "dat.zdb");
  Open();
  const auto after = HostWorkspace("Orders");
  const auto rows = database->OpenRecordset("Company", platform::RecordsetType::Table);
  host.reset();
  EXPECT_EQ(app->Engine().WorkspaceCount(), 3);
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_EQ(after->DatabaseCount(), 0);
  EXPECT_TRUE(events.all.empty());
}

TEST_F(ShutdownTest, TheSecondOpeningLetsGoOfTheFirst) {
  Open();
  const platform::RecordsetRef customers = rsCustomers;
  Open();
  EXPECT_EQ(app->Engine().WorkspaceCount(), 2) << "nothing stops the second opening, and nothing is left of the first";
  try {
    customers->MoveFirst();
    FAIL() << "the first session's recordset is still open";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 3420);
  }
  host.reset();
  EXPECT_EQ(app->Engine().WorkspaceCount(), 1);
  EXPECT_TRUE(events.all.empty());
}

TEST_F(ShutdownTest, WithoutANameAllAreClosed) {
  HostWorkspace("Billing")->OpenDatabase(folder / "dat.zdb");
  Open();
  EXPECT_TRUE(SafeAppShutdown());
  EXPECT_EQ(app->Engine().WorkspaceCount(), 1) << "the default one can't be closed";
  EXPECT_TRUE(events.all.empty());
}

TEST_F(ShutdownTest, APendingEditIsDroppedWithoutAWord) {
  Open();
  dbCustomer->Execute("INSERT INTO Terms (Terms, Message) VALUES (90, 'Ninety')");
  rsTerms->SetIndex("PrimaryKey");
  rsTerms->Seek("=", {90});
  rsTerms->Edit();
  rsTerms->SetField("Message", "changed");
  host.reset();
  EXPECT_TRUE(events.all.empty());
  Open();
  rsTerms->SetIndex("PrimaryKey");
  rsTerms->Seek("=", {90});
  EXPECT_EQ(rsTerms->Field("Message"), platform::Value("Ninety"));
}

TEST_F(ShutdownTest, AfterTheReleaseTheFilesAreFree) {
  Open();
  host.reset();
  std::filesystem::remove_all(folder / "data");
  std::filesystem::remove(folder / "dat.zdb");
  std::filesystem::remove_all(folder / "orvTEMP");
  MakeCompany();
  Open();
  EXPECT_TRUE(events.all.empty());
}

// ---- failures, with an engine that fails on demand

struct Trouble {
  bool closeFails = false;
  int workspaceCloses = 0;
};

class StubbornWorkspace final : public platform::Workspace {
 public:
  StubbornWorkspace(std::string name, Trouble& trouble) : name_(std::move(name)), trouble_(trouble) {}
  const std::string& Name() const override { return name_; }
  platform::DatabaseRef OpenDatabase(std::string_view) override { throw platform::error::FileNotFound(); }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void Rollback() override {}
  int DatabaseCount() override { return 0; }
  platform::DatabaseRef DatabaseAt(int) override { throw platform::error::ItemNotFound(); }
  void RefreshDatabases() override {}
  void Close() override {
    ++trouble_.workspaceCloses;
    if (trouble_.closeFails) throw platform::Error(3043, "Disk or network error.");
  }

 private:
  std::string name_;
  Trouble& trouble_;
};

class StubbornEngine final : public platform::DataEngine {
 public:
  explicit StubbornEngine(Trouble& trouble) : trouble_(trouble) {}
  platform::WorkspaceRef CreateWorkspace(std::string_view name, std::string_view, std::string_view, int) override {
    workspaces_.push_back(std::make_shared<StubbornWorkspace>(std::string(name), trouble_));
    return platform::WorkspaceRef(std::shared_ptr<platform::Workspace>(workspaces_.back()));
  }
  void AppendWorkspace(const platform::WorkspaceRef&) override {}
  int WorkspaceCount() override { return static_cast<int>(workspaces_.size()); }
  platform::WorkspaceRef WorkspaceAt(int index) override {
    return platform::WorkspaceRef(std::shared_ptr<platform::Workspace>(workspaces_.at(static_cast<std::size_t>(index))));
  }
  void RefreshWorkspaces() override {}
  platform::DatabaseRef OpenControlDatabase(std::string_view) override { throw platform::error::FileNotFound(); }
  void OnWait(std::function<void()>) override {}

 private:
  Trouble& trouble_;
  std::vector<std::shared_ptr<StubbornWorkspace>> workspaces_;
};

struct HasTrouble {
  Trouble trouble;
};

class FailingShutdownTest : private HasTrouble, public SessionTest {
 protected:
  FailingShutdownTest() : SessionTest(std::make_unique<StubbornEngine>(HasTrouble::trouble)) {
    app->Engine().CreateWorkspace("One", "", "", 2);
    app->Engine().CreateWorkspace("Two", "", "", 2);
  }
  using HasTrouble::trouble;
};

TEST_F(FailingShutdownTest, AFailureIsReportedAndEndsTheProcedureWithoutItsTrue) {
  trouble.closeFails = true;
  EXPECT_FALSE(SafeAppShutdown());
  EXPECT_THAT(Reports(), ElementsAre("SafeAppShutdown"));
  EXPECT_EQ(log->records[0].number, 3043);
  EXPECT_FALSE(log->records[0].terminate);
  EXPECT_EQ(trouble.workspaceCloses, 1) << "it leaves at once";
}

TEST_F(FailingShutdownTest, NamesChooseWhatIsClosed) {
  EXPECT_TRUE(SafeAppShutdown("Two"));
  EXPECT_EQ(trouble.workspaceCloses, 1);
  EXPECT_TRUE(SafeAppShutdown("two")) << "case counts";
  EXPECT_EQ(trouble.workspaceCloses, 1);
}

TEST_F(FailingShutdownTest, AFailureOfTheReportItselfReachesTheRelease) {
  gWorkspaceName = "Two";
  trouble.closeFails = true;
  bool failed = false;
  frontEnd->onBox = [&failed] {
    if (!std::exchange(failed, true)) throw platform::Error(5, "Invalid procedure call or argument");
  };
  {
    CustSearch host(*app);
    gWorkspaceName = "Two";
  }
  EXPECT_THAT(Reports(), ElementsAre("SafeAppShutdown", "CustSearch.Class_Terminate, bSuccess = False\rWSPACE = Two"));
  EXPECT_EQ(log->records[1].number, 5);
}

TEST_F(FailingShutdownTest, AReleaseNeverEndsTheHost) {
  trouble.closeFails = true;
  frontEnd->onBox = [] { throw platform::Error(5, "Invalid procedure call or argument"); };
  {
    CustSearch host(*app);
    gWorkspaceName = "Two";
  }
  EXPECT_EQ(log->records.size(), 2U);
}

}  // namespace
}  // namespace orcussch
