#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

#include "support/session_test.h"

namespace orcussch {
namespace {

using testing::HasSubstr;

/// Files that no scenario can make: of a newer version, not writable, locked against everybody.
class BadFilesTest : public SessionTest {
 protected:
  BadFilesTest() { MakeCompany(); }
  ~BadFilesTest() override {
    if (raw_ != nullptr) sqlite3_close(raw_);
  }
  void Open() {
    host_.reset();
    host_ = std::make_unique<CustSearch>(*app);
    host_->UserID(1);
    host_->CompanyID(1);
  }
  /// Another program that knows nothing of the suite works on the file.
  void Raw(const std::string& path, const std::string& statements) {
    if (raw_ == nullptr) {
      ASSERT_EQ(sqlite3_open_v2(path.c_str(), &raw_, SQLITE_OPEN_READWRITE, nullptr), SQLITE_OK);
    }
    ASSERT_EQ(sqlite3_exec(raw_, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(raw_);
  }
  void RawClose() {
    sqlite3_close(raw_);
    raw_ = nullptr;
  }
  std::string Company(const std::string& file) const { return folder / ("data/orv1/" + file); }

  std::unique_ptr<CustSearch> host_;

 private:
  sqlite3* raw_ = nullptr;
};

TEST_F(BadFilesTest, AFileOfANewerVersionSaysSo) {
  Raw(Company("customer.zdb"), "UPDATE \"~info\" SET value = '99' WHERE key = 'format'");
  RawClose();
  Open();
  ASSERT_EQ(log->records.size(), 2U);
  EXPECT_EQ(log->records[0].module, "modCustSch.OpenFiles");
  EXPECT_EQ(log->records[0].number, 3343);
  EXPECT_THAT(log->records[0].description, HasSubstr("Unrecognized database format '" + Company("customer.zdb") + "'."));
  EXPECT_THAT(log->records[0].description, HasSubstr("newer version"));
  EXPECT_EQ(log->records[1].number, 91);
}

TEST_F(BadFilesTest, AFileThatSomebodyKeepsForHimselfIsWaitedForTwoSeconds) {
  Raw(Company("customer.zdb"), "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; DELETE FROM Terms");
  const auto begun = std::chrono::steady_clock::now();
  Open();
  const auto waited = std::chrono::steady_clock::now() - begun;
  ASSERT_EQ(log->records.size(), 2U);
  EXPECT_EQ(log->records[0].module, "modCustSch.OpenFiles");
  EXPECT_EQ(log->records[0].number, 3045);
  EXPECT_EQ(log->records[0].description, "Couldn't use '" + Company("customer.zdb") + "'; file already in use.");
  EXPECT_GE(waited, std::chrono::milliseconds(1900));
  EXPECT_LE(waited, std::chrono::seconds(4));
  // When he lets it go the session opens.
  RawClose();
  log->records.clear();
  Open();
  EXPECT_TRUE(log->records.empty());
}

/// Takes the rights to write away from everybody, and those of the superuser from this process.
class ReadOnlyFiles {
 public:
  explicit ReadOnlyFiles(const std::string& folder) : folder_(folder) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_))
      ::chmod(entry.path().c_str(), entry.is_directory() ? 0555 : 0444);
    ::chmod(folder_.c_str(), 0555);
    if (::geteuid() == 0) root_ = ::seteuid(65534) == 0;
  }
  ~ReadOnlyFiles() {
    if (root_ && ::seteuid(0) != 0) std::abort();
    ::chmod(folder_.c_str(), 0755);
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_))
      ::chmod(entry.path().c_str(), entry.is_directory() ? 0755 : 0644);
  }
  ReadOnlyFiles(const ReadOnlyFiles&) = delete;
  ReadOnlyFiles& operator=(const ReadOnlyFiles&) = delete;

 private:
  std::string folder_;
  bool root_ = false;
};

TEST_F(BadFilesTest, FilesThatCanNotBeWrittenOpenForReading) {
  Raw(folder / "dat.zdb", "UPDATE Company SET BeginningMonth = 7");
  RawClose();
  const ReadOnlyFiles closed(folder.Path());
  Open();
  // The company is read; the links and the AR row are what would have to be written.
  EXPECT_EQ(gCompany.BeginningMonth, 7);
  ASSERT_EQ(frontEnd->boxes.size(), 3U);
  EXPECT_THAT(frontEnd->boxes[0].text, HasSubstr("The Departments table in "));
  EXPECT_THAT(frontEnd->boxes[1].text, HasSubstr("The Transactions table in "));
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "CustSearch.CompanyID[PropertyLet] CustomerSearch#4711");
  EXPECT_EQ(log->records[0].number, 3027);
  EXPECT_EQ(log->records[0].description, "Can't update.  Database or object is read-only.");
  EXPECT_EQ(rsCustomers->RecordCount(), 0);
  host_.reset();
}

TEST_F(BadFilesTest, ARepairThatCanNotBeWrittenIsReported) {
  Raw(folder / "dat.zdb", "UPDATE Company SET BeginningMonth = 13; INSERT INTO AR (CompID, PayTerms) VALUES (1, 4)");
  RawClose();
  const ReadOnlyFiles closed(folder.Path());
  Open();
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "modCustSch.GetCompanyRecord");
  EXPECT_EQ(log->records[0].number, 3027);
  EXPECT_TRUE(log->records[0].terminate);
  EXPECT_EQ(gCompany.BeginningMonth, 1);
  EXPECT_EQ(gDefaultTerms, 4) << "the session goes on with what it has";
  host_.reset();
}

TEST_F(BadFilesTest, AFileThatMayNotBeRead) {
  ::chmod(Company("customer.zdb").c_str(), 0);
  const bool root = ::geteuid() == 0;
  if (root) {
    ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
    ASSERT_EQ(::seteuid(65534), 0);
  }
  Open();
  host_.reset();
  if (root) {
    ASSERT_EQ(::seteuid(0), 0);
  }
  ASSERT_GE(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "modCustSch.OpenFiles");
  EXPECT_EQ(log->records[0].number, 3051);
}

TEST_F(BadFilesTest, ADamagedPageIsFoundWhereItIsReadAndTheHostLives) {
  {
    std::fstream file(Company("customer.zdb"), std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(100);
    file << std::string(4000, '\xEE');
  }
  Open();
  ASSERT_GE(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "modCustSch.OpenFiles");
  EXPECT_EQ(log->records[0].number, 3049);
}

/// The same session on a network's file system.
std::unique_ptr<platform::DataEngine> NetworkEngine() {
  engine::EngineOptions options;
  options.onNetwork = [](const std::string& path) { return path.ends_with("customer.zdb"); };
  return engine::MakeEngine(options);
}

class NetworkTest : public SessionTest {
 protected:
  NetworkTest() : SessionTest(NetworkEngine()) { MakeCompany(); }
};

TEST_F(NetworkTest, AFileOnANetworkIsRefusedWithAWayOut) {
  CustSearch host(*app);
  host.UserID(1);
  host.CompanyID(1);
  ASSERT_EQ(log->records.size(), 2U);
  EXPECT_EQ(log->records[0].module, "modCustSch.OpenFiles");
  EXPECT_EQ(log->records[0].number, 3043);
  EXPECT_THAT(log->records[0].description, HasSubstr("server store"));
}

}  // namespace
}  // namespace orcussch
