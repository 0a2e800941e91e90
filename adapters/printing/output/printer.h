#pragma once

#include <string>

#include "printing/output/page_painter.h"
#include "printing/output/page_spool.h"
#include "printing/output/progress.h"

namespace printing {

/// What goes to which printer.
struct PrinterRun {
  std::string printer;  ///< its name; empty: the default one
  std::string title;    ///< as the spooler lists it
  int copies = 1;
  bool collated = true;
  std::int64_t from = 0, to = 0;  ///< pages from 1, both with; 0: the first, the last
  PaintSettings settings;
  std::string toFile;  ///< a PDF in the printer's stead, for trials without one
};

/// The name of the default printer; empty where there is none.
std::string DefaultPrinter();

/// Prints. ReportError::NoPrinter where there is none, or none of that name; OutputFailed where it takes nothing.
void Print(const PageSpool& pages, const FontSet& fonts, const PrinterRun& run, const Progress& progress);

}  // namespace printing
