#include "printing/layout/detail_rows.h"

#include <gmock/gmock.h>

#include "unit/printing/support/made_up_report.h"

namespace printing_test {
namespace {

using platform::Null;
using platform::Value;
using testing::ElementsAre;

struct KeptRows final : printing::DetailSink {
  void Begin(const std::vector<printing::DetailColumn>& columns) override {
    for (const auto& column : columns) headings.push_back(column.heading);
  }
  void Add(const std::vector<Value>& cells) override { rows.push_back(cells); }
  std::vector<std::string> headings;
  std::vector<std::vector<Value>> rows;
};

Element Column(const std::string& field, const std::string& heading, const std::string& format = {}) {
  Element made = FieldAt(0, 0, 1, 0.2, Field(field));
  made.column = heading;
  made.format = format;
  return made;
}

KeptRows Exported(const ReportDefinition& report, MadeUpRows rows) {
  MadeUpValues values(report, rows);
  KeptRows kept;
  printing::DetailRows walk(report, values, rows, kept);
  while (walk.Advance()) {
  }
  return kept;
}

TEST(DetailRows, HaveTheColumnsOfAllBandsAtEachDetail) {
  auto report =
      Report({BandOf(BandKind::GroupHeader, 1, {Column("Town", "Town")}, 1),
              BandOf(BandKind::Detail, 1,
                     {Column("Phone", "Phone", "@@@-@@@@"), FieldAt(0, 0, 1, 1, Field("Town")), Column("Due", "Due", "#,##0.00")})});
  report.groups.push_back({{Field("Town"), false}, printing::GroupBy::Value, false, false});
  const Value due = platform::Currency{12345};
  const auto kept = Exported(report, MadeUpRows({"Town", "Phone", "Due"}, {{"Ames", "5551234", due}, {"Ames", Null, Null}}));
  EXPECT_THAT(kept.headings, ElementsAre("Town", "Phone", "Due"));
  EXPECT_THAT(kept.rows,
              ElementsAre(ElementsAre(Value("Ames"), Value("555-1234"), due), ElementsAre(Value("Ames"), Value(Null), Value(Null))));
}

TEST(DetailRows, LeaveOutSuppressedDetailsAndCells) {
  auto report = Report({BandOf(BandKind::Detail, 1, {Column("N", "N"), Column("N", "M")})});
  report.bands[0].suppress = Equal(Field("N"), Total("Two"));
  report.bands[0].elements[1].suppress = Equal(Field("N"), Total("One"));
  report.totals.push_back({"Two", printing::Summary::Count, Text("x"), Boolean(true), 0});
  report.totals.push_back({"One", printing::Summary::Least, Field("N"), {}, 0});
  report.bands[0].suppress.reset();
  const auto kept = Exported(report, Numbered(2));
  EXPECT_THAT(kept.rows, ElementsAre(ElementsAre(Value(1), Value()), ElementsAre(Value(2), Value(2))));
  report.bands[0].suppress = Equal(Field("N"), Total("One"));
  EXPECT_THAT(Exported(report, Numbered(2)).rows, ElementsAre(ElementsAre(Value(2), Value(2))));
}

TEST(DetailRows, WithoutADetailBandAreEveryRow) {
  auto report = Report({BandOf(BandKind::GroupFooter, 1, {Column("N", "N")}, 1)});
  report.groups.push_back({{Field("N"), false}, printing::GroupBy::Value, false, false});
  EXPECT_EQ(Exported(report, Numbered(3)).rows.size(), 3U);
}

}  // namespace
}  // namespace printing_test
