#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace suite {

/// A text file of one line a record that several processes may append to. A file above its greatest size is renamed to
/// "<name>.1", which replaces an older one, and a new one is begun.
class LineLog {
 public:
  LineLog(std::string hostPath, std::int64_t greatestSize) : path_(std::move(hostPath)), greatestSize_(greatestSize) {}

  /// Appends the line in one write; makes the file and its folder when they are missing. False when that failed.
  bool Append(std::string_view line) const noexcept;
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  std::int64_t greatestSize_;
};

/// The text on one line: backslash, tab, line ends and other control characters written as \\, \t, \r, \n, \xHH.
std::string OneLine(std::string_view text);

/// The text with the digits of what may be a card number (13 or more digits, single blanks or dashes between) replaced
/// by "*", but for the last four.
std::string MaskCardNumbers(std::string_view text);

/// "2026-01-31 13:05:09" in local time.
std::string LogTime();

}  // namespace suite
