#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <optional>

#include "printing/output/printer.h"

namespace printing {

/// What a preview asks its user; tests answer in the user's stead.
struct PreviewDialogs {
  /// The printer, copies and pages; false: not now.
  std::function<bool(QWidget& parent, PrinterRun& run, std::int64_t pages)> askPrinter;
  /// A file's name for "pdf", "csv" or "xlsx"; nothing: not now.
  std::function<std::optional<QString>(QWidget& parent, const QString& kind, const QString& suggestion)> askFile;
  std::function<void(QWidget& parent, const QString& text)> tell;
};

/// The toolkit's own dialogs.
PreviewDialogs ToolkitDialogs();

}  // namespace printing
