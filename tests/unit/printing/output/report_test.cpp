// From a report's file over a company's data to a PDF, as independent readers see it.
#include <gmock/gmock.h>

#include "printing/layout/expression_values.h"
#include "printing/layout/report_layout.h"
#include "printing/output/csv_file.h"
#include "printing/output/pdf_file.h"
#include "unit/printing/data/rows_fixture.h"
#include "unit/printing/output/support.h"

namespace printing_test {
namespace {

using platform::Currency;
using platform::Null;
using printing::DetailRows;
using printing::ExpressionValues;
using printing::FontSet;
using printing::PageSpool;
using printing::ReportLayout;

class ReportOut : public ReportRowsTest {
 protected:
  /// The pages of a report as text, laid out as they are seen.
  std::string PagesOf(const std::string& lines) {
    const auto rows = Open(lines);
    ExpressionValues values(report_, rows->Fields(), services_.text, services_.today, "All customers");
    PageSpool spool;
    ReportLayout layout(report_, values, *rows, fonts_, spool);
    while (layout.Advance()) {
    }
    pages_ = spool.Count();
    WritePdf(spool, folder_ / "out.pdf", report_.title, fonts_, {});
    EXPECT_THAT(Said("qpdf --check " + (folder_ / "out.pdf")), testing::HasSubstr("No syntax or stream encoding errors found"));
    return Said("pdftotext -layout " + (folder_ / "out.pdf") + " - | sed 's/  */ /g;s/^ //;/^$/d'");
  }

  FontSet fonts_;
  std::int64_t pages_ = 0;
};

const char* const kBalances = R"(
title "Balances by City"
style head 8 bold
table Customers file "customer.zdb"
formula CompanyName text "Demo ""Best"" Service"
formula CustomerBreak boolean False
group 1 {Customers.City} keep repeat
sort {Customers.AcctNum}
total City sum {Customers.CurrBalance} group 1
total All sum {Customers.CurrBalance}
total Owing count {Customers.CurrBalance} when {Customers.CurrBalance} > 0
band page-header height 0.6
  field {@CompanyName} at 0 0 size 4 0.2
  field "Page " & PageNumber & " of " & PageCount at 5.5 0 size 2 0.2 right
  field ReportTitle & ", " & Selection & ", " & ToText(Today, "Short Date") at 0 0.25 size 7 0.2 style head
band group-header 1 height 0.3 new-page-before {@CustomerBreak}
  field {Customers.City} at 0 0.05 size 4 0.2 12 bold
band detail height 0.2
  field {Customers.AcctNum} at 0 0 size 0.8 0.2 column "Account"
  field {Customers.LastName} at 1 0 size 3 0.2 column "Name"
  field {Customers.CurrBalance} at 5 0 size 1.5 0.2 right column "Balance"
band group-footer 1 height 0.3
  field "Total " & {Customers.City} at 0 0.05 size 3 0.2 bold
  field {#City} at 5 0.05 size 1.5 0.2 right bold
band report-footer height 0.3
  field ToText({#Owing}, "0") & " owe" at 0 0.05 size 3 0.2
  field {#All} at 5 0.05 size 1.5 0.2 right bold
)";

TEST_F(ReportOut, GroupsTotalsAndPagesAreOnPaper) {
  AddCustomers({{1, "Hale", "Bell", Currency{12345600}},
                {2, "Zo\xC3\xAB", "Ames", Currency{-5000}},
                {3, "Cole", "bell", Currency{100}},
                {4, "Dunn", "Ames", Null}});
  EXPECT_EQ(PagesOf(kBalances),
            "Demo \"Best\" Service Page 1 of 1\nBalances by City, All customers, 2/1/1999\n"
            "Ames\n2 Zo\xC3\xAB -0.50\n4 Dunn\nTotal Ames -0.50\n"
            "Bell\n1 Hale 1,234.56\n3 Cole 0.01\nTotal bell 1,234.57\n2 owe 1,234.07\n\f");
}

TEST_F(ReportOut, TheBreakFormulaPutsEachGroupOnAPageOfItsOwn) {
  AddCustomers({{1, "Hale", "Bell", Currency{10000}}, {2, "Gray", "Ames", Currency{20000}}, {3, "Cole", "Cole", Null}});
  formulas_ = {{0, "CustomerBreak=True"}, {7, "CompanyName=\"The \"Other\" Company\""}};
  const std::string text = PagesOf(kBalances);
  EXPECT_EQ(pages_, 3);
  EXPECT_THAT(text, testing::HasSubstr("The \"Other\" Company Page 2 of 3"));
}

TEST_F(ReportOut, WithoutRowsTheHeadsAndTotalsStand) {
  EXPECT_EQ(PagesOf(kBalances), "Demo \"Best\" Service Page 1 of 1\nBalances by City, All customers, 2/1/1999\n0 owe 0\n\f");
}

TEST_F(ReportOut, TheSameRowsGoIntoATable) {
  AddCustomers({{1, "Hale, \"Al\"", "Bell", Currency{12345600}}, {2, "=Zo\xC3\xAB", "Ames", Currency{-5000}}});
  const auto rows = Open(kBalances);
  ExpressionValues values(report_, rows->Fields(), services_.text, services_.today, "");
  printing::CsvFile file(folder_ / "out.csv");
  DetailRows walk(report_, values, *rows, file);
  while (walk.Advance()) {
  }
  file.Finish();
  EXPECT_EQ(Content(folder_ / "out.csv"), "Account,Name,Balance\r\n2,'=Zo\xC3\xAB,-0.5\r\n1,\"Hale, \"\"Al\"\"\",1234.56\r\n");
}

}  // namespace
}  // namespace printing_test
