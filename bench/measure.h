#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

/// A job done once by the engine and once by the bare program. Each call returns a checksum of what it delivered; call
/// number n asks for the same on both sides, so that the sums must agree.
struct Job {
  using Work = std::function<std::uint64_t(int call)>;
  std::string name;
  Work ours;
  Work raw;
  double mostRatio = 0;           ///< the bar, 0 for none
  double mostExtra = 0;           ///< microseconds above the bare program that are allowed as well
  int calls = 0;                  ///< in one sample; 0: as many as give a few milliseconds
  std::function<void()> prepare;  ///< before each sample, not measured
  /// Before each call of that side, not measured.
  std::function<void(int call)> readyOurs, readyRaw;
  bool sameResult = true;  ///< false where the sides deliver different things by nature
  /// Microseconds of processor time that a server has spent on a side so far; they count as its own.
  std::function<double()> elsewhereOurs, elsewhereRaw;
  /// Round trips of our side so far.
  std::function<std::uint64_t()> trips;
};

struct Spread {
  double low = 0, median = 0, high = 0;  ///< tenth, fiftieth and ninetieth percentile
};

struct Result {
  std::string name;
  std::size_t pairs = 0;
  int calls = 0;
  Spread ours, raw;                ///< microseconds of a call, by the clock
  Spread ratio;                    ///< of the pairs, by the clock
  Spread ratioCpu;                 ///< of the pairs, by the processor time of the process
  double oursCpu = 0, rawCpu = 0;  ///< medians, microseconds of a call
  double mostRatio = 0, mostExtra = 0;
  double trips = 0;  ///< round trips of a call of ours, on average
  /// By processor time, which other work on the machine disturbs least.
  bool Within() const;
};

/// Runs the two sides in turn, in pairs, each going first once in a pair. Throws std::runtime_error when results differ.
Result Measure(const Job& job, std::size_t pairs);

/// One line of a Markdown table, and its head.
std::string TableHead();
std::string TableLine(const Result& result);

/// The highest resident size of this process so far, in MiB.
double PeakMemory();
/// From now on the highest size is that of what is to come.
void ForgetPeakMemory();

}  // namespace bench
