#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "suitefiles/company/report_files.h"
#include "unit/apps/suitefiles/program_runner.h"

namespace {

namespace fs = std::filesystem;

std::string Content(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void Write(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

TEST(ReportFiles, EachReportOfTheCatalogueIsDelivered) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder.Path(), "--company", "1"}).status, 0);
  const std::string names = Select(folder / "data/orv1/customer.zdb", "SELECT Name FROM CUReports");
  std::istringstream lines(names);
  int reports = 0;
  for (std::string name; std::getline(lines, name); ++reports) EXPECT_TRUE(Content(folder / name).starts_with("report 1\n")) << name;
  EXPECT_EQ(reports, 25);
  EXPECT_TRUE(Content(folder / "ARHead.Rpt").starts_with("report 1 part\n"));
}

TEST(ReportFiles, ThePinOfTheMapLiesBesideThem) {
  const TemporaryFolder folder;
  suitefiles::PutReportFiles(folder.Path());
  const std::string picture = Content(folder / "pushblue.bmp");
  constexpr int kHeader = 122, kWidth = 40, kHeight = 56;
  ASSERT_EQ(picture.size(), kHeader + 4U * kWidth * kHeight);
  EXPECT_TRUE(picture.starts_with("BM"));
  // Rows stand from the lowest up. The foot is in the middle of the lowest, the corners are clear.
  const auto cover = [&](int column, int row) { return static_cast<unsigned char>(picture[kHeader + 4U * ((kHeight - 1 - row) * kWidth + column) + 3]); };
  EXPECT_EQ(cover(0, 0), 0);
  EXPECT_EQ(cover(0, kHeight - 1), 0);
  EXPECT_EQ(cover(kWidth / 2, kWidth / 2), 255);
  EXPECT_GT(cover(kWidth / 2, kHeight - 3), 0);
  for (int row = 0; row < kHeight; ++row) EXPECT_EQ(cover(5, row), cover(kWidth - 6, row)) << row;
}

TEST(ReportFiles, AChangedOneIsNeverWrittenOver) {
  const TemporaryFolder folder;
  suitefiles::PutReportFiles(folder.Path());
  Write(folder / "ARHead.Rpt", "report 1 part\n# our own head\n");
  fs::remove(folder / "ARCusLst.Rpt");
  const auto again = suitefiles::PutReportFiles(folder.Path());
  EXPECT_EQ(again.added, std::vector<std::string>{"ARCusLst.Rpt"});
  EXPECT_EQ(again.left, std::vector<std::string>{"ARHead.Rpt"});
  EXPECT_TRUE(again.renewed.empty());
  EXPECT_EQ(Content(folder / "ARHead.Rpt"), "report 1 part\n# our own head\n");
}

TEST(ReportFiles, OneThatAnEarlierVersionPutIsRenewed) {
  const TemporaryFolder folder;
  suitefiles::PutReportFiles(folder.Path());
  const std::string today = Content(folder / "ARCusLst.Rpt");
  // As if the version before had delivered another text: its checksum (FNV-1a of "old\n") stands in the record.
  Write(folder / "ARCusLst.Rpt", "old\n");
  std::string record = Content(folder / "reports.delivered");
  const auto place = record.find("ARCusLst.Rpt");
  ASSERT_NE(place, std::string::npos);
  Write(folder / "reports.delivered", record.replace(place - 17, 16, "19239db4754a52b4"));
  const auto again = suitefiles::PutReportFiles(folder.Path());
  EXPECT_EQ(again.renewed, std::vector<std::string>{"ARCusLst.Rpt"});
  EXPECT_EQ(Content(folder / "ARCusLst.Rpt"), today);
}

TEST(ReportFiles, WhatSomebodyElsePutThereStays) {
  const TemporaryFolder folder;
  Write(folder / "ARCusPho.Rpt", "report 1\ntitle \"Ours\"\n");
  EXPECT_EQ(suitefiles::PutReportFiles(folder.Path()).left, std::vector<std::string>{"ARCusPho.Rpt"});
  EXPECT_EQ(Content(folder / "ARCusPho.Rpt"), "report 1\ntitle \"Ours\"\n");
}

TEST(ReportFiles, UpgradePutsWhatIsMissing) {
  const TemporaryFolder folder;
  ASSERT_EQ(RunSuitefiles({"create", folder.Path(), "--company", "1"}).status, 0);
  fs::remove(folder / "ARCusZip.Rpt");
  const auto outcome = RunSuitefiles({"upgrade", folder.Path()});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_NE(outcome.out.find("1 file of the library added.\n"), std::string::npos) << outcome.out;
  EXPECT_TRUE(fs::exists(folder / "ARCusZip.Rpt"));
}

}  // namespace
