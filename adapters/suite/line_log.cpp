#include "suite/line_log.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <vector>

namespace suite {

namespace {

int OpenForAppend(const std::string& path) {
  const int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC;
  int file = ::open(path.c_str(), flags, 0644);
  if (file < 0 && errno == ENOENT) {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    file = ::open(path.c_str(), flags, 0644);
  }
  return file;
}

/// Renames the grown file, unless another process is at it or has done it: only who holds the lock of the file that still
/// bears the name may. Writers that have the old file open lose nothing, their lines go into the renamed one.
void Rotate(int file, const std::string& path) {
  if (::flock(file, LOCK_EX | LOCK_NB) != 0) return;
  struct stat opened {};
  struct stat named {};
  if (::fstat(file, &opened) == 0 && ::stat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev) {
    ::rename(path.c_str(), (path + ".1").c_str());
  }
  ::flock(file, LOCK_UN);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

bool LineLog::Append(std::string_view line) const noexcept {
  try {
    int file = OpenForAppend(path_);
    if (file < 0) return false;
    struct stat status {};
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size > greatestSize_) {
      Rotate(file, path_);
      ::close(file);
      file = OpenForAppend(path_);
      if (file < 0) return false;
    }
    const std::string record = std::string(line) + '\n';
    const auto written = ::write(file, record.data(), record.size());
    ::close(file);
    return written == static_cast<ssize_t>(record.size());
  } catch (...) {
    return false;  // no memory: the record is lost, the program goes on
  }
}

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\\') {
      line += "\\\\";
    } else if (c == '\r') {
      line += "\\r";
    } else if (c == '\n') {
      line += "\\n";
    } else if (c == '\t') {
      line += "\\t";
    } else if (byte < 0x20 || byte == 0x7F) {
      constexpr std::string_view kHex = "0123456789ABCDEF";
      line += {'\\', 'x', kHex[byte >> 4U], kHex[byte & 15U]};
    } else {
      line += c;
    }
  }
  return line;
}

std::string MaskCardNumbers(std::string_view text) {
  std::string masked(text);
  std::size_t at = 0;
  while (at < masked.size()) {
    if (!IsDigit(masked[at])) {
      ++at;
      continue;
    }
    std::vector<std::size_t> digits;
    std::size_t end = at;
    while (end < masked.size() && (IsDigit(masked[end]) || ((masked[end] == ' ' || masked[end] == '-') && IsDigit(masked[end - 1]) &&
                                                            end + 1 < masked.size() && IsDigit(masked[end + 1])))) {
      if (IsDigit(masked[end])) digits.push_back(end);
      ++end;
    }
    // A longer run may hold a number and something else beside it, so it is hidden too.
    if (digits.size() >= 13) {
      for (std::size_t i = 0; i + 4 < digits.size(); ++i) masked[digits[i]] = '*';
    }
    at = end;
  }
  return masked;
}

std::string LogTime() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  ::localtime_r(&now, &parts);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
                parts.tm_hour, parts.tm_min, parts.tm_sec);
  return text.data();
}

}  // namespace suite
