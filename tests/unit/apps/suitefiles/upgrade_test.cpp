#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "engine/data_file.h"
#include "engine/engine.h"
#include "suite/company_schema.h"
#include "unit/apps/suitefiles/program_runner.h"

/// A company of an older version gets what this one has.
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class Upgrade : public testing::Test {
 protected:
  /// Company 1 as a version made it that did not know Customers.Comments, nor the last table of the customer file.
  Upgrade() {
    if (RunSuitefiles({"create", folder / "live", "--company", "1"}).status != 0) throw std::runtime_error("no company");
    fs::remove(customer_);
    auto tables = suite::TablesOf(suite::DataFile::Customer);
    lostTable_ = tables.back().name;
    tables.pop_back();
    const auto customers = std::find_if(tables.begin(), tables.end(), [](const auto& table) { return table.name == "Customers"; });
    const auto lost = std::erase_if(customers->fields, [](const auto& field) { return field.name == "Comments"; });
    if (lost != 1) throw std::runtime_error("no field Comments");
    engine::CreateDataFile(customer_, tables);
    if (RunSuitefiles({"sql", customer_, "INSERT INTO Customers ( AcctNum, LastName ) VALUES ( 7, 'Reed' )"}).status != 0)
      throw std::runtime_error("no customer");
  }
  TemporaryFolder folder;
  std::string customer_ = folder / "live/data/orv1/customer.zdb";
  std::string lostTable_;
};

TEST_F(Upgrade, TheCompanyIsAsThisVersionMakesIt) {
  ASSERT_EQ(RunSuitefiles({"check", folder / "live"}).status, 1) << "as it is before";
  const auto outcome = RunSuitefiles({"upgrade", folder / "live"});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, customer_ + ": Table Customers has got the field Comments.\n" +                    //
                             customer_ + ": Table " + lostTable_ + " was made.\n" +                         //
                             customer_ + ": As it was it is kept as " + customer_ + ".before-upgrade.\n" +  //
                             "5 files, 1 upgraded.\n");
  EXPECT_EQ(RunSuitefiles({"check", folder / "live"}).status, 0);
  EXPECT_EQ(RunSuitefiles({"sql", customer_, "SELECT LastName, Comments FROM Customers", "--no-header"}).out, "Reed\t\n");
  EXPECT_TRUE(fs::exists(customer_ + ".before-upgrade"));
}

TEST_F(Upgrade, ASecondRunChangesNothing) {
  ASSERT_EQ(RunSuitefiles({"upgrade", folder / "live"}).status, 0);
  const auto outcome = RunSuitefiles({"upgrade", folder / "live"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "5 files, 0 upgraded.\n");
  EXPECT_FALSE(fs::exists(customer_ + ".before-upgrade-2"));
}

TEST_F(Upgrade, AnEarlierCopyIsKept) {
  fs::copy_file(folder / "live/dat.zdb", customer_ + ".before-upgrade");
  EXPECT_THAT(RunSuitefiles({"upgrade", folder / "live"}).out, HasSubstr("kept as " + customer_ + ".before-upgrade-2."));
}

TEST_F(Upgrade, AFileThatIsOpenIsLeftAndTold) {
  const auto engine = engine::MakeEngine();
  const auto open = engine->OpenControlDatabase(customer_);
  const auto outcome = RunSuitefiles({"upgrade", folder / "live"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.out, "5 files, 0 upgraded, 1 left as they were.\n");
  EXPECT_EQ(outcome.err, "suitefiles: " + customer_ + ": Couldn't use '" + customer_ + "'; file already in use. (error 3045)\n");
}

TEST_F(Upgrade, TemporaryFilesToo) {
  fs::create_directories(folder / "live/orvTEMP");
  engine::CreateDataFile(folder / "live/orvTEMP/orvTemp3.zdb", {}, true);
  EXPECT_THAT(RunSuitefiles({"upgrade", folder / "live"}).out, HasSubstr("orvTemp3.zdb: Table CU_AssignTaxes was made.\n"));
  EXPECT_EQ(RunSuitefiles({"check", folder / "live"}).status, 0);
}

}  // namespace
