#include <gmock/gmock.h>

#include "printing/layout/alignment_sheet.h"
#include "unit/printing/support/made_up_report.h"

namespace printing_test {
namespace {

using printing::LabelSheet;
using printing::Page;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const LabelSheet kTwoAcross{2, 10, 0.15625, 0.5, 4.1875, 1, 4, 1};
const LabelSheet kThreeAcross{3, 10, 0.1875, 0.5, 2.75, 1, 2.625, 1};
const LabelSheet kFolders{2, 15, 0.53125, 0.5, 4, 0.6667, 3.4375, 0.6667};

ReportDefinition Labels(const LabelSheet& sheet) {
  auto report = Report(
      {BandOf(BandKind::Detail, 0.2, {FieldAt(0.1, 0.05, 10, 0.15, Field("N"))}),
       BandOf(BandKind::Detail, 0.2,
              {TextAt(0.1, 0, 10, 0.15, "a line that is far too long for any label that there ever was on a sheet of paper like that")}),
       BandOf(BandKind::Detail, 0.2, {TextAt(0.1, 0, 10, 0.15, "third")}),
       BandOf(BandKind::Detail, 0.2, {TextAt(0.1, 0, 10, 0.15, "fourth")}),
       BandOf(BandKind::Detail, 0.2, {TextAt(0.1, 0.1, 10, 0.15, "too low")})});
  report.labels = sheet;
  return report;
}

/// That every text stands inside the cell of its label, and which labels stand where.
void CheckSheets(const LabelSheet& sheet, int labels, int first) {
  const auto pages = LaidOut(Labels(sheet), Numbered(labels), first);
  const int cells = sheet.across * sheet.down;
  ASSERT_EQ(pages.size(), static_cast<std::size_t>((labels + first - 1 + cells - 1) / cells));
  int next = 1;
  for (std::size_t page = 0; page < pages.size(); ++page) {
    int cell = page == 0 ? first - 2 : -1;
    for (const auto& item : pages[page].items) {
      const auto& text = std::get<printing::TextItem>(item);
      if (text.text == std::to_string(next)) {
        ++next;
        ++cell;
      }
      const double left = sheet.left + sheet.pitchAcross * (cell % sheet.across);
      const double top = sheet.top + sheet.pitchDown * (cell / sheet.across);
      const EvenFont font;
      EXPECT_GE(text.x, left);
      EXPECT_LE(text.x + font.Width(text.text, text.style) * text.style.points / 72, left + sheet.width + 1e-6) << text.text;
      EXPECT_LE(text.x + text.width, left + sheet.width + 1e-6);
      EXPECT_GE(text.y, top - 1e-6);
      EXPECT_LE(text.y + text.height, top + sheet.height + 1e-6) << text.text;
    }
    EXPECT_LT(cell, cells);
  }
  EXPECT_EQ(next, labels + 1) << "every label is there, in its turn";
}

TEST(Labels, StandInsideTheirCells) {
  for (const LabelSheet& sheet : {kTwoAcross, kThreeAcross, kFolders})
    for (const int labels : {1, 20, 21, 30, 31, 10000}) CheckSheets(sheet, labels, 1);
}

TEST(Labels, BeginAtTheCellThatIsStillToBeHad) {
  for (const int first : {2, 20, 30}) CheckSheets(kFolders, 31, first);
  CheckSheets(kTwoAcross, 1, 20);
  const auto pages = LaidOut(Labels(kTwoAcross), Numbered(1), 41);
  EXPECT_EQ(TextsOf(pages.at(0)).front(), "256 550 1") << "cells behind the sheet's last are counted on the next";
}

TEST(Labels, GoAcrossThenDown) {
  auto report = Labels(kThreeAcross);
  report.bands.resize(1);
  EXPECT_THAT(TextsOf(LaidOut(report, Numbered(4)).at(0)), ElementsAre("288 550 1", "3038 550 2", "5788 550 3", "288 1550 4"));
}

TEST(Labels, CloseUpWhereALineIsSuppressedAndTakeNoCellWhereAllAre) {
  auto report = Report({BandOf(BandKind::Detail, 0.2, {FieldAt(0, 0, 2, 0.15, Field("Name"))}),
                        BandOf(BandKind::Detail, 0.2, {FieldAt(0, 0, 2, 0.15, Field("Town"))})});
  report.labels = kTwoAcross;
  report.bands[0].suppress = IsNull(Field("Name"));
  report.bands[1].suppress = IsNull(Field("Town"));
  MadeUpRows rows({"Name", "Town"}, {{platform::Null, "Ames"}, {platform::Null, platform::Null}, {"Bell", "Cole"}});
  EXPECT_THAT(TextsOf(LaidOut(report, rows).at(0)), ElementsAre("156 500 Ames", "4344 500 Bell", "4344 700 Cole"));
}

TEST(Labels, OfNobodyAreNoSheet) { EXPECT_THAT(LaidOut(Labels(kTwoAcross), Numbered(0)), IsEmpty()); }

TEST(Labels, TheAlignmentSheetFramesEachCell) {
  for (const LabelSheet& sheet : {kTwoAcross, kThreeAcross, kFolders}) {
    const Page page = printing::AlignmentSheet(Labels(sheet));
    std::vector<printing::BoxItem> frames;
    std::vector<std::string> numbers;
    for (const auto& item : page.items) {
      if (const auto* box = std::get_if<printing::BoxItem>(&item)) frames.push_back(*box);
      if (const auto* text = std::get_if<printing::TextItem>(&item)) numbers.push_back(text->text);
    }
    ASSERT_THAT(frames, SizeIs(sheet.across * sheet.down));
    EXPECT_EQ(numbers.size(), frames.size());
    EXPECT_EQ(numbers.back(), std::to_string(frames.size()));
    EXPECT_DOUBLE_EQ(frames[1].x, sheet.left + sheet.pitchAcross);
    EXPECT_DOUBLE_EQ(frames[1].y, sheet.top);
    EXPECT_DOUBLE_EQ(frames.back().x, sheet.left + sheet.pitchAcross * (sheet.across - 1));
    EXPECT_DOUBLE_EQ(frames.back().y, sheet.top + sheet.pitchDown * (sheet.down - 1));
    EXPECT_DOUBLE_EQ(frames.back().width, sheet.width);
    EXPECT_LE(frames.back().y + frames.back().height, page.height) << "on the paper";
  }
}

TEST(Labels, TheAlignmentSheetOfAPageFramesItsMargins) {
  const Page page = printing::AlignmentSheet(Report({BandOf(BandKind::Detail, 0.2, {})}));
  const auto& frame = std::get<printing::BoxItem>(page.items.at(0));
  EXPECT_DOUBLE_EQ(frame.x + frame.width, 8.0);
  EXPECT_DOUBLE_EQ(frame.y + frame.height, 10.5);
}

}  // namespace
}  // namespace printing_test
