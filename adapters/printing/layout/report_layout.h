#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "printing/data/row_source.h"
#include "printing/layout/group_keys.h"
#include "printing/layout/label_flow.h"
#include "printing/layout/page_flow.h"
#include "printing/layout/totals.h"

namespace printing {

/// Rows to pages. Everything that is handed in must outlive it.
class ReportLayout {
 public:
  /// `firstLabel`: the cell (from 1) of the first sheet of labels that is still to be had.
  ReportLayout(const ReportDefinition& report, ReportValues& values, RowSource& rows, const TextMeasure& measure, PageSink& sink,
               int firstLabel = 1);

  /// Lays out one row more, which may end any number of pages; false when everything, the last page included, is out.
  bool Advance();
  /// Rows laid out so far.
  std::int64_t Records() const noexcept { return records_; }

 private:
  /// The bands that a group's level has.
  struct Level {
    std::vector<BoundBand> headers, footers;
    bool kept = false;
  };

  void TakeRow();
  void TakeLabel(const RunPlace& place);
  void BeginGroups(int from, const RunPlace& place);
  void EndGroups(int from);
  void Print(const std::vector<BoundBand>& bands, const RunPlace& place, int header, int inside, bool striped = false);
  void Print(const BoundBand& bound, const RunPlace& place, int header, int inside, bool striped);
  RunPlace Place();
  RunPlace LastPlace();
  /// The state at `place`, where a band like that may be asked for it later.
  RunStateRef StateFor(const BoundBand& bound, const RunPlace& place);

  const ReportDefinition& report_;
  ReportValues& values_;
  RowSource& rows_;
  Totals totals_;
  GroupKeys keys_;
  std::vector<BoundBand> headers_, details_, footers_;
  std::vector<Level> levels_;
  std::optional<PageFlow> pages_;
  std::optional<LabelFlow> labels_;
  std::optional<BandMaker> labelMaker_;
  bool keepsLastRow_ = false;    ///< something is printed behind a row that looks at it
  bool pageLooksAtRow_ = false;  ///< the page's own bands look at rows or totals
  std::vector<platform::Value> lastRow_;
  RunStateRef state_;  ///< of the present row, made when first asked for
  std::int64_t records_ = 0;
  std::int64_t detailsPrinted_ = 0;
  bool started_ = false;
};

}  // namespace printing
