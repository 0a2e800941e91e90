#include "suitefiles/program/progress.h"

#include <algorithm>
#include <ostream>

namespace suitefiles {

namespace {

constexpr std::chrono::milliseconds kOnTerminal{200};
constexpr std::chrono::milliseconds kElsewhere{10'000};

}  // namespace

void Progress::Show(const std::string& what, std::int64_t done, std::int64_t all) {
  const auto now = Clock::now();
  if (now - said_ < (console_.errIsTerminal ? kOnTerminal : kElsewhere)) return;
  said_ = now;
  const auto percent = all > 0 ? done * 100 / all : 100;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - begun_).count();
  std::string line = what + ": " + std::to_string(percent) + " % (" + std::to_string(done) + " of " + std::to_string(all) + "), " +
                     std::to_string(seconds) + " s";
  if (!console_.errIsTerminal) {
    console_.err << line << std::endl;
    return;
  }
  const std::size_t length = line.size();
  if (length < width_) line.append(width_ - length, ' ');
  width_ = std::max(width_, length);
  console_.err << '\r' << line << std::flush;
}

void Progress::Clear() {
  if (width_ > 0) console_.err << '\r' << std::string(width_, ' ') << '\r' << std::flush;
  width_ = 0;
}

}  // namespace suitefiles
