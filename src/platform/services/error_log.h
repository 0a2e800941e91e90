#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// One report of a failure, as the suite's log keeps it.
struct ErrorRecord {
  std::int32_t company = 0;
  bool terminate = false;  ///< the report said that the program ends
  std::string applicationTitle;
  std::string module;  ///< the procedure's literal, by which the log is searched
  std::int32_t user = 0;
  std::int32_t number = 0;
  std::string description;
};

/// The suite's log of failures.
class ErrorLog {
 public:
  virtual ~ErrorLog() = default;
  /// Adds one record. Raises nothing: a report must reach the user also when the log can't be written.
  virtual void Write(const ErrorRecord& record) noexcept = 0;
};

enum class LogLevel { Debug, Information, Warning, Failure };

/// A second log for support: what the program did, one line a record, nothing that users are told.
class DiagnosticLog {
 public:
  virtual ~DiagnosticLog() = default;
  /// Records below this level are passed over; ask before composing a costly text.
  virtual LogLevel Lowest() const noexcept = 0;
  /// Raises nothing.
  virtual void Write(LogLevel level, std::string_view text) noexcept = 0;
};

}  // namespace platform
