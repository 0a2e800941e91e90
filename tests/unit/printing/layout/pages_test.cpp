#include <gmock/gmock.h>

#include "unit/printing/support/made_up_report.h"

namespace printing_test {
namespace {

using printing::Page;
using printing::SystemValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Texts = std::vector<std::string>;

Element N() { return FieldAt(0, 0, 1, 0.2, Field("N")); }
Element Caption(const std::string& text) { return TextAt(0, 0, 3, 0.2, text); }
Element PageOf() {
  return FieldAt(5, 0, 2, 0.2, Joined(Joined(Known(SystemValue::PageNumber), Text(" of ")), Known(SystemValue::PageCount)));
}

TEST(ReportPages, DetailsStandBelowEachOtherInsideTheMargins) {
  const auto pages = LaidOut(Report({BandOf(BandKind::Detail, 0.25, {N()})}), Numbered(3));
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_EQ(pages[0].width, 8.5);
  EXPECT_EQ(pages[0].height, 11);
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("500 500 1", "500 750 2", "500 1000 3"));
}

TEST(ReportPages, APageHasItsHeaderAndFooterAndAsManyDetailsAsFitBetween) {
  const auto report = Report(
      {BandOf(BandKind::PageHeader, 1, {Caption("top")}), BandOf(BandKind::Detail, 2, {N()}), BandOf(BandKind::PageFooter, 1, {PageOf()})});
  const auto pages = LaidOut(report, Numbered(9));
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("500 500 top", "500 1500 1", "500 3500 2", "500 5500 3", "500 7500 4", "5500 9500 1 of \x01"));
  EXPECT_THAT(TextsOf(pages[2]), ElementsAre("500 500 top", "500 1500 9", "5500 9500 3 of \x01"));
}

TEST(ReportPages, OnlyTextsWithTheNumberOfPagesAreMarkedForIt) {
  const auto pages = LaidOut(Report({BandOf(BandKind::PageFooter, 1, {PageOf(), Caption("a\x01")})}), Numbered(0));
  const auto& items = pages.at(0).items;
  EXPECT_TRUE(std::get<printing::TextItem>(items.at(0)).hasPageCount);
  EXPECT_FALSE(std::get<printing::TextItem>(items.at(1)).hasPageCount);
  EXPECT_EQ(std::get<printing::TextItem>(items.at(1)).text, "a ") << "a text of the file can't pass for the mark";
}

TEST(ReportPages, WithoutRowsTheReportsAndThePagesOwnBandsStand) {
  const auto report = Report({BandOf(BandKind::ReportHeader, 1, {Caption("head")}), BandOf(BandKind::PageHeader, 1, {Caption("top")}),
                              BandOf(BandKind::GroupHeader, 1, {Caption("group")}, 1), BandOf(BandKind::Detail, 1, {N()}),
                              BandOf(BandKind::ReportFooter, 1, {Caption("foot")}), BandOf(BandKind::PageFooter, 1, {Caption("end")})});
  const auto pages = LaidOut(report, Numbered(0));
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("500 500 head", "500 1500 top", "500 2500 foot", "500 9500 end"));
}

TEST(ReportPages, NothingButRowsWithoutRowsIsOneEmptyPage) {
  const auto pages = LaidOut(Report({BandOf(BandKind::Detail, 1, {N()})}), Numbered(0));
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_THAT(TextsOf(pages[0]), IsEmpty());
}

TEST(ReportPages, SuppressedBandsTakeNoRoom) {
  auto report = Report({BandOf(BandKind::Detail, 1, {N()})});
  report.bands[0].suppress = Equal(Field("N"), Number(2));
  EXPECT_THAT(TextsOf(LaidOut(report, Numbered(3)).at(0)), ElementsAre("500 500 1", "500 1500 3"));
}

TEST(ReportPages, ANewPageBeforeOrAfterMakesNoEmptyPages) {
  auto before = Report({BandOf(BandKind::Detail, 1, {N()})});
  before.bands[0].newPageBefore = Boolean(true);
  EXPECT_THAT(LaidOut(before, Numbered(3)), SizeIs(3));
  auto after = Report({BandOf(BandKind::Detail, 1, {N()})});
  after.bands[0].newPageAfter = Boolean(true);
  EXPECT_THAT(LaidOut(after, Numbered(3)), SizeIs(3));
  after.bands[0].newPageBefore = Boolean(true);
  EXPECT_THAT(LaidOut(after, Numbered(3)), SizeIs(3)) << "both together are one new page";
}

TEST(ReportPages, AReportHeaderThatEndsItsPageIsACoverWithoutThePagesHeader) {
  auto report = Report({BandOf(BandKind::ReportHeader, 1, {Caption("cover")}), BandOf(BandKind::PageHeader, 1, {Caption("top")}),
                        BandOf(BandKind::Detail, 1, {N()})});
  report.bands[0].newPageAfter = Boolean(true);
  const auto pages = LaidOut(report, Numbered(1));
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(WordsOf(pages[0]), ElementsAre("cover"));
  EXPECT_THAT(WordsOf(pages[1]), ElementsAre("top", "1"));
}

TEST(ReportPages, ABandIsNotPartedWhileItFitsOnAPage) {
  const auto report = Report({BandOf(BandKind::Detail, 4, {N(), TextAt(1, 3.5, 1, 0.2, "end")})});
  const auto pages = LaidOut(report, Numbered(3));
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(TextsOf(pages[1]), ElementsAre("500 500 3", "1500 4000 end"));
}

TEST(ReportPages, ABandThatMaySplitFillsThePageAndPartsBetweenTexts) {
  auto report = Report({BandOf(BandKind::Detail, 6, {N(), TextAt(1, 3.9, 1, 0.2, "cut here"), TextAt(1, 5, 1, 0.2, "end")})});
  report.bands[0].keepTogether = false;
  printing::Element frame;
  frame.kind = printing::ElementKind::Box;
  frame.width = 7;
  frame.height = 6;
  report.bands[0].elements.push_back(frame);
  const auto pages = LaidOut(report, Numbered(2));
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("500 500 1", "1500 4400 cut here", "1500 5500 end", "500 6500 2"));
  EXPECT_THAT(TextsOf(pages[1]), ElementsAre("1500 500 cut here", "1500 1600 end"));
  const auto& above = std::get<printing::BoxItem>(pages[0].items.back());
  const auto& below = std::get<printing::BoxItem>(pages[1].items.back());
  EXPECT_NEAR(above.height, 3.9, 1e-9);
  EXPECT_NEAR(below.y, 0.5, 1e-9);
  EXPECT_NEAR(below.height, 2.1, 1e-9);
}

TEST(ReportPages, ABandHigherThanAPageIsParted) {
  auto tall = FieldAt(0, 0, 1, 0.2, Text(std::string(100, 'x')));
  for (int line = 1; line < 100; ++line) tall.value.constant = tall.value.constant.As<std::string>() + "\nline";
  tall.canGrow = true;
  const auto pages = LaidOut(Report({BandOf(BandKind::Detail, 0.2, {N(), tall})}), Numbered(1));
  ASSERT_THAT(pages, SizeIs(2)) << "107 lines of a sixth of an inch, sixty of them on a page of ten inches";
  EXPECT_EQ(pages[0].items.size(), 61U);
  EXPECT_EQ(pages[1].items.size(), 47U);
  EXPECT_EQ(TextsOf(pages[1]).front(), "500 500 line");
}

TEST(ReportPages, MarginsThatLeaveNoRoomDoNotPrintForEver) {
  auto report = Report({BandOf(BandKind::PageHeader, 20, {Caption("top")}), BandOf(BandKind::Detail, 1, {N()})});
  EXPECT_THAT(LaidOut(report, Numbered(3)), SizeIs(3));
  report.marginTop = report.marginBottom = 6;
  EXPECT_THAT(LaidOut(report, Numbered(3)), SizeIs(3));
}

TEST(ReportPages, StripesLieBehindEachSecondDetail) {
  auto report = Report({BandOf(BandKind::Detail, 0.5, {N()})});
  report.bands[0].stripe = printing::Color{1, 2, 3};
  std::vector<double> places;
  const auto pages = LaidOut(report, Numbered(4));
  for (const auto& item : pages.at(0).items)
    if (const auto* box = std::get_if<printing::BoxItem>(&item)) {
      EXPECT_EQ(box->width, 7.5);
      EXPECT_EQ(box->height, 0.5);
      EXPECT_EQ(box->penWidth, 0);
      EXPECT_EQ(box->fill, (printing::Color{1, 2, 3}));
      places.push_back(box->y);
    }
  EXPECT_THAT(places, ElementsAre(1.0, 2.0));
}

TEST(ReportPages, TheFooterOfAPageTellsOfTheLastRowOnIt) {
  auto report = Report({BandOf(BandKind::PageHeader, 1, {N()}), BandOf(BandKind::Detail, 4, {}), BandOf(BandKind::PageFooter, 1, {N()})});
  report.totals.push_back({"Rows", printing::Summary::Count, Field("N"), {}, 0});
  report.bands[2].elements.push_back(FieldAt(2, 0, 1, 0.2, Total("Rows")));
  const auto pages = LaidOut(report, Numbered(5));
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_THAT(WordsOf(pages[0]), ElementsAre("1", "2", "2"));
  EXPECT_THAT(WordsOf(pages[1]), ElementsAre("3", "4", "4"));
  EXPECT_THAT(WordsOf(pages[2]), ElementsAre("5", "5", "5"));
}

TEST(ReportPages, TheSameReportGivesTheSamePages) {
  const auto report = Report({BandOf(BandKind::PageHeader, 1, {PageOf()}), BandOf(BandKind::Detail, 0.3, {N()})});
  const auto once = LaidOut(report, Numbered(100));
  const auto again = LaidOut(report, Numbered(100));
  ASSERT_EQ(once.size(), again.size());
  for (std::size_t page = 0; page < once.size(); ++page) EXPECT_EQ(TextsOf(once[page]), TextsOf(again[page]));
}

}  // namespace
}  // namespace printing_test
