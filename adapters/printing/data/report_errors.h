#pragma once

#include <exception>
#include <string>
#include <utility>

namespace printing {

/// What PrintReport returns where a report can't be run. The numbers stand in docs/reports.md and never change.
enum class ReportError : int {
  None = 0,

  FileMissing = 101,     ///< no report file of that name
  FileOutside = 102,     ///< the name leads out of the library's folder
  FileUnreadable = 103,  ///< no right to read it, no plain file, too long
  FileNewer = 104,       ///< its format is newer than this program
  FileSyntax = 105,      ///< something in it is wrong
  FileExpression = 106,  ///< an expression in it doesn't fit the data

  DataFileRefused = 201,    ///< a data file that no report of this session may read
  DataFileNotOpened = 202,  ///< missing, locked, damaged, of another format
  TableMissing = 203,
  FieldMissing = 204,
  ReadingFailed = 205,
  NoRoom = 206,    ///< the rows of a temporary file could not be kept
  NoGuests = 207,  ///< nor sent to a server that is to join them: it takes no temporary tables

  UnknownFormula = 301,
  BadFormulaValue = 302,
  BadSelection = 303,
  BadSortField = 304,

  NoPrinter = 401,
  OutputFailed = 402,

  Stopped = 501,  ///< by the user
};

/// Ends a run. The text is one line for the diagnostic log: what, and where.
class ReportFailure final : public std::exception {
 public:
  ReportFailure(ReportError error, std::string text) : error_(error), text_(std::move(text)) {}

  ReportError Error() const noexcept { return error_; }
  int Number() const noexcept { return static_cast<int>(error_); }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  ReportError error_;
  std::string text_;
};

}  // namespace printing
