#include "unit/printing/data/rows_fixture.h"

namespace {

using platform::Currency;
using platform::Null;
using printing::ReportError;
using printing::ReportFailure;

const std::string kCustomers = "table Customers file \"customer.zdb\"\n";
const std::string kNames = kCustomers + "band detail height 1\nfield {Customers.LastName} at 0 0 size 1 1\n";

class ReportRows : public ReportRowsTest {
 protected:
  void SetUp() override {
    AddCustomers({{1, "Smith", "Edina", Currency{1'000'000}},
                  {2, "adams", "Duluth", Currency{-5}},
                  {3, Null, "Edina", Null},
                  {4, "Smithson", Null, Currency{99}},
                  {5, "Brown", "Edina", Currency{0}}});
    Add("customer.zdb", "Phones", {"AcctNum", "Area", "Phone"},
        {{1, "612", "5551234"}, {1, "612", "5559999"}, {2, "651", "5550000"}, {9, "999", "0"}});
  }
};

TEST_F(ReportRows, OnlyTheFieldsThatAreUsedComeInTheirOrder) {
  const auto rows = Open(kNames + "field {customers.city} & {Customers.LASTNAME} at 0 0 size 1 1\n");
  ASSERT_EQ(rows->Fields().size(), 2u);
  EXPECT_EQ(rows->Fields()[0].name, "LastName");
  EXPECT_EQ(rows->Fields()[1].name, "City");
  EXPECT_EQ(rows->Fields()[1].type, printing::ValueType::Text);
  EXPECT_EQ(TextOf(*rows), "Smith|Edina; adams|Duluth; Null|Edina; Smithson|Null; Brown|Edina");
}

TEST_F(ReportRows, SortsByGroupsThenByTheReport) {
  EXPECT_EQ(RowsOf(kNames + "sort {Customers.LastName}\n"), "Null; adams; Brown; Smith; Smithson");
  EXPECT_EQ(RowsOf(kNames + "sort {Customers.LastName} descending\n"), "Smithson; Smith; Brown; adams; Null");
  EXPECT_EQ(RowsOf(kNames + "group 1 {Customers.City}\nsort {Customers.LastName} descending\n"),
            "Null|Smithson; Duluth|adams; Edina|Smith; Edina|Brown; Edina|Null");
}

TEST_F(ReportRows, TheJobsSortFieldsTakeTheReportsPlace) {
  request_.sortFields = {{0, "+{Customers.City}"}, {3, "-{Customers.LastName}"}};
  EXPECT_EQ(RowsOf(kNames + "sort {Customers.LastName}\n"), "Smithson; adams; Smith; Brown; Null");
  request_.sortFields = {{0, "+{@Sort}"}};
  EXPECT_EQ(RowsOf(kNames + "formula Sort text {Customers.LastName}\n"), "Null; adams; Brown; Smith; Smithson");
}

// A formula that a job gives a constant text is equal for all rows.
TEST_F(ReportRows, AConstantSortsNothing) {
  formulas_ = {{0, "Sort0=\"{Customers.City}\""}};
  EXPECT_EQ(RowsOf(kNames + "formula Sort0 text {Customers.LastName}\nsort {@Sort0}\n"), "Smith; adams; Null; Smithson; Brown");
}

TEST_F(ReportRows, JoinsOverFilesAreOneStatement) {
  Add("GL.zdb", "Departments", {"DeptNumber", "DeptDescription"}, {{"010", "Parts"}, {"020", "Labor"}});
  Add("customer.zdb", "CustLaborRates", {"AcctNum", "Dept", "Adjustment"}, {{1, "020", 2.5}, {1, "030", 0.0}, {2, "010", 1.0}});
  const std::string lines = kCustomers +
                            "table CustLaborRates as Rates file \"customer.zdb\" inner join {Rates.AcctNum} = {Customers.AcctNum}\n"
                            "table Departments file \"GL.zdb\" left join {Departments.DeptNumber} = {Rates.Dept}\n"
                            "band detail height 1\n"
                            "field {Customers.LastName} & {Rates.Dept} & {Departments.DeptDescription} at 0 0 size 1 1\n"
                            "sort {Rates.Dept}\n";
  EXPECT_EQ(RowsOf(lines), "adams|010|Parts; Smith|020|Labor; Smith|030|Null");
}

TEST_F(ReportRows, ALeftJoinKeepsRowsWithoutAPartner) {
  const std::string lines = kCustomers +
                            "table Phones file \"customer.zdb\" left join {Phones.AcctNum} = {Customers.AcctNum}\n"
                            "band detail height 1\nfield {Customers.AcctNum} & {Phones.Phone} at 0 0 size 1 1\n";
  EXPECT_EQ(RowsOf(lines), "1|5551234; 1|5559999; 2|5550000; 3|Null; 4|Null; 5|Null");
  EXPECT_EQ(RowsOf(lines + "select IsNull({Phones.Phone})\n"), "3|Null; 4|Null; 5|Null");
  EXPECT_EQ(RowsOf(lines + "select Not ({Phones.Area} = \"612\")\n"), "2|5550000; 3|Null; 4|Null; 5|Null");
}

TEST_F(ReportRows, OneTableMayStandTwice) {
  Add("customer.zdb", "SuperCustomers", {"Primary", "Subordinate"}, {{1, 2}, {1, 5}});
  const std::string lines = kCustomers +
                            "table SuperCustomers file \"customer.zdb\" inner join {SuperCustomers.Primary} = {Customers.AcctNum}\n"
                            "table Customers as Child file \"customer.zdb\" left join {Child.AcctNum} = {SuperCustomers.Subordinate}\n"
                            "sort {Child.LastName} descending\n"
                            "band detail height 1\nfield {Customers.LastName} & {Child.LastName} at 0 0 size 1 1\n";
  EXPECT_EQ(RowsOf(lines), "Smith|Brown; Smith|adams");
}

TEST_F(ReportRows, SelectionsOfReportAndJobBothCount) {
  request_.selection = "{Customers.AcctNum}=1";
  EXPECT_EQ(RowsOf(kNames), "Smith");
  request_.selection = "{Customers.City} = 'Edina' Or {Customers.City} = 'Duluth'";
  EXPECT_EQ(RowsOf(kNames + "select {Customers.AcctNum} > 1\n"), "adams; Null; Brown");
  request_.selection = "Length({Customers.LastName}) > 5 And {Customers.CurrBalance} < 1";
  EXPECT_EQ(RowsOf(kNames), "Smithson");
}

TEST_F(ReportRows, FormulasAreGivenByName) {
  const std::string lines = kNames +
                            "formula Name text \"none\"\nformula Break boolean False\nformula Number number 1\nformula Day date Today\n"
                            "field {@Name} & {@Break} & {@Number} & {@Day} at 0 0 size 1 1\n";
  const auto values = [&](const std::map<int, std::string>& formulas) {
    report_ = Report(lines);
    printing::ApplyFormulas(report_, formulas);
    std::string text;
    for (const auto& formula : report_.formulas) text += platform::CStr(formula.value.constant) + '|';
    return text;
  };
  EXPECT_EQ(values({{0, "Name=\"The \"Old\" Firm\""}, {7, "break=True"}, {3, " Number =-2.5"}, {9, "Day=Date(1999, 1, 31)"}}),
            "The \"Old\" Firm|True|-2.5|1/31/1999|");
  EXPECT_EQ(values({{0, "Name=\"\""}, {1, ""}}).substr(0, 1), "|");
  const auto number = [&](const std::string& text) { return NumberOf([&] { values({{2, text}}); }); };
  EXPECT_EQ(number("Nothing=\"x\""), 301);
  EXPECT_EQ(number("=\"x\""), 301);
  EXPECT_EQ(what_, "formula 2 (): the report has no formula of this name.");
  for (const char* bad : {"Name", "Name=", "Name=x", "Name=\"", "Name=True", "Break=\"True\"", "Break=1", "Break=", "Number=x",
                          "Number=1+1", "Number=\"1\"", "Day=5", "Day={Customers.AcctNum}"})
    EXPECT_EQ(number(bad), 302) << bad;
}

TEST_F(ReportRows, ErrorsHaveTheirNumbers) {
  EXPECT_EQ(ErrorOf(kNames), 0);
  EXPECT_EQ(ErrorOf("table Customers file \"nothing.zdb\"\nband detail height 1\n"), 202);
  EXPECT_NE(what_.find("nothing.zdb"), std::string::npos);
  EXPECT_EQ(ErrorOf("table Customers file \"../x.zdb\"\nband detail height 1\n"), 202);
  EXPECT_EQ(ErrorOf("table Nobody file \"customer.zdb\"\nband detail height 1\n"), 203);
  EXPECT_EQ(ErrorOf(kCustomers + "band detail height 1\nfield {Customers.Nothing} at 0 0 size 1 1\n"), 204);
  EXPECT_EQ(what_, "line 4:7: There is no field {Customers.Nothing}.");
  EXPECT_EQ(ErrorOf(kCustomers + "band detail height 1\nfield {Phones.AcctNum} at 0 0 size 1 1\n"), 204);
  EXPECT_EQ(
      ErrorOf(kCustomers + "table Phones file \"customer.zdb\" left join {Phones.Nothing} = {Customers.AcctNum}\nband detail height 1\n"),
      204);
  EXPECT_EQ(ErrorOf(kNames + "sort {Customers.Nothing}\n"), 204);
  EXPECT_EQ(ErrorOf(kNames + "select {Customers.Nothing} = 1\n"), 106);
  EXPECT_EQ(ErrorOf(kNames + "select {Customers.LastName} = 1\n"), 106);
  EXPECT_EQ(what_.substr(0, 11), "line 5:31: ");
  EXPECT_EQ(ErrorOf(kNames + "sort {Customers.Comments}\n"), 106);  // a memo
  for (const char* bad :
       {"{Customers.Nothing}=1", "{Customers.AcctNum}=", "{Customers.LastName}=1", "5", "{#All} = 1", "{@Nothing}", " "}) {
    request_.selection = bad;
    EXPECT_EQ(ErrorOf(kNames), 303) << bad;
  }
  request_.selection.clear();
  for (const char* bad : {"+", "{Customers.Nothing}", "-{Customers.Comments}", "+1", "+{Customers.City} x", "+{@Nothing}", "+{#All}"}) {
    request_.sortFields = {{0, bad}};
    EXPECT_EQ(ErrorOf(kNames), 304) << bad;
  }
}

TEST_F(ReportRows, OnlyAllowedDataFilesAreRead) {
  request_.dataFiles = {{0, "/etc/passwd"}};
  EXPECT_EQ(ErrorOf(kNames), 201);
  request_.dataFiles = {{0, ""}, {5, "/etc/passwd"}};  // none of the report's tables
  EXPECT_EQ(ErrorOf(kNames), 0);
  folder_.Write("text.zdb", "no data file");
  request_.dataFiles = {{0, folder_ / "text.zdb"}};
  EXPECT_EQ(ErrorOf(kNames), 202);
  request_.dataFiles = {{0, folder_ / "GL.zdb"}};
  EXPECT_EQ(ErrorOf(kNames), 203);
}

TEST_F(ReportRows, ThreeThousandNamesInASelectionAreNoFailure) {
  std::string selection;
  for (int i = 0; i < 3000; ++i) selection += (i == 0 ? "" : " Or ") + ("{Customers.LastName} = 'x" + std::to_string(i) + "'");
  request_.selection = selection + " Or {Customers.AcctNum} = 4";
  EXPECT_EQ(RowsOf(kNames), "Smithson|4");
  request_.selection = "{Customers.LastName} = '" + std::string(200'000, 'x') + "'";
  EXPECT_EQ(ErrorOf(kNames), 0);
}

// Also while the store puts rows in order, or finds none.
TEST_F(ReportRows, AStopEndsTheReading) {
  std::vector<std::vector<platform::Value>> many;
  for (int i = 0; i < 20'000; ++i) many.push_back({100 + i, "x" + std::to_string(i % 7), Null, Null});
  AddCustomers(many);
  std::int64_t seen = 0;
  services_.goOn = [&](std::int64_t rows) {
    seen = rows;
    return rows < 6000;
  };
  EXPECT_EQ(ErrorOf(kNames), 501);
  EXPECT_GE(seen, 6000);
  EXPECT_LT(seen, 12'000);
  services_.goOn = [](std::int64_t) { return false; };
  EXPECT_EQ(ErrorOf(kNames + "sort {Customers.Addr1}\n"), 501);
  request_.selection = "{Customers.Addr1} = 'nowhere'";
  EXPECT_EQ(ErrorOf(kNames + "sort {Customers.AcctNum}\n"), 501);
  services_.goOn = [](std::int64_t) { return true; };
  EXPECT_EQ(RowsOf(kNames + "sort {Customers.AcctNum}\n"), "");
}

TEST_F(ReportRows, CountsWhatCanBeCountedAtOnce) {
  auto rows = Open(kNames);
  EXPECT_EQ(rows->Count(), 5);
  request_.selection = "{Customers.AcctNum} > 2";
  rows = Open(kNames);
  EXPECT_EQ(rows->Count(), -1);
  TextOf(*rows);
  EXPECT_EQ(rows->Count(), 3);
  EXPECT_FALSE(rows->Next());
}

TEST_F(ReportRows, AReportWithoutFieldsHasItsRows) {
  const auto rows = Open(kCustomers + "band detail height 1\ntext \"x\" at 0 0 size 1 1\n");
  int count = 0;
  while (rows->Next()) ++count;
  EXPECT_EQ(count, 5);
}

// Others delete, change and add while the report reads.
TEST_F(ReportRows, AnOpenReportKeepsItsState) {
  const auto rows = Open(kNames + "sort {Customers.AcctNum}\n");
  ASSERT_TRUE(rows->Next());
  Elsewhere("customer.zdb", "DELETE FROM Customers WHERE AcctNum = 2");
  Elsewhere("customer.zdb", "UPDATE Customers SET LastName = 'Changed'");
  Elsewhere("customer.zdb", "INSERT INTO Customers (LastName) VALUES ('New')");
  EXPECT_EQ(TextOf(*rows), "adams; Null; Smithson; Brown");
  EXPECT_EQ(RowsOf(kNames), "Changed; Changed; Changed; Changed; New");
}

TEST_F(ReportRows, RowsOfATemporaryFileAreTakenAtOnce) {
  const std::string text(10'000, 'x');
  Add("temp.zdb", "Customers", {"AcctNum", "LastName", "CurrBalance", "EntryDate", "NonBillable", "Comments"},
      {{1, "\U0001F600\u05d0", Currency{INT64_MIN}, platform::Date{36191.5}, true, text}, {2, Null, Null, Null, Null, Null}});
  const std::string lines =
      "table Customers file \"x\"\nband detail height 1\n"
      "field {Customers.AcctNum} & {Customers.LastName} & {Customers.CurrBalance} & {Customers.EntryDate} & "
      "{Customers.NonBillable} & {Customers.Comments} at 0 0 size 1 1\n";
  request_.dataFiles = {{0, folder_ / "temp.zdb"}};
  const auto rows = Open(lines);
  Elsewhere("temp.zdb", "DELETE FROM Customers");
  EXPECT_EQ(rows->Count(), 2);
  EXPECT_EQ(TextOf(*rows), "1|\U0001F600\u05d0|-922337203685477.5808|1/31/1999 12:00:00 PM|True|" + text + "; 2|Null|Null|Null|Null|Null");
  EXPECT_EQ(RowsOf(lines), "");
}

// The customers of a query, copied to the temporary file, with their departments and rates from the company's own.
TEST_F(ReportRows, TheQuerysCustomersJoinTheCompanysFiles) {
  Add("GL.zdb", "Departments", {"DeptNumber", "DeptDescription"}, {{"020", "Labor"}});
  Add("customer.zdb", "CustLaborRates", {"AcctNum", "Dept", "Adjustment"}, {{1, "020", 2.5}, {2, "020", 1.0}});
  Add("temp.zdb", "Customers", {"AcctNum", "LastName"}, {{2, "adams"}, {3, Null}});
  const std::string lines = kCustomers +
                            "table CustLaborRates file \"customer.zdb\" left join {CustLaborRates.AcctNum} = {Customers.AcctNum}\n"
                            "table Departments file \"GL.zdb\" left join {Departments.DeptNumber} = {CustLaborRates.Dept}\n"
                            "band detail height 1\n"
                            "field {Customers.LastName} & {CustLaborRates.Adjustment} & {Departments.DeptDescription} at 0 0 size 1 1\n";
  request_.dataFiles = {{0, folder_ / "temp.zdb"}};
  const auto rows = Open(lines);
  Elsewhere("temp.zdb", "DELETE FROM Customers");
  EXPECT_EQ(TextOf(*rows), "adams|1|Labor; Null|Null|Null");
}

// As a standby answers: the engine's tests show when.
TEST_F(ReportRows, AServerThatTakesNoRowsOfAFileHasItsNumber) {
  class Standby final : public platform::SnapshotReader {
   public:
    std::optional<platform::TableDefinition> FindTable(std::string_view path, std::string_view table) override {
      return files_->FindTable(path, table);
    }
    std::unique_ptr<platform::RowStream> OpenRows(std::string_view, std::string_view) override {
      throw platform::Error(3027, "It takes none.");
    }
    void OnWait(std::function<bool()> goOn) override { files_->OnWait(std::move(goOn)); }

   private:
    std::unique_ptr<platform::SnapshotReader> files_ = engine::MakeSnapshotReader();
  };
  services_.openReader = [] { return std::make_unique<Standby>(); };
  request_.dataFiles = {{0, folder_ / "temp.zdb"}};
  EXPECT_EQ(ErrorOf(kNames), 207);
  EXPECT_EQ(what_, (folder_ / "temp.zdb") + ": It takes none.");
}

TEST_F(ReportRows, PathsMayHoldAnySigns) {
  std::filesystem::create_directory(folder_ / "it's [odd].dir");
  std::filesystem::copy_file(folder_ / "GL.zdb", folder_ / "it's [odd].dir/G'L].zdb");
  Add("it's [odd].dir/G'L].zdb", "Departments", {"DeptNumber", "DeptDescription"}, {{"020", "Labor"}});
  Add("customer.zdb", "CustLaborRates", {"AcctNum", "Dept", "Adjustment"}, {{1, "020", 2.5}});
  request_.dataFiles = {{1, folder_ / "it's [odd].dir/G'L].zdb"}};
  EXPECT_EQ(RowsOf("table CustLaborRates file \"customer.zdb\"\n"
                   "table Departments file \"GL.zdb\" left join {Departments.DeptNumber} = {CustLaborRates.Dept}\n"
                   "band detail height 1\nfield {Departments.DeptDescription} at 0 0 size 1 1\n"),
            "Labor");
}

}  // namespace
