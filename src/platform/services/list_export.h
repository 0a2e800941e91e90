#pragma once

#include <string>
#include <vector>

#include "platform/values/value.h"

namespace platform {

/// A column of a list on its way into a file.
struct ExportColumn {
  std::string caption;
  std::string format;    ///< of numbers and dates, as Format takes it; "" the type's own
  bool percent = false;  ///< the number is a percentage, and is seen as one
  int width = 0;         ///< in pixels, as it is shown
};

/// A list as the user sees it.
struct ExportedList {
  std::string title;
  std::vector<std::string> notes;  ///< its order, and what it is narrowed to, in words
  std::vector<ExportColumn> columns;
};

/// Its rows, one after another.
class ExportRows {
 public:
  enum class Step { Row, End, Stopped };
  virtual ~ExportRows() = default;
  /// The next row's cells in the columns' order; Stopped when the user has had enough.
  virtual Step Next(std::vector<Value>& cells) = 0;
};

/// Writes lists into files: a text of comma separated values, a workbook or pages, by the ending of the file's name (".csv", ".xlsx",
/// ".pdf"). A file comes under its name whole or not at all.
class ListExport {
 public:
  virtual ~ListExport() = default;
  /// False when the rows were stopped. Raises Error with a text for the user when the file can't be written.
  virtual bool Export(const ExportedList& list, ExportRows& rows, const std::string& path) = 0;
};

}  // namespace platform
