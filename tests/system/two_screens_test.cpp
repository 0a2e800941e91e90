#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sstream>

#include "engine/data_file.h"
#include "suite/company_schema.h"
#include "support/temporary_folder.h"
#include "system/child.h"
#include "system/screen_kills/books.h"

/// Two copies of the program at work at the same moment on the same rows, each with a user of its own at the main screen.
namespace system_test {
namespace {

class TwoScreens : public testing::Test {
 protected:
  TwoScreens() {
    ::setenv("HOME", outside_.Path().c_str(), 1);
    Tool({"create", company_.Path(), "--company", "1", "--year", "2026"});
    for (const char* user : {"1", "2"}) Tool({"temp", company_.Path(), "--user", user});
    RunStatement(
        File(),
        "INSERT INTO Customers (LastName, FirstName, Title, Addr1, Addr2, City, State, Zip, Country, Terms, NonBillable, LaborRateType, "
        "SalesRatePer) VALUES ('Hale', '', '', '', '', '', '', '', '', 2, False, 'D', 0)");
    // The first session of a company makes the links and the company's row of receivables.
    const auto first = Start(1, {});
    for (std::string line; first->ReadLine(line);) ADD_FAILURE() << line;
    EXPECT_EQ(first->Wait(), 0);
  }
  std::string File() const { return company_ / "data/orv1/customer.zdb"; }

  void Tool(std::vector<std::string> words) const {
    words.insert(words.begin(), SUITEFILES_PROGRAM);
    Child tool(words);
    for (std::string line; tool.ReadLine(line);) {
    }
    ASSERT_EQ(tool.Wait(), 0) << words[1];
  }

  /// What a user does: a start, the same lines `count` times with "@" for the number, an end.
  struct Work {
    std::string begin;
    std::string each;
    int count = 0;
  };
  std::unique_ptr<Child> Start(int user, const Work& work) const {
    std::ostringstream script;
    script << "allow boxes\nhost UserID " << user << "\nhost CompanyID 1\nhost ShowUser\n" << work.begin;
    for (int i = 1; i <= work.count; ++i) {
      std::string lines = work.each;
      const std::string number = std::to_string(i);
      for (auto at = lines.find('@'); at != std::string::npos; at = lines.find('@', at + number.size())) lines.replace(at, 1, number);
      script << lines;
    }
    script << "close\n";
    const std::string file = outside_.Write("user" + std::to_string(user) + ".scn", script.str());
    return std::make_unique<Child>(std::vector<std::string>{CUSTSEARCH_PROGRAM, "--scenario", file, "--data", company_.Path()});
  }

  /// Runs both users at once; what each one's program printed.
  std::array<std::vector<std::string>, 2> Both(const Work& one, const Work& two) const {
    std::array<std::unique_ptr<Child>, 2> programs{Start(1, one), Start(2, two)};
    std::array<std::vector<std::string>, 2> said;
    for (std::size_t i = 0; i < 2; ++i) {
      for (std::string line; programs[i]->ReadLine(line);) said[i].push_back(line);
      const int status = programs[i]->Wait();
      EXPECT_TRUE(status == 0 || status == 1) << "user " << i + 1 << " ended with " << status;
    }
    EXPECT_THAT(engine::CheckDataFile(File(), suite::TablesOf(suite::DataFile::Customer)), testing::IsEmpty());
    return said;
  }

  TemporaryFolder company_;
  TemporaryFolder outside_;
};

/// A company's first two sessions at the same moment: both find no link, and neither says so.
TEST(FirstStart, OfTwoProgramsAtOnce) {
  const TemporaryFolder home;
  ::setenv("HOME", home.Path().c_str(), 1);
  for (int round = 0; round < 6; ++round) {
    const TemporaryFolder company;
    const auto tool = [](std::vector<std::string> words) {
      words.insert(words.begin(), SUITEFILES_PROGRAM);
      Child program(words);
      for (std::string line; program.ReadLine(line);) {
      }
      ASSERT_EQ(program.Wait(), 0) << words[1];
    };
    tool({"create", company.Path(), "--company", "1"});
    for (const char* user : {"1", "2"}) tool({"temp", company.Path(), "--user", user});
    RunStatement(company / "dat.zdb", "INSERT INTO AR (CompID, PayTerms) VALUES (1, 0)");
    std::vector<std::unique_ptr<Child>> programs;
    for (const char* user : {"1", "2"}) {
      const std::string script = home.Write(std::string("first") + user + ".scn", std::string("host UserID ") + user +
                                                                                      "\nhost CompanyID 1\nexpect no log\nexpect no box\n"
                                                                                      "expect value customer.zdb \"SELECT Count(*) FROM "
                                                                                      "Departments\" 10\n");
      programs.push_back(
          std::make_unique<Child>(std::vector<std::string>{CUSTSEARCH_PROGRAM, "--scenario", script, "--data", company.Path()}));
    }
    for (const auto& program : programs) {
      for (std::string line; program->ReadLine(line);) ADD_FAILURE() << line;
      EXPECT_EQ(program->Wait(), 0);
    }
  }
}

/// The number of a type is computed and stored by two statements: who comes second fails on the key, is told so, and has stored
/// nothing. A save without a report is there.
TEST_F(TwoScreens, TypesAddedAtTheSameMoment) {
  constexpr int kEach = 60;
  const auto work = [](const std::string& name) {
    // The expectation fails, and is printed, where there was no report.
    return Work{"tab SSIndexTab1 5\n",
                "click tb_AddRec\ntype txtCustomerType " + name + "@\nclick tb_SaveRec\nexpect log frmCustMain.RecordAdd 3022\n", kEach};
  };
  const auto said = Both(work("one"), work("two"));
  const Books books = ReadBooks(File());
  std::set<std::string> stored;
  for (const auto& [code, row] : books.tables.at("DataCodes")) stored.insert(row.at("Description"));
  EXPECT_EQ(stored.size(), books.tables.at("DataCodes").size()) << "each save stores one row";
  int reported = 0;
  for (std::size_t user = 0; user < 2; ++user) {
    std::set<std::string> unreported;
    for (const std::string& line : said[user]) {
      ASSERT_THAT(line, testing::HasSubstr("expected log frmCustMain.RecordAdd 3022, was no error report"));
      unreported.insert(line);
    }
    ASSERT_EQ(unreported.size(), said[user].size());
    std::size_t own = 0;
    for (const std::string& name : stored) own += name.starts_with(user == 0 ? "one" : "two") ? 1U : 0U;
    EXPECT_EQ(own, unreported.size()) << "what was not reported is stored, what was reported is not";
    reported += kEach - static_cast<int>(unreported.size());
  }
  RecordProperty("reported", reported);
}

/// Both tick all boxes of one customer: each box once. Both take them away: none is left.
TEST_F(TwoScreens, TheSameBoxesAtTheSameMoment) {
  constexpr int kTypes = 40;
  for (int code = 1; code <= kTypes; ++code) {
    const std::string number = std::to_string(code);
    RunStatement(File(), "INSERT INTO DataCodes (Code, Description) VALUES (" + number + ", 'type " + number + "')");
    RunStatement(File(), "INSERT INTO Keywords (Keyword) VALUES ('word" + number + "')");
  }
  const auto work = [&](const std::string& value) {
    return Work{"tab SSIndexTab1 5\n", "row grid(5) where Code @\ncell grid(5) Assigned " + value + "\n", kTypes};
  };
  Both(work("True"), work("True"));
  EXPECT_EQ(ReadBooks(File()).tables.at("CustCodes").size(), static_cast<std::size_t>(kTypes));
  Both(work("False"), work("False"));
  EXPECT_EQ(ReadBooks(File()).tables.at("CustCodes").size(), 0U);
  const Work words{"tab SSIndexTab1 6\nclick tb_SelectAll\nclick tb_AssignSelected\n", "", 0};
  Both(words, words);
  EXPECT_EQ(ReadBooks(File()).tables.at("Lookups").size(), static_cast<std::size_t>(kTypes));
}

/// One saves the card again and again, the other changes a field that the card does not write: both keep theirs.
TEST_F(TwoScreens, FieldsOfBothAtTheSameMoment) {
  constexpr int kEach = 60;
  const auto said = Both({"", "click tb_EditRec\ntype txtLastName Mine@\nclick tb_SaveRec\nexpect no log\n", kEach},
                         {"", "cell grid(0) Latitude @\nexpect no log\n", kEach});
  EXPECT_THAT(said[0], testing::IsEmpty());
  EXPECT_THAT(said[1], testing::IsEmpty());
  const Row row = ReadBooks(File()).tables.at("Customers").at("1");
  EXPECT_EQ(row.at("LastName"), "Mine60");
  EXPECT_EQ(row.at("Latitude"), "60");
}

/// Both add customers with a first phone each: every one is there with a number of its own, and each default is the customer's
/// own phone.
TEST_F(TwoScreens, CustomersAndPhonesAtTheSameMoment) {
  constexpr int kEach = 30;
  const auto work = [](const std::string& name) {
    return Work{"",
                "tab SSIndexTab1 0\nclick tb_AddRec\ntype txtLastName " + name + "@\ntype txtAddr1 \"" + name +
                    " @\"\npick cboTerms key 2\n" + "click tb_SaveRec\npick cboPhoneTypes Home\ntype txtPhoneComment " + name +
                    "@\nclick tb_SaveRec\nexpect no log\n",
                kEach};
  };
  const auto said = Both(work("one"), work("two"));
  EXPECT_THAT(said[0], testing::IsEmpty());
  EXPECT_THAT(said[1], testing::IsEmpty());
  const Books books = ReadBooks(File());
  EXPECT_EQ(books.tables.at("Customers").size(), 2U * kEach + 1);
  EXPECT_EQ(books.tables.at("Phones").size(), 2U * kEach);
  for (const auto& [acct, customer] : books.tables.at("Customers")) {
    if (customer.at("LastName") == "Hale") continue;
    EXPECT_EQ(customer.at("DefaultBillTo"), acct);
    const auto phone = books.tables.at("Phones").find(customer.at("DefaultPhoneNumber"));
    ASSERT_NE(phone, books.tables.at("Phones").end()) << acct;
    EXPECT_EQ(phone->second.at("AcctNum"), acct);
    EXPECT_EQ(phone->second.at("Comment"), customer.at("LastName"));
  }
}

}  // namespace
}  // namespace system_test
