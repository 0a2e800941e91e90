#pragma once

#include <memory>
#include <string>

#include "printing/output/page_painter.h"
#include "printing/output/page_spool.h"
#include "printing/output/progress.h"

namespace printing {

/// A PDF as it is made, page by page. What `Finish` hasn't put under its name is gone with the object; a file that was there before stays
/// till then. A folder or disk that takes nothing is ReportError::OutputFailed.
class PdfFile final : public PageSink {
 public:
  /// `pageCount` is drawn where a page tells it; 0 where it isn't known.
  PdfFile(const std::string& path, const std::string& title, const FontSet& fonts, std::int64_t pageCount, PaintSettings settings = {});
  ~PdfFile() override;

  void Add(const Page& page) override;
  /// Ends the file and gives it its name. A PDF has one page at least.
  void Finish();

 private:
  struct Making;
  std::unique_ptr<Making> making_;
};

/// Pages from `from` to `to` (from 1, both with; 0: the first, the last) as a PDF.
void WritePdf(const PageSpool& pages, const std::string& path, const std::string& title, const FontSet& fonts, const Progress& progress,
              std::int64_t from = 0, std::int64_t to = 0, PaintSettings settings = {});

}  // namespace printing
