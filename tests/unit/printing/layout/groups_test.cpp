#include <gmock/gmock.h>

#include "unit/printing/support/made_up_report.h"

namespace printing_test {
namespace {

using platform::Currency;
using platform::Date;
using platform::Null;
using platform::Value;
using printing::GroupBy;
using printing::Summary;
using printing::SystemValue;
using testing::ElementsAre;
using testing::SizeIs;

Element Shown(const std::string& field, double x = 0) { return FieldAt(x, 0, 1, 0.2, Field(field)); }

/// Towns and their customers, a header and a footer for each town.
ReportDefinition Towns(double detailHeight) {
  auto report = Report({BandOf(BandKind::GroupHeader, 1, {Shown("Town")}, 1), BandOf(BandKind::Detail, detailHeight, {Shown("Name")}),
                        BandOf(BandKind::GroupFooter, 1, {FieldAt(0, 0, 2, 0.2, Joined(Text("end of "), Field("Town")))}, 1)});
  report.groups.push_back({{Field("Town"), false}, GroupBy::Value, false, false});
  return report;
}

MadeUpRows People(std::vector<std::vector<Value>> rows) { return {{"Town", "Name"}, std::move(rows)}; }

TEST(ReportGroups, BeginAndEndWithTheirValue) {
  const auto pages = LaidOut(Towns(0.5), People({{"Ames", "a"}, {"Ames", "b"}, {"Bell", "c"}}));
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("500 500 Ames", "500 1500 a", "500 2000 b", "500 2500 end of Ames", "500 3500 Bell",
                                             "500 4500 c", "500 5000 end of Bell"));
}

TEST(ReportGroups, NullAndTheEmptyTextAreOneGroup) {
  auto report = Towns(0.5);
  report.bands.pop_back();
  report.bands[0].elements[0] = FieldAt(0, 0, 1, 0.2, Text("group"));
  EXPECT_THAT(WordsOf(LaidOut(report, People({{Null, "a"}, {Null, "b"}, {"", "c"}, {" ", "d"}, {"Ames", "e"}})).at(0)),
              ElementsAre("group", "a", "b", "c", "d", "group", "e"));
}

TEST(ReportGroups, NullIsAGroupBesideDays) {
  auto report = Towns(0.5);
  report.bands.pop_back();
  report.bands[0].elements[0] = FieldAt(0, 0, 1, 0.2, Text("group"));
  EXPECT_THAT(WordsOf(LaidOut(report, People({{Null, "a"}, {Date{0}, "b"}})).at(0)), ElementsAre("group", "a", "group", "b"));
}

TEST(ReportGroups, AnOuterGroupEndsTheInnerOnes) {
  auto report = Report({BandOf(BandKind::GroupHeader, 0.5, {Shown("State")}, 1), BandOf(BandKind::GroupHeader, 0.5, {Shown("Town")}, 2),
                        BandOf(BandKind::Detail, 0.5, {Shown("Name")}),
                        BandOf(BandKind::GroupFooter, 0.5, {FieldAt(0, 0, 2, 0.2, Joined(Text("-"), Field("Town")))}, 2),
                        BandOf(BandKind::GroupFooter, 0.5, {FieldAt(0, 0, 2, 0.2, Joined(Text("="), Field("State")))}, 1)});
  report.groups.push_back({{Field("State"), false}, GroupBy::Value, false, false});
  report.groups.push_back({{Field("Town"), false}, GroupBy::Value, false, false});
  MadeUpRows rows({"State", "Town", "Name"}, {{"IA", "Ames", "a"}, {"IA", "Bell", "b"}, {"OH", "Bell", "c"}});
  EXPECT_THAT(WordsOf(LaidOut(report, rows).at(0)),
              ElementsAre("IA", "Ames", "a", "-Ames", "Bell", "b", "-Bell", "=IA", "OH", "Bell", "c", "-Bell", "=OH"));
}

TEST(ReportGroups, GoByMonthYearAndLetter) {
  const auto words = [](GroupBy by, std::vector<Value> values) {
    auto report =
        Report({BandOf(BandKind::GroupHeader, 0.1, {TextAt(0, 0, 1, 0.2, "|")}, 1), BandOf(BandKind::Detail, 0.1, {Shown("Name")})});
    report.groups.push_back({{Field("Town"), false}, by, false, false});
    std::vector<std::vector<Value>> rows;
    for (std::size_t row = 0; row < values.size(); ++row) rows.push_back({values[row], std::string(1, static_cast<char>('a' + row))});
    std::string all;
    for (const std::string& word : WordsOf(LaidOut(report, People(std::move(rows))).at(0))) all += word;
    return all;
  };
  constexpr double kNewYear2000 = 36526;
  const std::vector<Value> days = {Date{kNewYear2000}, Date{kNewYear2000 + 30.75}, Date{kNewYear2000 + 31}, Date{kNewYear2000 + 366}, Null};
  EXPECT_EQ(words(GroupBy::Month, days), "|ab|c|d|e");
  EXPECT_EQ(words(GroupBy::Year, days), "|abc|d|e");
  EXPECT_EQ(words(GroupBy::Letter, {"Ames", "adel", "Bell", "\xC3\x89sk", "\xC3\xA9tat", ""}), "|ab|c|de|f");
}

TEST(ReportGroups, AHeaderIsRepeatedOnThePagesOnWhichItsGroupGoesOn) {
  auto report = Towns(4);
  const MadeUpRows rows = People({{"Ames", "a"}, {"Ames", "b"}, {"Ames", "c"}, {"Bell", "d"}});
  EXPECT_THAT(WordsOf(LaidOut(report, rows).at(1)), ElementsAre("c", "end of Ames", "Bell", "d"));
  report.groups[0].repeatHeader = true;
  const auto pages = LaidOut(report, rows);
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_THAT(WordsOf(pages[0]), ElementsAre("Ames", "a", "b"));
  EXPECT_THAT(TextsOf(pages[1]), ElementsAre("500 500 Ames", "500 1500 c", "500 5500 end of Ames"))
      << "Bell's header would stand alone at the end";
  EXPECT_THAT(WordsOf(pages[2]), ElementsAre("Bell", "d", "end of Bell"));
}

TEST(ReportGroups, AHeaderThatIsSuppressedRepeatsNothing) {
  auto report = Towns(4);
  report.groups[0].repeatHeader = true;
  report.bands[0].suppress = Equal(Field("Town"), Text("Bell"));
  const auto pages = LaidOut(report, People({{"Ames", "a"}, {"Bell", "b"}, {"Bell", "c"}, {"Bell", "d"}}));
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(WordsOf(pages[0]), ElementsAre("Ames", "a", "end of Ames", "b"));
  EXPECT_THAT(WordsOf(pages[1]), ElementsAre("c", "d", "end of Bell"));
}

TEST(ReportGroups, AHeaderNeverStandsAloneAtAPagesEnd) {
  const auto pages = LaidOut(Towns(4), People({{"Ames", "a"}, {"Bell", "b"}, {"Bell", "c"}}));
  EXPECT_THAT(WordsOf(pages.at(0)), ElementsAre("Ames", "a", "end of Ames"));
  EXPECT_THAT(WordsOf(pages.at(1)), ElementsAre("Bell", "b", "c", "end of Bell"));
}

TEST(ReportGroups, AKeptGroupGoesToTheNextPageWhereItFitsOnOne) {
  auto report = Towns(2.5);
  const MadeUpRows rows = People({{"Ames", "a"}, {"Bell", "b"}, {"Bell", "c"}, {"Cole", "d"}});
  EXPECT_THAT(WordsOf(LaidOut(report, rows).at(0)), ElementsAre("Ames", "a", "end of Ames", "Bell", "b"));
  report.groups[0].keepTogether = true;
  const auto pages = LaidOut(report, rows);
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_THAT(WordsOf(pages[0]), ElementsAre("Ames", "a", "end of Ames"));
  EXPECT_THAT(TextsOf(pages[1]).front(), "500 500 Bell");
  EXPECT_THAT(WordsOf(pages[1]), ElementsAre("Bell", "b", "c", "end of Bell"));
  EXPECT_THAT(WordsOf(pages[2]), ElementsAre("Cole", "d", "end of Cole"));
}

TEST(ReportGroups, AKeptGroupThatFitsOnNoPageBeginsWhereItComes) {
  auto report = Towns(2);
  report.groups[0].keepTogether = true;
  const auto pages = LaidOut(report, People({{"Ames", "a"}, {"Bell", "b"}, {"Bell", "c"}, {"Bell", "d"}, {"Bell", "e"}, {"Bell", "f"}}));
  EXPECT_THAT(WordsOf(pages.at(0)), ElementsAre("Ames", "a", "end of Ames", "Bell", "b", "c"));
  EXPECT_THAT(WordsOf(pages.at(1)), ElementsAre("d", "e", "f", "end of Bell"));
}

TEST(ReportGroups, AnInnerKeptGroupIsKeptWhereTheOuterOneIsTooLong) {
  auto report = Report({BandOf(BandKind::GroupHeader, 1, {Shown("State")}, 1), BandOf(BandKind::GroupHeader, 1, {Shown("Town")}, 2),
                        BandOf(BandKind::Detail, 3, {Shown("Name")})});
  report.groups.push_back({{Field("State"), false}, GroupBy::Value, true, false});
  report.groups.push_back({{Field("Town"), false}, GroupBy::Value, true, false});
  MadeUpRows rows({"State", "Town", "Name"}, {{"IA", "Ames", "a"}, {"IA", "Bell", "b"}, {"IA", "Bell", "c"}, {"IA", "Cole", "d"}});
  const auto pages = LaidOut(report, rows);
  ASSERT_THAT(pages, SizeIs(3));
  EXPECT_THAT(WordsOf(pages[0]), ElementsAre("IA", "Ames", "a"));
  EXPECT_THAT(WordsOf(pages[1]), ElementsAre("Bell", "b", "c"));
  EXPECT_THAT(WordsOf(pages[2]), ElementsAre("Cole", "d"));
}

TEST(ReportGroups, WhatNamesThePageNamesTheOneOnWhichItCameToStand) {
  auto report = Towns(2.5);
  report.groups[0].keepTogether = true;
  report.bands[1].elements.push_back(FieldAt(3, 0, 1, 0.2, Known(SystemValue::PageNumber)));
  const auto pages = LaidOut(report, People({{"Ames", "a"}, {"Bell", "b"}, {"Bell", "c"}}));
  EXPECT_THAT(WordsOf(pages.at(1)), ElementsAre("Bell", "b", "2", "c", "2", "end of Bell"));
}

TEST(ReportGroups, ANewPageBeforeAGroupLeavesTheFirstWhereItIs) {
  auto report = Towns(1);
  report.bands[0].newPageBefore = Boolean(true);
  report.bands.insert(report.bands.begin(), BandOf(BandKind::ReportHeader, 1, {TextAt(0, 0, 2, 0.2, "title")}));
  const auto pages = LaidOut(report, People({{"Ames", "a"}, {"Bell", "b"}}));
  ASSERT_THAT(pages, SizeIs(2));
  EXPECT_THAT(WordsOf(pages[0]), ElementsAre("title", "Ames", "a", "end of Ames"));
}

TEST(ReportGroups, StripesBeginAnewWithEach) {
  auto report = Towns(0.5);
  report.bands[1].stripe = printing::Color{};
  report.bands.pop_back();
  int stripes = 0;
  const auto pages = LaidOut(report, People({{"Ames", "a"}, {"Bell", "b"}, {"Bell", "c"}}));
  for (const auto& item : pages.at(0).items) stripes += std::holds_alternative<printing::BoxItem>(item) ? 1 : 0;
  EXPECT_EQ(stripes, 1) << "c alone";
}

/// One line of the totals at each group's and the report's end.
std::vector<std::string> Sums(Summary summary, std::vector<std::vector<Value>> rows, std::optional<Expression> when = {}) {
  auto report = Report({BandOf(BandKind::GroupFooter, 0.2, {FieldAt(0, 0, 2, 0.2, Total("One"))}, 1),
                        BandOf(BandKind::ReportFooter, 0.2, {FieldAt(0, 0, 2, 0.2, Total("All"))})});
  report.groups.push_back({{Field("Town"), false}, GroupBy::Value, false, false});
  report.totals.push_back({"One", summary, Field("Name"), when, 1});
  report.totals.push_back({"All", summary, Field("Name"), when, 0});
  return WordsOf(LaidOut(report, People(std::move(rows))).at(0));
}

TEST(ReportTotals, SumsOfGroupsAndOfTheReport) {
  const Value tenth = Currency{1000};
  EXPECT_THAT(Sums(Summary::Sum, {{"A", tenth}, {"A", tenth}, {"A", Null}, {"B", tenth}}), ElementsAre("0.20", "0.10", "0.30"));
  EXPECT_THAT(Sums(Summary::Count, {{"A", tenth}, {"A", tenth}, {"A", Null}, {"B", tenth}}), ElementsAre("2", "1", "3"));
  EXPECT_THAT(Sums(Summary::Average, {{"A", 1.0}, {"A", 2.0}, {"A", Null}, {"B", 6.0}}), ElementsAre("1.5", "6", "3"));
  EXPECT_THAT(Sums(Summary::Least, {{"A", 3.0}, {"A", 2.0}, {"A", Null}, {"B", 6.0}}), ElementsAre("2", "6", "2"));
  EXPECT_THAT(Sums(Summary::Greatest, {{"A", "x"}, {"A", "y"}, {"A", Null}, {"B", "w"}}), ElementsAre("y", "w", "y"));
}

TEST(ReportTotals, TakeOnlyRowsForWhichTheirConditionIsTrue) {
  EXPECT_THAT(Sums(Summary::Sum, {{"A", 1.0}, {"B", 2.0}, {"B", 4.0}}, Equal(Field("Town"), Text("B"))), ElementsAre("0", "6", "6"));
}

TEST(ReportTotals, OfNothingAreNothing) {
  EXPECT_THAT(Sums(Summary::Sum, {{"A", Null}}), ElementsAre("0", "0"));
  EXPECT_THAT(Sums(Summary::Least, {{"A", Null}}), testing::IsEmpty());
  EXPECT_THAT(Sums(Summary::Average, {}), testing::IsEmpty());
}

TEST(ReportTotals, AmountsAddUpExactlyAndPastTheLargest) {
  const Value largest = Currency{std::numeric_limits<std::int64_t>::max()};
  EXPECT_THAT(Sums(Summary::Sum, {{"A", largest}, {"A", Currency{-1}}}), ElementsAre("922,337,203,685,477.58", "922,337,203,685,477.58"));
  EXPECT_THAT(Sums(Summary::Sum, {{"A", largest}, {"A", largest}}).at(0), "1.84467440737096E+15");
}

TEST(ReportTotals, RunAlongTheDetails) {
  auto report = Report({BandOf(BandKind::Detail, 0.2, {FieldAt(0, 0, 2, 0.2, Total("So far"))})});
  report.totals.push_back({"So far", Summary::Sum, Field("N"), {}, 0});
  EXPECT_THAT(WordsOf(LaidOut(report, Numbered(4)).at(0)), ElementsAre("1", "3", "6", "10"));
}

}  // namespace
}  // namespace printing_test
