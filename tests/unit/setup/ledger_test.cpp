#include "setup/tax/ledger.h"

#include "support/main_screen_test.h"

// Whether an account takes taxes, case by case of the ledger's tables.
namespace {

using orcussch::LedgerAccount;
using orcussch::SplitAccount;

class LedgerTest : public MainScreenTest {
 protected:
  LedgerTest() {
    const std::string file = folder / "data/orv1/GL.zdb";
    AddRows(file, "Accounts", {"AccountNumber", "AccountType", "AccountDescription"},
            {{"70000", "L", "Late"}, {"71000", "l", "Small"}, {"72000", platform::Null, "Untyped"}, {"73000", "L", platform::Null}});
    AddRows(file, "GL", {"Year", "Account", "DeptNumber"},
            {{Short(2003), "70000", "000"},
             {Short(2025), "71000", "000"},
             {Short(2025), "72000", "000"},
             {Short(2025), "73000", "000"},
             {Short(2025), "99999", "000"},
             {Short(2025), "22000", "777"}});
    engine = engine::MakeEngine();
    database = engine->OpenControlDatabase(file);
    Open();
  }

  static std::int16_t Short(int number) { return static_cast<std::int16_t>(number); }
  void Open() {
    gl = database->OpenRecordset("GL", platform::RecordsetType::Table);
    accounts = database->OpenRecordset("Accounts", platform::RecordsetType::Table);
    departments = database->OpenRecordset("Departments", platform::RecordsetType::Table);
  }
  bool Valid(const LedgerAccount& account, int year = 2025, const std::string& type = "L") {
    description = "of before";
    return orcussch::ValidGL(gl, accounts, departments, Short(year), account, description, type);
  }

  std::unique_ptr<platform::DataEngine> engine;
  platform::DatabaseRef database;
  platform::RecordsetRef gl, accounts, departments;
  std::string description;
};

TEST_F(LedgerTest, AnAccountWithoutADepartmentIsDescribedAlone) {
  EXPECT_TRUE(Valid({"22000", "000"}));
  EXPECT_EQ(description, "State Sales Tax Payable");
}

TEST_F(LedgerTest, ADepartmentIsAddedBehindAHyphen) {
  EXPECT_TRUE(Valid({"22000", "200"}));
  EXPECT_EQ(description, "State Sales Tax Payable-Heating");
}

TEST_F(LedgerTest, ThePairNeedsARowOfTheYear) {
  EXPECT_FALSE(Valid({"22000", "000"}, 2024));
  EXPECT_EQ(description, "");
  EXPECT_FALSE(Valid({"22300", "200"})) << "the account is not kept by department";
  EXPECT_TRUE(Valid({"70000", "000"}, 2003));
  EXPECT_FALSE(Valid({"70000", "000"}, 2004));
  EXPECT_FALSE(Valid({"70000", "000"}));
}

TEST_F(LedgerTest, ARowOfTheLedgerNeedsItsAccount) {
  EXPECT_FALSE(Valid({"99999", "000"}));
  EXPECT_EQ(description, "");
}

TEST_F(LedgerTest, AnotherTypeIsRefusedWithoutADescription) {
  EXPECT_FALSE(Valid({"40000", "000"}));
  EXPECT_EQ(description, "");
  EXPECT_TRUE(Valid({"40000", "100"}, 2025, "I"));
  EXPECT_EQ(description, "Material Sales-Plumbing");
}

TEST_F(LedgerTest, TypesAreComparedToTheLetter) {
  EXPECT_FALSE(Valid({"71000", "000"}));
  EXPECT_TRUE(Valid({"71000", "000"}, 2025, "l"));
}

TEST_F(LedgerTest, ATypeThatIsNotOneCharacterIsNotTested) {
  EXPECT_TRUE(Valid({"40000", "000"}, 2025, ""));
  EXPECT_EQ(description, "Material Sales");
  EXPECT_TRUE(Valid({"40000", "000"}, 2025, "LL"));
}

/// Nothing can be said to differ from it.
TEST_F(LedgerTest, AnUnknownTypeDiffersFromNone) { EXPECT_TRUE(Valid({"72000", "000"})); }

TEST_F(LedgerTest, AnUnknownDepartmentKeepsTheAccountsDescription) {
  EXPECT_FALSE(Valid({"22000", "777"}));
  EXPECT_EQ(description, "State Sales Tax Payable");
}

TEST_F(LedgerTest, AnAccountWithoutADescriptionIsAnError) {
  try {
    Valid({"73000", "000"});
    FAIL() << "nothing was raised";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 94);
  }
}

TEST_F(LedgerTest, AnEmptyLedgerRefusesEveryAccount) {
  gl->SetIndex("PrimaryKey");
  for (gl->MoveFirst(); gl->HasRows(); gl->MoveFirst()) gl->Delete();
  EXPECT_FALSE(Valid({"22000", "000"}));
  EXPECT_EQ(description, "");
}

TEST(SplitAccount, MissingDigitsAreZerosInFront) {
  const std::pair<const char*, LedgerAccount> cases[] = {{"22000100", {"22000", "100"}},
                                                         {"", {"00000", "000"}},
                                                         {"7", {"00000", "007"}},
                                                         {"22000", {"00022", "000"}},
                                                         {"922000100", {"22000", "100"}}};
  for (const auto& [digits, parts] : cases) {
    EXPECT_EQ(SplitAccount(digits).GLAcct, parts.GLAcct) << digits;
    EXPECT_EQ(SplitAccount(digits).GLDept, parts.GLDept) << digits;
  }
}

}  // namespace
