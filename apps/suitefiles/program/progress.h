#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "suitefiles/program/program.h"

namespace suitefiles {

/// Tells how far long work is: a line that is written over on a terminal, a line every ten seconds elsewhere. Work that is
/// over at once says nothing.
class Progress {
 public:
  explicit Progress(const Console& console) : console_(console), begun_(Clock::now()), said_(begun_) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void Show(const std::string& what, std::int64_t done, std::int64_t all);
  /// Takes the line off the terminal.
  void Clear();

 private:
  using Clock = std::chrono::steady_clock;
  const Console& console_;
  Clock::time_point begun_;
  Clock::time_point said_;
  std::size_t width_ = 0;  ///< characters of the line that stands on the terminal
};

}  // namespace suitefiles
