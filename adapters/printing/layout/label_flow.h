#pragma once

#include "printing/layout/band_box.h"

namespace printing {

/// Labels to sheets: across, then down. Nothing of a label leaves its cell.
class LabelFlow {
 public:
  /// The first label stands in cell `first` (from 1) of its sheet: those in front of it are used up already.
  LabelFlow(const ReportDefinition& report, PageSink& sink, int first);

  void Add(BandBox label);
  void Finish();
  std::int64_t PageNumber() const { return sheets_ + 1; }

 private:
  const ReportDefinition& report_;
  LabelSheet sheet_;
  PageSink& sink_;
  Page page_;
  int cell_ = 0;  ///< the next one
  std::int64_t sheets_ = 0;
  bool begun_ = false;
};

}  // namespace printing
