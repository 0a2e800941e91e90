#include "setup/accounts/accounts_picker.h"

#include "engine/data_file.h"
#include "platform/values/convert.h"
#include "session/failures.h"
#include "setup/accounts/frmAccounts.h"
#include "support/session_test.h"

// The accounts that a rate's account is chosen from.
namespace {

using orcussch::frmAccounts;
using platform::ChosenAccount;
using platform::Value;

class AccountsPickerTest : public SessionTest {
 protected:
  AccountsPickerTest() { MakeCompany(); }

  std::string LedgerFile() const { return folder / "data/orv1/GL.zdb"; }

  void AddRows(const std::string& table, const std::vector<std::string>& fields, const std::vector<std::vector<Value>>& rows) const {
    const auto writer = engine::OpenBulkWriter(LedgerFile(), table, fields);
    for (const auto& row : rows) writer->Add(row);
    writer->Finish();
  }
  void Execute(const std::string& statement) const {
    const auto engine = engine::MakeEngine();
    const auto workspace = engine->CreateWorkspace("Test", "Admin", "", 2);
    engine->AppendWorkspace(workspace);
    workspace->OpenDatabase(LedgerFile())->Execute(statement, platform::dbFailOnError);
    workspace->Close();
  }

  /// Asks for an account of company 1; `user` is what the user does on the screen, if it comes up.
  ChosenAccount Ask(int year, int kind, const std::function<void(frmAccounts&)>& user, int company = 1) {
    orcussch::CustSearch host(*app);
    host.Let("UserID", 1);
    host.Let("CompanyID", 1);
    shown = false;
    frontEnd->serve = [&](platform::Form& form) {
      shown = true;
      user(dynamic_cast<frmAccounts&>(form));
    };
    const auto picker = orcussch::MakeAccountsPicker();
    const ChosenAccount chosen = picker->Run({"Company 1", 1, company, year, kind, false, false, 0, 0, 0, 0, false});
    frontEnd->serve = nullptr;
    return chosen;
  }
  /// "22000-100" ... as the list shows them.
  static std::vector<std::string> Listed(const frmAccounts& screen) {
    std::vector<std::string> numbers;
    const auto rows = screen.data.Recordset()->Clone();
    if (rows->RecordCount() == 0) return numbers;
    for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext())
      numbers.push_back(platform::CStr(rows->Field("Account")) + "-" + platform::CStr(rows->Field("DeptNumber")));
    return numbers;
  }
  static std::vector<std::string> Typed(frmAccounts& screen, const std::string& text) {
    screen.txtSearch.UserReplaceAll(text, text.size());
    return Listed(screen);
  }

  bool shown = false;
  static constexpr int kLiabilities = 2;
};

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(AccountsPickerTest, ListsTheYearsLiabilityAccountsByDepartment) {
  AddRows("Accounts", {"AccountNumber", "AccountType", "AccountDescription"}, {{"23000", "L", "Nobody's"}, {"24000", "L", "Last year's"}});
  AddRows("GL", {"Year", "Account", "DeptNumber"}, {{std::int16_t{2024}, "24000", "000"}, {std::int16_t{2024}, "22000", "100"}});
  Ask(2025, kLiabilities, [](frmAccounts& screen) {
    EXPECT_EQ(screen.Caption(), "Accounts");
    EXPECT_EQ(screen.lblYear.Caption(), "Liability accounts of accounting year 2025");
    const auto listed = Listed(screen);
    ASSERT_THAT(listed, SizeIs(37));
    EXPECT_EQ(listed[0], "20000-000");
    EXPECT_EQ(listed[1], "21000-000");
    EXPECT_EQ(listed[2], "22000-000");
    EXPECT_EQ(listed[3], "22000-100");
    EXPECT_EQ(listed[36], "22900-000");
    screen.data.Recordset()->FindFirst("Account = '22000' And DeptNumber = '100'");
    EXPECT_EQ(screen.grid.ShownText(1, screen.grid.ColumnValue(1)), "State Sales Tax Payable");
    EXPECT_EQ(screen.grid.ShownText(3, screen.grid.ColumnValue(3)), "Plumbing");
  });
  EXPECT_TRUE(shown);
  Ask(2024, kLiabilities, [](frmAccounts& screen) { EXPECT_THAT(Listed(screen), ElementsAre("22000-100", "24000-000")); });
}

TEST_F(AccountsPickerTest, AnyOtherNumberAsksForAllAccounts) {
  Ask(2025, 0, [](frmAccounts& screen) {
    EXPECT_EQ(screen.lblYear.Caption(), "Accounts of accounting year 2025");
    const auto listed = Listed(screen);
    ASSERT_THAT(listed, SizeIs(22 + 8 * 10));
    EXPECT_EQ(listed[0], "10100-000");
  });
}

TEST_F(AccountsPickerTest, WhatIsTypedNarrowsTheList) {
  Ask(2025, kLiabilities, [](frmAccounts& screen) {
    EXPECT_THAT(Typed(screen, "2"), SizeIs(37));
    EXPECT_THAT(Typed(screen, "21"), ElementsAre("21000-000"));
    EXPECT_THAT(Typed(screen, "22000-3"), ElementsAre("22000-300", "22000-310"));
    EXPECT_THAT(Typed(screen, "22000100"), ElementsAre("22000-100"));
    EXPECT_THAT(Typed(screen, "22-1"), SizeIs(6)) << "departments 100 and 110 of three accounts";
    EXPECT_THAT(Typed(screen, "PAYROLL"), ElementsAre("21000-000")) << "in any case";
    EXPECT_THAT(Typed(screen, "city plumb"), ElementsAre("22200-100")) << "words of account and department";
    EXPECT_THAT(Typed(screen, "plumb 220"), ElementsAre("22000-100"));
    EXPECT_EQ(screen.lblFound.Caption(), "");
    EXPECT_TRUE(screen.Toolbar1.Button("tb_Select").Enabled());
    EXPECT_THAT(Typed(screen, "nothing of the kind"), IsEmpty());
    EXPECT_EQ(screen.lblFound.Caption(), "No account fits.");
    EXPECT_FALSE(screen.Toolbar1.Button("tb_Select").Enabled());
    EXPECT_THAT(Typed(screen, "  "), SizeIs(37));
    EXPECT_EQ(screen.lblFound.Caption(), "");
  });
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(AccountsPickerTest, SignsThatPatternsHaveStandForThemselves) {
  AddRows("Accounts", {"AccountNumber", "AccountType", "AccountDescription"},
          {{"23000", "L", "O'Brien [old] 5* #1?"}, {"23100", "L", "401(k) Payable"}});
  AddRows("GL", {"Year", "Account", "DeptNumber"}, {{std::int16_t{2025}, "23000", "000"}, {std::int16_t{2025}, "23100", "000"}});
  Ask(2025, kLiabilities, [](frmAccounts& screen) {
    for (const char* text : {"o'brien", "[old]", "5*", "#1", "1?", "[", "*"})
      EXPECT_THAT(Typed(screen, text), ElementsAre("23000-000")) << text;
    EXPECT_THAT(Typed(screen, "401"), ElementsAre("23100-000")) << "figures of a description";
    EXPECT_THAT(Typed(screen, "-"), IsEmpty());
    EXPECT_THAT(Typed(screen, "\"'); --"), IsEmpty());
  });
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(AccountsPickerTest, EnterInTheBoxTakesTheFirstThatFits) {
  const ChosenAccount chosen = Ask(2025, kLiabilities, [](frmAccounts& screen) {
    Typed(screen, "county refrig");
    screen.txtSearch.UserKey(13);
    EXPECT_FALSE(screen.Loaded());
  });
  EXPECT_TRUE(chosen.chosen);
  EXPECT_EQ(chosen.account, "22100");
  EXPECT_EQ(chosen.department, "220");
  EXPECT_EQ(chosen.accountText, "County Sales Tax Payable");
  EXPECT_EQ(chosen.departmentText, "Refrigeration");
}

TEST_F(AccountsPickerTest, EnterOrTheKeyTakesTheRowAtHand) {
  const auto second = [](frmAccounts& screen) { screen.grid.UserMove(2); };
  ChosenAccount chosen = Ask(2025, kLiabilities, [&](frmAccounts& screen) {
    second(screen);
    screen.grid.UserEnter(0);
  });
  EXPECT_EQ(chosen.account + chosen.department, "22000000");
  EXPECT_EQ(chosen.departmentText, "") << "department 000 is none";
  chosen = Ask(2025, kLiabilities, [&](frmAccounts& screen) {
    second(screen);
    screen.Toolbar1.Button("tb_Select").UserClick();
  });
  EXPECT_EQ(chosen.account + chosen.department, "22000000");
}

TEST_F(AccountsPickerTest, LeavingChoosesNothing) {
  EXPECT_FALSE(Ask(2025, kLiabilities, [](frmAccounts& screen) { screen.Toolbar1.Button("tb_CancelRec").UserClick(); }).chosen);
  EXPECT_FALSE(Ask(2025, kLiabilities, [](frmAccounts& screen) { screen.UserClose(); }).chosen);
  EXPECT_FALSE(Ask(2025, kLiabilities, [](frmAccounts& screen) {
                 Typed(screen, "nothing of the kind");
                 screen.txtSearch.UserKey(13);
                 screen.grid.UserEnter(0);
                 EXPECT_TRUE(screen.Loaded()) << "there is nothing to take";
               }).chosen);
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(AccountsPickerTest, AnAccountWhoseDepartmentHasGoneIsNotOffered) {
  Execute("DELETE * FROM Departments WHERE DeptNumber = '300'");
  Ask(2025, kLiabilities, [](frmAccounts& screen) {
    EXPECT_THAT(Typed(screen, "22000-3"), ElementsAre("22000-310"));
    EXPECT_THAT(Typed(screen, "22000-000"), ElementsAre("22000-000")) << "000 needs no row";
  });
}

TEST_F(AccountsPickerTest, HeadingsOrderTheList) {
  constexpr int kDescription = 1;
  constexpr int kDepartment = 3;
  Ask(2025, kLiabilities, [](frmAccounts& screen) {
    screen.grid.UserSort(0, true);
    EXPECT_EQ(Listed(screen)[0], "22900-000");
    screen.grid.UserHeadClick(kDescription);
    EXPECT_EQ(Listed(screen)[0], "20000-000");
    EXPECT_EQ(Listed(screen)[1], "22200-000") << "City Sales Tax";
    EXPECT_EQ(Listed(screen)[2], "22200-100");
    Typed(screen, "sales");
    screen.grid.UserSort(kDepartment, false);
    EXPECT_EQ(Listed(screen)[3], "22000-900") << "behind those of no department: Administration";
    EXPECT_EQ(Listed(screen)[4], "22100-900");
    screen.grid.UserHeadClick(2);
    EXPECT_EQ(Listed(screen)[3], "22000-100");
  });
  EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(AccountsPickerTest, AYearWithoutAccountsIsSaid) {
  EXPECT_FALSE(Ask(1999, kLiabilities, [](frmAccounts&) {}).chosen);
  EXPECT_FALSE(shown);
  EXPECT_THAT(Boxes(), ElementsAre("The general ledger has no liability accounts for accounting year 1999."));
  EXPECT_EQ(frontEnd->boxes[0].title, "Accounts");
  EXPECT_EQ(frontEnd->boxes[0].style, platform::box::Information);
  Execute("DELETE * FROM GL");
  EXPECT_FALSE(Ask(2025, 0, [](frmAccounts&) {}).chosen);
  EXPECT_FALSE(shown);
  EXPECT_EQ(frontEnd->boxes[1].text, "The general ledger has no accounts for accounting year 2025.");
  EXPECT_THAT(Reports(), IsEmpty());
}

TEST_F(AccountsPickerTest, ALedgerWithoutItsTablesIsReportedOnce) {
  for (const char* table : {"Departments", "Accounts", "GL"}) {
    engine::DropTable(LedgerFile(), table);
    EXPECT_FALSE(Ask(2025, kLiabilities, [](frmAccounts&) {}).chosen);
    EXPECT_FALSE(shown) << table;
    ASSERT_FALSE(log->records.empty()) << table;
    EXPECT_EQ(log->records.back().module, "frmAccounts.ListAccounts");
    EXPECT_EQ(log->records.back().number, 3078);
    log->records.clear();
  }
}

TEST_F(AccountsPickerTest, ALedgerThatGoesWhileTheListIsUpIsReported) {
  const ChosenAccount chosen = Ask(2025, kLiabilities, [&](frmAccounts& screen) {
    engine::DropTable(LedgerFile(), "Departments");
    screen.txtSearch.UserReplaceAll("22", 2);
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, "frmAccounts.txtSearch_Change");
    EXPECT_TRUE(screen.Loaded());
  });
  EXPECT_FALSE(chosen.chosen);
}

TEST_F(AccountsPickerTest, AMissingFileIsReported) {
  EXPECT_FALSE(Ask(
                   2025, kLiabilities, [](frmAccounts&) {}, 77)
                   .chosen);
  EXPECT_FALSE(shown);
  ASSERT_EQ(log->records.size(), 1U);
  EXPECT_EQ(log->records[0].module, "frmAccounts.ListAccounts");
}

TEST_F(AccountsPickerTest, AnInputThatIsNoNumberRaises) {
  const auto picker = orcussch::MakeAccountsPicker();
  EXPECT_THROW(picker->Run({"Company 1", 1, "one", 2025, 2, false, false, 0, 0, 0, 0, false}), platform::Error);
}

TEST_F(AccountsPickerTest, ThousandsOfAccountsAreListedToTheLast) {
  constexpr int kAccounts = 3000;
  std::vector<std::vector<Value>> accounts;
  std::vector<std::vector<Value>> ledger;
  for (int i = 0; i < kAccounts; ++i) {
    const std::string number = std::to_string(70000 + i);
    accounts.push_back({number, "L", "Liability of job " + std::to_string(i)});
    for (const char* department : {"000", "100", "110", "200", "210", "220", "300", "310", "400", "500"})
      ledger.push_back({std::int16_t{2025}, number, department});
  }
  AddRows("Accounts", {"AccountNumber", "AccountType", "AccountDescription"}, accounts);
  AddRows("GL", {"Year", "Account", "DeptNumber"}, ledger);
  const ChosenAccount chosen = Ask(2025, kLiabilities, [](frmAccounts& screen) {
    screen.grid.UserLast();
    EXPECT_EQ(screen.grid.ColumnValue(0), Value("72999"));
    EXPECT_THAT(Typed(screen, "job 299"), SizeIs(130)) << "299, 1299, 2299 and 2990 to 2999";
    EXPECT_THAT(Typed(screen, "job 2999 drain"), ElementsAre("72999-110"));
    screen.txtSearch.UserKey(13);
  });
  EXPECT_EQ(chosen.account + chosen.department, "72999110");
}

}  // namespace
