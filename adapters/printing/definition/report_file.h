#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "printing/definition/report_definition.h"

namespace printing {

/// The newest format that is understood; a file's first line tells its own.
inline constexpr int kReportFormat = 1;

/// Why a report file can't be used.
class ReportFileError final : public std::exception {
 public:
  enum class Fault {
    Syntax,  ///< something in it is wrong
    Newer,   ///< its format is newer than this program
  };
  ReportFileError(Fault fault, std::size_t line, std::size_t column, const std::string& what)
      : fault_(fault), line_(line), text_(std::to_string(line) + ':' + std::to_string(column) + ": " + what) {}

  Fault WhichFault() const noexcept { return fault_; }
  std::size_t Line() const noexcept { return line_; }
  /// "12:7: what is wrong": line and byte of the line, both from 1 on.
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  Fault fault_;
  std::size_t line_;
  std::string text_;
};

/// Gives the text of a part that a report uses, by its file's name.
using PartLoader = std::function<std::string(const std::string& name)>;

/// Reads and checks a report file's text. What depends on the data (whether a field is there, whether types fit) is found when its
/// rows are opened. Raises ReportFileError, and what the loader raises.
ReportDefinition ReadReportFile(std::string_view text, const PartLoader& loadPart);

}  // namespace printing
