#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "printing/layout/detail_rows.h"
#include "printing/output/page_painter.h"
#include "printing/output/page_spool.h"
#include "printing/output/progress.h"

namespace printing {

/// A report that a preview shows, with all that it needs to go on by itself. What fails is a ReportFailure.
class PreviewRun {
 public:
  virtual ~PreviewRun() = default;
  /// Lays out a little more; false when every page is there.
  virtual bool Advance() = 0;
  virtual const PageSpool& Pages() const = 0;
  /// Rows laid out so far, and how many there are; -1 where that isn't known.
  virtual std::int64_t RowsDone() const = 0;
  virtual std::int64_t RowsInAll() = 0;
  /// Gives the details once more, as they were when the report was run. Begins the sink, and doesn't finish it.
  virtual void Export(DetailSink& sink, const Progress& progress) = 0;
};

/// What the run's job asks of its preview.
struct PreviewSettings {
  std::string title;
  bool maximised = false;
  std::string printer;  ///< empty: the default one
  int copies = 1;
  std::int64_t from = 0, to = 0;  ///< pages that are printed; 0: the first, the last
  std::function<PaintSettings(const std::string& printer)> alignment;  ///< of a printer; none: its pages stay as they are
};

}  // namespace printing
