#pragma once

#include <memory>
#include <string>

#include "platform/services/report_engine.h"
#include "printing/data/report_folder.h"
#include "printing/data/report_rows.h"
#include "printing/layout/expression_values.h"
#include "printing/layout/report_layout.h"
#include "printing/preview/preview_run.h"
#include "printing/run/kept_rows.h"

namespace printing {

/// What a run takes from the program around it.
struct RunServices {
  ReportFolder folder;
  DataServices data;
};

/// Whether a run can give its details once more, for which it writes its rows down.
enum class Details { Once, Again };

/// A report that runs: its rows, its pages, and its details again. What fails is a ReportFailure.
class ReportRun final : public PreviewRun {
 public:
  /// Opens the report and its rows and lays nothing out yet.
  ReportRun(const platform::ReportJob& job, RunServices services, const TextMeasure& measure, Details details);

  bool Advance() override;
  const PageSpool& Pages() const override { return pages_; }
  std::int64_t RowsDone() const override { return layout_->Records(); }
  std::int64_t RowsInAll() override { return rows_->Count(); }
  /// Only of a run with Details::Again.
  void Export(DetailSink& sink, const Progress& progress) override;
  const std::string& Title() const { return report_.title; }

 private:
  RunServices services_;
  ReportDefinition report_;
  std::string selection_;  ///< in words
  std::unique_ptr<RowSource> rows_;
  KeptRows* kept_ = nullptr;  ///< the rows, where they are written down
  std::unique_ptr<ExpressionValues> values_;
  PageSpool pages_;
  std::unique_ptr<ReportLayout> layout_;
};

/// Details alone, without pages: for files of values.
void ExportDetails(const platform::ReportJob& job, RunServices services, DetailSink& sink, const Progress& progress);

}  // namespace printing
