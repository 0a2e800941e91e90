#include "printing/data/report_folder.h"

#include <sys/stat.h>
#include <unistd.h>

#include "support/temporary_folder.h"
#include "unit/printing/data/rows_fixture.h"

namespace {

using printing::LoadReport;
using printing::ReportFailure;

const std::string kReport = "report 1\ntitle \"x\"\ntable C file \"customer.zdb\"\nband detail height 1\n";

class ReportFolderTest : public testing::Test {
 protected:
  ReportFolderTest() : inside_(folder_ / "suite") {
    folder_.Write("suite/List.Rpt", kReport);
    folder_.Write("suite/deep/List.Rpt", kReport);
    folder_.Write("List2.Rpt", kReport);
  }
  int NumberOf(const std::string& file) {
    try {
      LoadReport({asWritten_, inside_}, file);
    } catch (const ReportFailure& failure) {
      what_ = failure.what();
      return failure.Number();
    }
    return 0;
  }
  TemporaryFolder folder_;
  std::string asWritten_ = "C:\\SUITE";
  std::string inside_;
  std::string what_;
};

TEST_F(ReportFolderTest, FindsReportsInTheFolder) {
  EXPECT_EQ(NumberOf("C:\\SUITE\\List.Rpt"), 0);
  EXPECT_EQ(NumberOf("C:\\SUITE/List.Rpt"), 0);
  EXPECT_EQ(NumberOf("List.Rpt"), 0);
  asWritten_ = inside_ + '/';
  EXPECT_EQ(NumberOf(inside_ + "/List.Rpt"), 0);
}

TEST_F(ReportFolderTest, NamesMatchAsTheyAreStored) { EXPECT_EQ(NumberOf("LIST.RPT"), 101); }

TEST_F(ReportFolderTest, NothingElseIsOpened) {
  for (const std::string& bad :
       {std::string("C:\\SUITE\\..\\List2.Rpt"), std::string("../List2.Rpt"), std::string(".."), std::string("."), std::string(""),
        std::string("C:\\SUITE\\"), std::string("C:\\SUITE"), std::string("D:\\SUITE\\List.Rpt"), std::string("C:List.Rpt"),
        folder_ / "List2.Rpt", inside_ + "/List.Rpt", std::string("deep/List.Rpt"), std::string("C:\\SUITE\\deep\\List.Rpt"),
        std::string("C:\\SUITEX\\List.Rpt"), std::string("List.Rpt\0", 9), std::string("C:\\SUITE\\\\List.Rpt")})
    EXPECT_EQ(NumberOf(bad), 102) << bad;
}

TEST_F(ReportFolderTest, LinksAreRefused) {
  ASSERT_EQ(::symlink((folder_ / "List2.Rpt").c_str(), (inside_ + "/Link.Rpt").c_str()), 0);
  EXPECT_EQ(NumberOf("Link.Rpt"), 102);
  EXPECT_EQ(what_, "Link.Rpt: a report file must not be a link.");
}

TEST_F(ReportFolderTest, OnlyPlainFilesAreRead) {
  EXPECT_EQ(NumberOf("deep"), 103);
  ASSERT_EQ(::mkfifo((inside_ + "/Pipe.Rpt").c_str(), 0600), 0);
  EXPECT_EQ(NumberOf("Pipe.Rpt"), 103);
  folder_.Write("suite/Long.Rpt", kReport + std::string(2'000'000, ' '));
  EXPECT_EQ(NumberOf("Long.Rpt"), 103);
  EXPECT_EQ(NumberOf("Missing.Rpt"), 101);
  EXPECT_EQ(what_, "Missing.Rpt: there is no such report file.");
}

TEST_F(ReportFolderTest, TellsFileLineAndFault) {
  folder_.Write("suite/Bad.Rpt", kReport + "  colour\n");
  EXPECT_EQ(NumberOf("Bad.Rpt"), 105);
  EXPECT_EQ(what_, "Bad.Rpt:5:3: The word colour means nothing here.");
  folder_.Write("suite/New.Rpt", "report 7\n");
  EXPECT_EQ(NumberOf("New.Rpt"), 104);
}

TEST_F(ReportFolderTest, PartsLieInTheSameFolder) {
  folder_.Write("suite/Head.Rpt", "report 1 part\nband page-header height 1\n");
  folder_.Write("suite/A.Rpt", kReport + "use \"Head.Rpt\"\n");
  folder_.Write("suite/B.Rpt", kReport + "use \"../Head.Rpt\"\n");
  folder_.Write("suite/C.Rpt", kReport + "use \"Nothing.Rpt\"\n");
  folder_.Write("suite/D.Rpt", kReport + "use \"D.Rpt\"\n");
  EXPECT_EQ(NumberOf("A.Rpt"), 0);
  EXPECT_EQ(NumberOf("B.Rpt"), 102);
  EXPECT_EQ(NumberOf("C.Rpt"), 101);
  EXPECT_EQ(NumberOf("D.Rpt"), 105);
}

}  // namespace
