#include <sys/resource.h>

#include <csignal>

#include "printing/data/report_errors.h"
#include "printing/output/csv_file.h"
#include "printing/output/xlsx_file.h"
#include "unit/printing/output/support.h"

namespace printing_test {
namespace {

using namespace printing;
using platform::Currency;
using platform::Date;
using platform::Null;
using platform::Value;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::vector<DetailColumn> kColumns = {{"Name", "", 2}, {"Amount", "#,##0.00", 1}};

class RowsOut : public OutputTest {
 protected:
  std::string Csv(const std::vector<std::vector<Value>>& rows) {
    CsvFile file(File("out.csv"));
    file.Begin(kColumns);
    for (const auto& row : rows) file.Add(row);
    file.Finish();
    return Content(File("out.csv"));
  }
  /// A part of the workbook of these rows.
  std::string Xlsx(const std::vector<std::vector<Value>>& rows, const std::string& part = "xl/worksheets/sheet1.xml") {
    XlsxFile file(File("out.xlsx"), "A \"title\"");
    file.Begin(kColumns);
    for (const auto& row : rows) file.Add(row);
    file.Finish();
    return Said("unzip -p '" + File("out.xlsx") + "' " + part);
  }
};

TEST_F(RowsOut, CsvHasHeadingsAndTypedCells) {
  EXPECT_EQ(Csv({{"Ames", Currency{12345678900}}, {Null, -0.5}, {true, Date{36526}}, {"x", Date{36526.75}}, {std::int32_t{7}, Value()}}),
            "Name,Amount\r\nAmes,1234567.89\r\n,-0.5\r\nTrue,2000-01-01\r\nx,2000-01-01 18:00:00\r\n7,\r\n");
}

TEST_F(RowsOut, CsvQuotesWhatWouldEndACell) {
  EXPECT_EQ(Csv({{"a,b", "say \"hi\""}, {"two\r\nlines", "caf\xC3\xA9"}}),
            "Name,Amount\r\n\"a,b\",\"say \"\"hi\"\"\"\r\n\"two\r\nlines\",caf\xC3\xA9\r\n");
}

TEST_F(RowsOut, CsvTextsAreNoFormulas) {
  for (const char* text : {"=1+1", "+1", "-1", "@SUM(A1)", "\tx"}) EXPECT_EQ(HarmlessText(text), "'" + std::string(text));
  EXPECT_EQ(HarmlessText("a=b"), "a=b");
  EXPECT_EQ(HarmlessText(""), "");
  EXPECT_EQ(Csv({{"=cmd()", Currency{-10000}}}), "Name,Amount\r\n'=cmd(),-1\r\n") << "an amount below zero is an amount";
}

TEST_F(RowsOut, XlsxHasTypedCells) {
  const std::string sheet = Xlsx({{"=1+1", Currency{12345}}, {Date{36526}, true}, {"x", 2.5}});
  EXPECT_THAT(sheet, HasSubstr("<v>1.2345</v>"));
  EXPECT_THAT(sheet, HasSubstr("<v>36526</v>"));
  EXPECT_THAT(sheet, HasSubstr("t=\"b\"><v>1</v>"));
  EXPECT_THAT(sheet, HasSubstr("t=\"inlineStr\"><is><t>=1+1</t></is>"));
  EXPECT_THAT(sheet, Not(HasSubstr("<f>"))) << "no text is a formula";
  EXPECT_THAT(Said("unzip -p '" + File("out.xlsx") + "' xl/styles.xml"), HasSubstr("m/d/yyyy"));
  EXPECT_THAT(Said("unzip -p '" + File("out.xlsx") + "' docProps/core.xml"), HasSubstr("A \"title\"</dc:title>"));
  EXPECT_THAT(Names(), ElementsAre("out.xlsx"));
  Csv({});
  EXPECT_EQ(std::filesystem::status(File("out.xlsx")).permissions(), std::filesystem::status(File("out.csv")).permissions());
}

TEST_F(RowsOut, XlsxTakesDaysBeforeItsOwnCalendarAndLongTextsAsTexts) {
  const std::string sheet = Xlsx({{Date{2}, 0.0}, {std::string(40000, 'x'), 0.0}});
  EXPECT_THAT(sheet, HasSubstr("<t>1/1/1900</t>"));
  EXPECT_THAT(sheet, HasSubstr(std::string(32767, 'x') + "</t>"));
}

TEST_F(RowsOut, XlsxGoesOnOnAFurtherSheet) {
  XlsxFile file(File("many.xlsx"), "", 3);
  file.Begin({{"N", "", 1}});
  for (int row = 1; row <= 3; ++row) file.Add({std::int32_t{row}});
  file.Finish();
  EXPECT_THAT(Said("unzip -p '" + File("many.xlsx") + "' xl/worksheets/sheet1.xml"), Not(HasSubstr("r=\"A4\"")));
  EXPECT_THAT(Said("unzip -p '" + File("many.xlsx") + "' xl/worksheets/sheet2.xml"),
              testing::AllOf(HasSubstr("<t>N</t>"), HasSubstr("r=\"A2\"><v>3</v>"), Not(HasSubstr("r=\"A3\""))));
}

TEST_F(RowsOut, WhatIsNotFinishedLeavesWhatWasThere) {
  for (const std::string name : {"old.csv", "old.xlsx"}) std::ofstream(File(name)) << "before";
  {
    CsvFile csv(File("old.csv"));
    csv.Begin(kColumns);
    XlsxFile xlsx(File("old.xlsx"), "");
    xlsx.Begin(kColumns);
    xlsx.Add({"x", 1.0});
  }
  EXPECT_THAT(Names(), testing::UnorderedElementsAre("old.csv", "old.xlsx"));
  EXPECT_EQ(Content(File("old.csv")), "before");
  EXPECT_EQ(Content(File("old.xlsx")), "before");
}

TEST_F(RowsOut, FullDiskIsAnErrorAndNoFile) {
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  rlimit low = limit;
  low.rlim_cur = 20000;
  setrlimit(RLIMIT_FSIZE, &low);
  const auto error = [](DetailSink& sink, const std::function<void()>& finish) {
    try {
      sink.Begin(kColumns);
      for (int row = 0; row < 20000; ++row) sink.Add({std::to_string(row * 7919), 1.0 * row});
      finish();
    } catch (const ReportFailure& failure) {
      return failure.Error();
    }
    return ReportError::None;
  };
  {
    CsvFile csv(File("new.csv"));
    EXPECT_EQ(error(csv, [&] { csv.Finish(); }), ReportError::OutputFailed);
    XlsxFile xlsx(File("new.xlsx"), "");
    EXPECT_EQ(error(xlsx, [&] { xlsx.Finish(); }), ReportError::OutputFailed);
  }
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, before);
  EXPECT_THAT(Names(), IsEmpty());
  EXPECT_THROW(CsvFile(File("none/out.csv")), ReportFailure);
  EXPECT_THROW(XlsxFile(File("none/out.xlsx"), ""), ReportFailure);
}

}  // namespace
}  // namespace printing_test
