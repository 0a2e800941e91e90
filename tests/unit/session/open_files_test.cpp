#include "support/session_test.h"

namespace orcussch {
namespace {

using testing::ElementsAre;

/// What the session asks of the engine, in its order.
using Calls = std::vector<std::string>;

/// What happens elsewhere just before a link is made.
std::function<void(const platform::TableDef&)> beforeLink;

std::string FileOf(std::string_view path) { return std::string(path.substr(path.rfind('/') + 1)); }

class ToldDatabase final : public platform::Database {
 public:
  ToldDatabase(platform::DatabaseRef inner, Calls& calls) : inner_(std::move(inner)), calls_(calls), file_(FileOf(inner_->Name())) {}
  const std::string& Name() const override { return file_; }
  platform::RecordsetRef OpenRecordset(std::string_view source, platform::RecordsetType type) override {
    calls_.push_back("recordset " + std::to_string(static_cast<int>(type)) + " " + file_ + " " + std::string(source));
    return inner_->OpenRecordset(source, type);
  }
  void Execute(std::string_view sql, int options) override { inner_->Execute(sql, options); }
  std::int32_t RecordsAffected() const override { return inner_->RecordsAffected(); }
  platform::TableDef CreateTableDef(std::string_view name) override { return inner_->CreateTableDef(name); }
  int TableDefCount() override { return inner_->TableDefCount(); }
  platform::TableDef TableDefAt(int index) override { return inner_->TableDefAt(index); }
  void AppendTableDef(const platform::TableDef& link) override {
    calls_.push_back("link " + link.Name + "=" + link.SourceTableName + " " + link.Connect.substr(0, 10) + FileOf(link.Connect));
    if (beforeLink) beforeLink(link);
    inner_->AppendTableDef(link);
  }
  int RecordsetCount() override { return inner_->RecordsetCount(); }
  platform::RecordsetRef RecordsetAt(int index) override { return inner_->RecordsetAt(index); }
  void RefreshRecordsets() override { inner_->RefreshRecordsets(); }
  void Close() override { inner_->Close(); }

 private:
  platform::DatabaseRef inner_;
  Calls& calls_;
  std::string file_;
};

class ToldWorkspace final : public platform::Workspace {
 public:
  ToldWorkspace(platform::WorkspaceRef inner, Calls& calls) : inner_(std::move(inner)), name_(inner_->Name()), calls_(calls) {}
  const std::string& Name() const override { return name_; }
  platform::DatabaseRef OpenDatabase(std::string_view path) override {
    calls_.push_back("database " + FileOf(path));
    databases_.push_back(std::make_shared<ToldDatabase>(inner_->OpenDatabase(path), calls_));
    return platform::DatabaseRef(std::shared_ptr<platform::Database>(databases_.back()));
  }
  void BeginTrans() override { inner_->BeginTrans(); }
  void CommitTrans() override { inner_->CommitTrans(); }
  void Rollback() override { inner_->Rollback(); }
  int DatabaseCount() override { return inner_->DatabaseCount(); }
  platform::DatabaseRef DatabaseAt(int index) override { return inner_->DatabaseAt(index); }
  void RefreshDatabases() override { inner_->RefreshDatabases(); }
  void Close() override { inner_->Close(); }
  const platform::WorkspaceRef& Inner() const { return inner_; }

 private:
  platform::WorkspaceRef inner_;
  std::string name_;
  Calls& calls_;
  std::vector<std::shared_ptr<ToldDatabase>> databases_;
};

class ToldEngine final : public platform::DataEngine {
 public:
  explicit ToldEngine(Calls& calls) : calls_(calls), inner_(engine::MakeEngine()) {}
  platform::WorkspaceRef CreateWorkspace(std::string_view name, std::string_view user, std::string_view password, int type) override {
    calls_.push_back("create " + std::string(name) + " " + std::string(user) + " '" + std::string(password) + "' " + std::to_string(type));
    workspaces_.push_back(std::make_shared<ToldWorkspace>(inner_->CreateWorkspace(name, user, password, type), calls_));
    return platform::WorkspaceRef(std::shared_ptr<platform::Workspace>(workspaces_.back()));
  }
  void AppendWorkspace(const platform::WorkspaceRef& workspace) override {
    calls_.push_back("append " + workspace->Name());
    inner_->AppendWorkspace(workspaces_.back()->Inner());
  }
  int WorkspaceCount() override { return inner_->WorkspaceCount(); }
  platform::WorkspaceRef WorkspaceAt(int index) override { return inner_->WorkspaceAt(index); }
  void RefreshWorkspaces() override { inner_->RefreshWorkspaces(); }
  platform::DatabaseRef OpenControlDatabase(std::string_view path) override { return inner_->OpenControlDatabase(path); }
  void OnWait(std::function<void()> servePainting) override { inner_->OnWait(std::move(servePainting)); }

 private:
  Calls& calls_;
  std::unique_ptr<platform::DataEngine> inner_;
  std::vector<std::shared_ptr<ToldWorkspace>> workspaces_;
};

struct HasCalls {
  Calls calls;
};

class OpenFilesTest : protected HasCalls, public SessionTest {
 protected:
  OpenFilesTest() : SessionTest(std::make_unique<ToldEngine>(HasCalls::calls)) { MakeCompany(); }
};

TEST_F(OpenFilesTest, EverythingIsOpenedInItsOrder) {
  CustSearch host(*app);
  host.UserID(1);
  host.CompanyID(1);
  EXPECT_TRUE(log->records.empty());
  EXPECT_THAT(
      calls,
      ElementsAre("create CustomerSearch#4711 Admin '' 2", "append CustomerSearch#4711", "database customer.zdb", "database artrans.zdb",
                  "database dat.zdb", "database GL.zdb", "database orvTemp1.zdb", "recordset 1 customer.zdb Customers",
                  "recordset 1 customer.zdb Lookups", "recordset 1 customer.zdb Phones", "recordset 1 customer.zdb Keywords",
                  "recordset 1 customer.zdb Locations", "recordset 1 customer.zdb TaxGrid", "recordset 1 customer.zdb CustCodes",
                  "recordset 1 customer.zdb DataCodes", "recordset 1 customer.zdb SuperCustomers", "recordset 1 customer.zdb Terms",
                  "recordset 1 customer.zdb Addresses", "recordset 1 customer.zdb CustCreditCards",
                  "recordset 1 customer.zdb CustLaborRates", "recordset 0 customer.zdb Select * From UserStartup Where (UserNum = 1);",
                  "recordset 1 dat.zdb AR", "recordset 1 dat.zdb Company", "link Departments=Departments ;DATABASE=GL.zdb",
                  "link Transactions=Transactions ;DATABASE=artrans.zdb", "recordset 1 dat.zdb Rights"));
}

TEST_F(OpenFilesTest, AnotherProgramMakesTheLinksAtTheSameMoment) {
  const auto other = engine::MakeEngine();
  const auto its = other->OpenControlDatabase(folder / "data/orv1/customer.zdb");
  beforeLink = [&](const platform::TableDef& link) { its->AppendTableDef(link); };
  CustSearch host(*app);
  host.UserID(1);
  host.CompanyID(1);
  beforeLink = nullptr;
  EXPECT_TRUE(frontEnd->boxes.empty()) << frontEnd->boxes[0].text;
  EXPECT_TRUE(log->records.empty());
  EXPECT_EQ(dbCustomer->OpenRecordset("SELECT Count(*) FROM Departments")->Field(0), platform::Value(10));
}

TEST_F(OpenFilesTest, TheSecondOpeningIsAsTheFirstWithoutTheLinks) {
  CustSearch host(*app);
  host.UserID(1);
  host.CompanyID(1);
  const auto first = calls;
  calls.clear();
  host.CompanyID(1);
  EXPECT_EQ(calls.size(), first.size() - 2);
  EXPECT_THAT(calls, testing::Not(testing::Contains(testing::StartsWith("link"))));
  EXPECT_EQ(app->Engine().WorkspaceCount(), 2) << "the first one's workspace is closed, beside the default one";
}

}  // namespace
}  // namespace orcussch
