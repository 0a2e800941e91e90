#include "printing/definition/report_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace {

using printing::BandKind;
using printing::ElementKind;
using printing::ReadReportFile;
using printing::ReportDefinition;
using printing::ReportFileError;

const std::string kTable = "report 1\ntable C file \"customer.zdb\"\n";
const std::string kDetail = "band detail height 1\n";

ReportDefinition Read(const std::string& text, const std::map<std::string, std::string>& parts = {}) {
  return ReadReportFile(text, [&](const std::string& name) { return parts.at(name); });
}

/// What is wrong, "" for nothing.
std::string ErrorOf(const std::string& text, const std::map<std::string, std::string>& parts = {}) {
  try {
    Read(text, parts);
  } catch (const ReportFileError& error) {
    return (error.WhichFault() == ReportFileError::Fault::Newer ? "newer " : "") + std::string(error.what());
  }
  return {};
}
/// Line and column alone.
std::string PlaceOf(const std::string& text) {
  const std::string error = ErrorOf(text);
  return error.substr(0, error.find(' '));
}

TEST(ReportFile, ReadsAWholeReport) {
  const ReportDefinition report = Read(R"(report 1
title "Customer Phones"
paper a4 landscape          # sideways
margins 0.5 0.6 0.7 0.8
style head 8 bold color #4a5568
table Customers file "customer.zdb"
table Phones as P file "customer.zdb" left join {P.AcctNum} = {Customers.AcctNum} And {Customers.X} = {P.Y}
formula Caller text Trim({Customers.LastName})
formula CustomerBreak boolean False
select IsNull({Customers.LastName}) = False
group 1 {Customers.AcctNum} descending keep repeat
group 2 {Customers.EntryDate} by month
sort {P.Area}
sort {P.Phone} descending
total Count count {P.Area} when Not IsNull({P.Area}) group 1
total All sum {Customers.Balance}
band page-header height 0.9 suppress PageNumber = 1
  field "Page " & PageNumber at 5.5 0 size 2 0.2 style head right
  line from 0 0.85 to 7.5 0.8 width 0.75 color #4a5568
band group-header 1 height 0.25 split new-page-before {@CustomerBreak}
band detail height 0.18 stripe #f4f6f9 suppress IsNull({P.Area})
  field {P.Phone} at 0.6 0 size 1 0.18 12 italic format "@@@-@@@@" grow column "Phone"
  box at 0 0 size 7.5 0.25 width 0 fill #e2e8f0
  text "a ""b""" at 0 0 size 1 1 center
)");
  EXPECT_EQ(report.title, "Customer Phones");
  EXPECT_NEAR(report.pageWidth, 11.69, 0.01);
  EXPECT_EQ(report.marginRight, 0.7);
  ASSERT_EQ(report.tables.size(), 2u);
  EXPECT_EQ(report.tables[1].name, "Phones");
  EXPECT_EQ(report.tables[1].alias, "P");
  EXPECT_EQ(report.tables[1].join, printing::JoinKind::Left);
  EXPECT_EQ(report.formulas[1].type, printing::FormulaType::Boolean);
  ASSERT_EQ(report.groups.size(), 2u);
  EXPECT_TRUE(report.groups[0].key.descending && report.groups[0].keepTogether && report.groups[0].repeatHeader);
  EXPECT_EQ(report.groups[1].by, printing::GroupBy::Month);
  EXPECT_TRUE(report.sort[1].descending);
  EXPECT_EQ(report.totals[0].group, 1);
  EXPECT_EQ(report.totals[1].group, 0);
  ASSERT_EQ(report.bands.size(), 3u);
  EXPECT_TRUE(report.bands[0].suppress.has_value());
  EXPECT_EQ(report.bands[0].elements[0].style.name, "head");
  EXPECT_EQ(report.bands[0].elements[0].style.points, 8);
  EXPECT_EQ(report.bands[0].elements[0].style.align, printing::Align::Right);
  EXPECT_EQ(report.bands[0].elements[1].width, 7.5);
  EXPECT_NEAR(report.bands[0].elements[1].height, -0.05, 1e-9);
  EXPECT_FALSE(report.bands[1].keepTogether);
  EXPECT_EQ(report.bands[1].group, 1);
  const auto& details = report.bands[2].elements;
  EXPECT_EQ(details[0].format, "@@@-@@@@");
  EXPECT_TRUE(details[0].canGrow && details[0].style.italic);
  EXPECT_EQ(details[0].column, "Phone");
  EXPECT_EQ(details[1].kind, ElementKind::Box);
  EXPECT_EQ(details[1].fill, (printing::Color{0xe2, 0xe8, 0xf0}));
  EXPECT_EQ(details[2].value.constant, platform::Value("a \"b\""));
}

TEST(ReportFile, TellsLineAndColumn) {
  EXPECT_EQ(ErrorOf(""), "1:1: The first line must be: report 1");
  EXPECT_EQ(PlaceOf("title \"x\"\n"), "1:1:");
  EXPECT_EQ(PlaceOf(kTable + "\n# nothing\n  tytle \"x\"\n"), "5:3:");
  EXPECT_EQ(PlaceOf(kTable + "title x"), "3:7:");
  EXPECT_EQ(PlaceOf(kTable + "title \"x\" y"), "3:11:");
  EXPECT_EQ(PlaceOf(kTable + "formula F text Trim({C.Name}"), "3:29:");
  EXPECT_EQ(PlaceOf(kTable + "formula F texts 1"), "3:11:");
  EXPECT_EQ(PlaceOf(kTable + "style s 0.5"), "3:9:");
  EXPECT_EQ(PlaceOf(kTable + "style s color #12345"), "3:15:");
  EXPECT_EQ(PlaceOf(kTable + kDetail + "text \"x\" at 1 size 2 2"), "4:15:");
  EXPECT_EQ(PlaceOf(kTable + kDetail + "field 1 at 0 0 size 1 1 style none"), "4:31:");
  EXPECT_EQ(PlaceOf(kTable + "text \"x\" at 0 0 size 1 1"), "3:1:");
}

TEST(ReportFile, ChecksWhatBelongsTogether) {
  const auto refused = [](const std::string& line) { return !ErrorOf(kTable + line + '\n' + kDetail).empty(); };
  EXPECT_FALSE(refused(""));
  EXPECT_TRUE(refused("table C file \"x\" left join {C.A} = {C.B}"));  // taken
  EXPECT_TRUE(refused("table D file \"x\""));                          // not joined
  EXPECT_TRUE(refused("table D file \"x\" left join {D.A} = {E.B}"));  // not there yet
  EXPECT_TRUE(refused("table D file \"x\" left join {D.A} = {D.B}"));  // to itself
  EXPECT_TRUE(refused("table D file \"x\" left join {D.A} > {C.B}"));  // no look-up
  EXPECT_TRUE(refused("table D file \"x\" left join {D.A} = 5"));
  EXPECT_TRUE(refused("group 2 {C.A}"));
  EXPECT_TRUE(refused("group 1 {C.A} by day"));
  EXPECT_TRUE(refused("group 1 1"));
  EXPECT_TRUE(refused("total T count {C.A} group 1"));
  EXPECT_TRUE(refused("total T median {C.A}"));
  EXPECT_TRUE(refused("total T count {C.A}\ntotal t sum {C.A}"));
  EXPECT_TRUE(refused("formula F text \"\"\nformula f text \"\""));
  EXPECT_TRUE(refused("band group-header 1 height 1"));
  EXPECT_TRUE(refused("band header height 1"));
  EXPECT_TRUE(refused("select True\nselect True"));
  EXPECT_TRUE(refused("margins 5 0 5 0"));
  EXPECT_TRUE(refused("band detail height 1\npaper letter"));
  EXPECT_FALSE(ErrorOf("report 1\n" + kDetail).empty());
  EXPECT_FALSE(ErrorOf(kTable).empty());
  EXPECT_FALSE(ErrorOf("report 1\ntable C file \"x\" left join {C.A} = {C.B}\n" + kDetail).empty());
}

TEST(ReportFile, LabelsMustFitTheSheet) {
  const std::string labels = "labels across 2 down 10 left 0.15625 top 0.5 pitch 4.1875 1 size 4 1\n";
  EXPECT_EQ(ErrorOf(kTable + labels + kDetail), "");
  EXPECT_NE(ErrorOf(kTable + "labels across 3 down 10 left 0.1 top 0.5 pitch 4.1875 1 size 4 1\n" + kDetail), "");
  EXPECT_NE(ErrorOf(kTable + "labels across 2 down 11 left 0.1 top 0.5 pitch 4.1875 1 size 4 1\n" + kDetail), "");
  EXPECT_NE(ErrorOf(kTable + "labels across 2 down 10 left 0.1 top 0.5 pitch 3 1 size 4 1\n" + kDetail), "");
  EXPECT_NE(ErrorOf(kTable + labels + kDetail + "band page-header height 1\n"), "");
}

TEST(ReportFile, NewerFormatsAreToldApart) {
  EXPECT_EQ(ErrorOf("report 2\nwhatever it says\n").substr(0, 6), "newer ");
  EXPECT_EQ(ErrorOf("report 0\n").substr(0, 6), "1:8: T");
  EXPECT_EQ(ErrorOf("report 1.5\n").substr(0, 4), "1:8:");
}

TEST(ReportFile, OddBytesAreRefused) {
  EXPECT_NE(ErrorOf("report 1\n\xff\xfe"), "");
  EXPECT_NE(ErrorOf(std::string("report 1\n\0", 10)), "");
  EXPECT_NE(ErrorOf(std::string(2'000'000, ' ')), "");
  EXPECT_EQ(ErrorOf("\xEF\xBB\xBFreport 1\r\ntable C file \"x\"\r\nband detail height 1\r\n"), "");
}

TEST(ReportFile, PartsGiveStylesFormulasAndBands) {
  const std::string head =
      "report 1 part\nstyle big 20\nformula F text \"\"\nband page-header height 1\n field {@F} at right-2 0 size right 1 style big\n";
  const std::map<std::string, std::string> parts{{"Head", head},
                                                 {"Bad", "report 1 part\n\n title \"x\"\n"},
                                                 {"Whole", kTable + kDetail},
                                                 {"Deep", "report 1 part\nuse \"Head\"\n"},
                                                 {"New", "report 2 part\n"}};
  const ReportDefinition report = Read(kTable + "use \"Head\"\n" + kDetail + " text \"x\" at 0 0 size 1 1 style big\n", parts);
  ASSERT_EQ(report.bands.size(), 2u);
  EXPECT_EQ(report.bands[0].kind, BandKind::PageHeader);
  EXPECT_EQ(report.bands[0].elements[0].x, 5.5);
  EXPECT_EQ(report.bands[0].elements[0].width, 2);
  EXPECT_EQ(report.bands[1].elements[0].style.points, 20);
  EXPECT_EQ(report.formulas.size(), 1u);
  EXPECT_EQ(ErrorOf(kTable + "use \"Bad\"\n", parts).substr(0, 14), "3:1: Bad:3:2: ");
  EXPECT_EQ(ErrorOf(kTable + "use \"Whole\"\n", parts).substr(0, 16), "3:1: Whole:1:1: ");
  EXPECT_EQ(ErrorOf(kTable + "use \"Deep\"\n", parts).substr(0, 15), "3:1: Deep:2:1: ");
  EXPECT_EQ(ErrorOf(kTable + "use \"New\"\n", parts).substr(0, 6), "newer ");
  EXPECT_NE(ErrorOf(head), "");
  EXPECT_NE(ErrorOf(kTable + "use \"Head\"\ntext \"x\" at 0 0 size 1 1\n", parts), "");  // no band of its own
}

TEST(ReportFile, ColumnsMayBeForExportsAlone) {
  const ReportDefinition report = Read(kTable + kDetail + "column \"Account\" {C.AcctNum} format \"0\"\n");
  const auto& column = report.bands[0].elements[0];
  EXPECT_TRUE(column.exportOnly);
  EXPECT_EQ(column.column, "Account");
  EXPECT_EQ(column.format, "0");
}

TEST(ReportFile, ManyLinesAreNoDanger) {
  std::string text = kTable;
  for (int i = 0; i < 3000; ++i) text += "formula F" + std::to_string(i) + " text \"\"\n";
  EXPECT_NE(ErrorOf(text + kDetail).find("too many"), std::string::npos);
}

// The reports that are delivered, each with the parts that it uses.
TEST(ReportFile, TheDeliveredReportsAreSound) {
  const std::filesystem::path folder = std::filesystem::path(ORCUSSCH_TEST_DIR).parent_path() / "data" / "reports";
  const auto textOf = [&](const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  };
  int reports = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string text = textOf(entry.path());
    if (text.starts_with("report 1 part")) continue;
    ++reports;
    try {
      const ReportDefinition report = ReadReportFile(text, [&](const std::string& name) { return textOf(folder / name); });
      EXPECT_FALSE(report.title.empty()) << entry.path();
    } catch (const ReportFileError& error) {
      ADD_FAILURE() << entry.path().filename() << ':' << error.what();
    }
  }
  EXPECT_GE(reports, 22);
}

}  // namespace
