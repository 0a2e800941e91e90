#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/apps/suitefiles/company_links.h"
#include "unit/apps/suitefiles/program_runner.h"

/// Copies are companies of their own: their links lead to their own files.
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* kDepartment = "SELECT DeptDescription FROM Departments WHERE DeptNumber='100'";

class Links : public testing::Test {
 protected:
  Links() {
    if (RunSuitefiles({"demo", folder / "live", "--company", "1", "--customers", "40"}).status != 0) throw std::runtime_error("no company");
    MakeLinks(folder / "live/data/orv1");
  }
  void RenameDepartment(const std::string& where, const std::string& name) const {
    Execute(folder / (where + "/data/orv1/GL.zdb"), "UPDATE Departments SET DeptDescription='" + name + "' WHERE DeptNumber='100'");
  }
  std::string Department(const std::string& where) const { return Select(folder / (where + "/data/orv1/customer.zdb"), kDepartment); }
  TemporaryFolder folder;
};

TEST_F(Links, ABackupReadsItsOwnFiles) {
  StoreFullPaths(folder / "live/data/orv1");
  ASSERT_EQ(RunSuitefiles({"backup", folder / "live", folder / "copy"}).status, 0);
  RenameDepartment("live", "Live");
  EXPECT_EQ(Department("copy"), "Plumbing\n");
  RenameDepartment("copy", "Practice");
  EXPECT_EQ(Department("live"), "Live\n");
  EXPECT_EQ(Department("copy"), "Practice\n");
  const auto check = RunSuitefiles({"check", folder / "copy"});
  EXPECT_EQ(check.status, 0) << check.out;
}

TEST_F(Links, ACopyThatIsMovedStaysACompany) {
  StoreFullPaths(folder / "live/data/orv1");
  ASSERT_EQ(RunSuitefiles({"backup", folder / "live", folder / "copy"}).status, 0);
  fs::rename(folder / "copy", folder / "practice");
  fs::remove_all(folder / "live");
  EXPECT_EQ(Department("practice"), "Plumbing\n");
  EXPECT_EQ(RunSuitefiles({"check", folder / "practice"}).status, 0);
}

TEST_F(Links, ABackupIsRestoredByABackupOfIt) {
  ASSERT_EQ(RunSuitefiles({"backup", folder / "live", folder / "copy"}).status, 0);
  fs::remove_all(folder / "live");
  ASSERT_EQ(RunSuitefiles({"backup", folder / "copy", folder / "live"}).status, 0);
  RenameDepartment("copy", "Old");
  EXPECT_EQ(Department("live"), "Plumbing\n");
  EXPECT_EQ(LinkOf(folder / "live/data/orv1/customer.zdb", "Transactions"), folder / "live/data/orv1/artrans.zdb");
}

TEST_F(Links, RelinkMakesACompanyOfFilesThatWereCopiedByHand) {
  StoreFullPaths(folder / "live/data/orv1");
  fs::copy(folder / "live", folder / "copy", fs::copy_options::recursive);
  RenameDepartment("live", "Live");
  EXPECT_EQ(Department("copy"), "Live\n") << "as it is before";
  const auto before = RunSuitefiles({"check", folder / "copy"});
  EXPECT_EQ(before.status, 1);
  EXPECT_THAT(before.out, HasSubstr("The link Departments of customer.zdb leads to " + folder / "live/data/orv1/GL.zdb"));

  const auto outcome = RunSuitefiles({"relink", folder / "copy"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, "company 1: the links of " + folder / "copy/data/orv1/customer.zdb lead to its own files.\n");
  EXPECT_EQ(Department("copy"), "Plumbing\n");
  EXPECT_EQ(RunSuitefiles({"check", folder / "copy"}).status, 0);
  EXPECT_EQ(LinkOf(folder / "live/data/orv1/customer.zdb", "Departments"), folder / "live/data/orv1/GL.zdb") << "the other is untouched";
}

TEST_F(Links, RelinkFollowsTheSettings) {
  fs::create_directories(folder / "books");
  fs::rename(folder / "live/data/orv1/GL.zdb", folder / "books/ledger.zdb");
  folder.Write("live/orv1.ini", "[Databases]\nGL.zdb Path=" + folder / "books/ledger.zdb\n");
  ASSERT_EQ(RunSuitefiles({"relink", folder / "live", "--company", "1"}).status, 0);
  EXPECT_EQ(LinkOf(folder / "live/data/orv1/customer.zdb", "Departments"), folder / "books/ledger.zdb");
  EXPECT_EQ(Department("live"), "Plumbing\n");
  EXPECT_EQ(RunSuitefiles({"check", folder / "live"}).status, 0);
}

TEST_F(Links, RelinkSaysWhatItCanNotDo) {
  fs::remove(folder / "live/data/orv1/customer.zdb");
  const auto outcome = RunSuitefiles({"relink", folder / "live"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.err, HasSubstr("company 1 has no " + folder / "live/data/orv1/customer.zdb"));
}

TEST_F(Links, LinksOfOthersLeadIntoTheCopyOrAreTold) {
  ASSERT_EQ(RunSuitefiles({"create", folder / "live", "--company", "2"}).status, 0);
  ASSERT_EQ(RunSuitefiles({"create", folder / "far", "--company", "9"}).status, 0);
  {
    suitefiles::DataAccess data;
    const auto database = data.Open(folder / "live/data/orv2/customer.zdb");
    database->AppendTableDef({"OtherLedger", ";DATABASE=" + folder / "live/data/orv1/GL.zdb", "GL"});
    database->AppendTableDef({"Foreign", ";DATABASE=" + folder / "far/data/orv9/GL.zdb", "GL"});
  }
  const auto outcome = RunSuitefiles({"backup", folder / "live", folder / "copy"});
  ASSERT_EQ(outcome.status, 0);
  const std::string customer = folder / "copy/data/orv2/customer.zdb";
  EXPECT_EQ(LinkOf(customer, "OtherLedger"), folder / "copy/data/orv1/GL.zdb");
  EXPECT_EQ(LinkOf(customer, "Foreign"), folder / "far/data/orv9/GL.zdb");
  EXPECT_THAT(outcome.out, HasSubstr("company 2: the link Foreign leads to " + folder / "far/data/orv9/GL.zdb as before.\n"));
}

// The same folder under the names of two machines.
TEST_F(Links, CheckKnowsAFolderUnderAnotherName) {
  StoreFullPaths(folder / "live/data/orv1");
  fs::create_directory_symlink(folder / "live", folder / "seen");
  const auto check = RunSuitefiles({"check", folder / "seen"});
  EXPECT_EQ(check.status, 0) << check.out;
}

}  // namespace
