#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Settings files: "[Section]" lines and "Key=Value" lines under them. Names are compared without regard to case; of
/// equal sections and of equal keys the first one counts. A line that begins with ";" is a comment, one without "=" says
/// nothing. Whatever the file holds, reading it fails quietly.
namespace suite {

/// The content as valid UTF-8: UTF-8 or UTF-16 by its byte order mark, without one UTF-8 if it is that and else the
/// western code page. NULs become line ends, so that the blank tail of a half written file is no value.
std::string DecodeIniText(std::string_view bytes);

/// The value in a decoded text: trimmed of blanks and tabs, then without one pair of quotes around it.
std::optional<std::string> FindIniValue(std::string_view text, std::string_view section, std::string_view key);

/// The value as a caller with a buffer of `size` characters, end mark included, gets it: `defaultValue` when it is
/// missing, at most `size` - 1 characters in any case.
std::string ReadIniFile(const std::string& hostPath, std::string_view section, std::string_view key, std::string_view defaultValue,
                        int size);

}  // namespace suite
