#include "support/session_test.h"

namespace orcussch {
namespace {

class SqlTest : public SessionTest {
 protected:
  SqlTest() {
    MakeCompany();
    host = std::make_unique<CustSearch>(*app);
    host->UserID(1);
    host->CompanyID(1);
    dbTemp->Execute("INSERT INTO CU_AssignKeywords (Instance, Assign, Keyword) VALUES (1, False, 'boiler')");
    dbTemp->Execute("INSERT INTO CU_AssignKeywords (Instance, Assign, Keyword) VALUES (1, False, 'copper')");
    dbTemp->Execute("INSERT INTO CU_AssignKeywords (Instance, Assign, Keyword) VALUES (2, False, 'boiler')");
  }
  std::int32_t Rows(const std::string& where = "") {
    const auto rows = dbTemp->OpenRecordset("SELECT Count(*) AS N FROM CU_AssignKeywords" + where);
    const auto count = rows->Field(0).As<std::int32_t>();
    rows->Close();
    return count;
  }
  std::unique_ptr<CustSearch> host;
  bool errorFlag = true;
};

constexpr const char* kCopyToTwo =
    "INSERT INTO CU_AssignKeywords (Instance, Assign, Keyword) SELECT 2 AS Instance, True AS Assign, Keyword FROM CU_AssignKeywords "
    "WHERE Instance=1";

TEST_F(SqlTest, AStatementRunsAndClearsTheFlag) {
  ExecuteSQLStmt(dbTemp, "UPDATE CU_AssignKeywords SET Assign=True WHERE Instance=1", true, errorFlag);
  EXPECT_FALSE(errorFlag);
  EXPECT_EQ(Rows(" WHERE Assign=True"), 2);
  EXPECT_TRUE(log->records.empty());
}

TEST_F(SqlTest, WithoutFailOnErrorDuplicatesAreLeftOutInSilence) {
  ExecuteSQLStmt(dbTemp, kCopyToTwo, false, errorFlag);
  EXPECT_FALSE(errorFlag);
  EXPECT_EQ(Rows(" WHERE Instance=2"), 2);
  EXPECT_EQ(Rows(" WHERE Instance=2 AND Assign=True"), 1) << "boiler was there, copper is new";
  EXPECT_TRUE(log->records.empty());
}

TEST_F(SqlTest, WithFailOnErrorNothingStaysAndTheFailureIsReportedOnce) {
  ExecuteSQLStmt(dbTemp, kCopyToTwo, true, errorFlag);
  EXPECT_TRUE(errorFlag);
  EXPECT_EQ(Rows(" WHERE Instance=2"), 1);
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "modCustSch.ExecuteSQLStmt");
  EXPECT_EQ(log->records[0].number, 3022);
}

TEST_F(SqlTest, TheTransactionOfTheDefaultWorkspaceIsEndedAlways) {
  // Five levels can be nested: a bracket that stayed open would show at the sixth.
  for (int i = 0; i < 8; ++i) ExecuteSQLStmt(dbTemp, "Nonsense", false, errorFlag);
  for (int i = 0; i < 8; ++i) ExecuteSQLStmt(dbTemp, "DELETE FROM CU_AssignKeywords WHERE Instance=9", false, errorFlag);
  EXPECT_FALSE(errorFlag);
  EXPECT_EQ(log->records.size(), 8U);
  EXPECT_THAT(Reports(), testing::Each("modCustSch.ExecuteSQLStmt"));
}

TEST_F(SqlTest, AFailureOfTheBracketIsReportedAndTheStatementRunsAllTheSame) {
  const auto workspace = app->Engine().WorkspaceAt(0);
  for (int i = 0; i < 5; ++i) workspace->BeginTrans();
  ExecuteSQLStmt(dbTemp, "DELETE FROM CU_AssignKeywords WHERE Instance=2", true, errorFlag);
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].number, 3003);
  EXPECT_FALSE(errorFlag) << "the flag is cleared after the bracket is opened";
  EXPECT_EQ(Rows(), 2);
  for (int i = 0; i < 4; ++i) workspace->Rollback();
}

TEST_F(SqlTest, ADatabaseThatIsNotOpen) {
  ExecuteSQLStmt({}, "DELETE FROM CU_AssignKeywords", true, errorFlag);
  EXPECT_TRUE(errorFlag);
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].number, 91);
}

TEST_F(SqlTest, ItYieldsBeforeAndAfter) {
  const int before = frontEnd->yields;
  ExecuteSQLStmt(dbTemp, "DELETE FROM CU_AssignKeywords WHERE Instance=2", true, errorFlag);
  EXPECT_EQ(frontEnd->yields - before, 3);
}

TEST_F(SqlTest, ClearORVTempTable) {
  ClearORVTempTable("CU_AssignKeywords", errorFlag);
  EXPECT_FALSE(errorFlag);
  EXPECT_EQ(Rows(), 0);
  ClearORVTempTable("CU_Nothing", errorFlag);
  EXPECT_TRUE(errorFlag);
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "modCustSch.ExecuteSQLStmt");
  EXPECT_EQ(log->records[0].number, 3078);
}

}  // namespace
}  // namespace orcussch
