#pragma once

#include <string>

#include "support/controls.h"
#include "support/faulty_proxy.h"
#include "support/main_screen_test.h"
#include "support/test_server.h"
#include "suitefiles/company/company_maker.h"

/// A company on a server, reached over a line that can fail, with the main screen up.
class ServerFaultsTest : public MainScreenTest {
 protected:
  ServerFaultsTest() : server_(TestServer::Shared()), line(server_.Socket()) {
    ::setenv("PGUSER", "office", 1);
    static int number = 0;
    if (number == 0) MakePattern();
    database_ = "faults" + std::to_string(++number);
    server_.CreateDatabase(database_, "pattern");
    LeadTo(server_.PathOf(database_));
    // The first session writes what every later one finds: the company's row of receivables.
    Serve([](orcussch::frmCustMain&) {});
    LeadTo(line.PathOf(database_));
  }
  ~ServerFaultsTest() override {
    ::setenv("PGUSER", "office", 1);
    app.reset();
    server_.DropDatabase(database_);
  }

  std::string Ask(const std::string& sql) const { return server_.Run(database_, sql); }
  std::string LastNames() const { return Ask("SELECT string_agg(\"LastName\", ',' ORDER BY \"AcctNum\") FROM orv1_customer.\"Customers\""); }
  void LeadTo(const std::string& place) const { folder.Write("orv1.ini", "[Databases]\nDefault Path=" + place + "orv1/\n"); }

  static void Press(orcussch::frmCustMain& screen, const char* key) { dynamic_cast<platform::ToolbarButton&>(*screen.Find(key)).UserClick(); }
  static void Enter(platform::TextBox& edit, const char* text) { edit.UserReplaceAll(text, 0); }
  static void OpenCard(orcussch::frmCustMain& screen, const char* name) {
    Press(screen, "tb_EditRec");
    Enter(EditOf(screen, "txtLastName"), name);
  }

  static void OpenNewPhone(orcussch::frmCustMain& screen) {
    screen.SSIndexTab1.UserClick(orcussch::tab::Phones);
    Press(screen, "tb_AddRec");
    ComboOf(screen, "cboPhoneTypes").UserPick(ComboOf(screen, "cboPhoneTypes").Rows().at(1));
    Enter(EditOf(screen, "txtPhoneComment"), "new");
  }

  /// Every report so far is this one, and has its box.
  void ExpectReports(std::size_t least, int number) {
    EXPECT_GE(log->records.size(), least);
    for (const auto& record : log->records) EXPECT_EQ(record.number, number) << record.module;
    EXPECT_EQ(frontEnd->boxes.size(), log->records.size()) << "one box each";
    log->records.clear();
    frontEnd->boxes.clear();
  }
  /// The save of "Abelson" was told once, and the card keeps what was typed. It may have met the end of the line itself.
  void ExpectOneOfASave(const orcussch::frmCustMain& screen, int number) {
    ASSERT_EQ(log->records.size(), 1U);
    EXPECT_EQ(log->records[0].module, "frmCustMain.RecordAdd");
    constexpr int kLineLost = 3043;
    ExpectReports(1, log->records[0].number == kLineLost ? kLineLost : number);
    EXPECT_EQ(EditOf(screen, "txtLastName").Text(), "Abelson");
  }
  void ExpectNoReport() const {
    for (const auto& record : log->records) ADD_FAILURE() << record.module << ' ' << record.number;
    for (const auto& box : frontEnd->boxes) ADD_FAILURE() << box.text;
  }
  /// The next save is stored, without a word about the fault.
  void ExpectNextSave(orcussch::frmCustMain& screen) {
    OpenCard(screen, "Next");
    Press(screen, "tb_SaveRec");
    ExpectNoReport();
    EXPECT_EQ(LastNames(), "Next,Bell\n");
  }

  TestServer& server_;
  FaultyProxy line;
  std::string database_;

  static void MakeCompanyAt(const std::string& place) {
    suitefiles::MakeCompanyFiles(place + "orv1", 2025);
    suitefiles::CompanyRecord company;
    company.name = "Company 1";
    suitefiles::AddCompanyRow(place + "orv1/dat.zdb", company);
    AddRows(place + "orv1/customer.zdb", "Customers", {"LastName", "Terms", "NonBillable", "DefaultPhoneNumber"},
            {{"Abel", 2, false, 0}, {"Bell", 2, false, 0}});
  }

 private:
  void MakePattern() const {
    server_.CreateDatabase("pattern");
    MakeCompanyAt(server_.PathOf("pattern"));
  }
};
