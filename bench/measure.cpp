#include "measure.h"

#include <ctime>

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace bench {
namespace {

constexpr double sampleMicroseconds = 4000;

double Now(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

struct Sample {
  double wall = 0, cpu = 0;  // microseconds of a call
  std::uint64_t sum = 0;
};

/// One side of a job.
struct Side {
  const Job::Work& work;
  const std::function<void(int)>& ready;
  const std::function<double()>& elsewhere;

  double Processor() const { return Now(CLOCK_PROCESS_CPUTIME_ID) + (elsewhere ? elsewhere() : 0); }
};
Side OursOf(const Job& job) { return {job.ours, job.readyOurs, job.elsewhereOurs}; }
Side RawOf(const Job& job) { return {job.raw, job.readyRaw, job.elsewhereRaw}; }

Sample TakeOneByOne(const Side& side, int firstCall, int calls) {
  Sample sample;
  for (int i = 0; i < calls; ++i) {
    side.ready(firstCall + i);
    const double wall = Now(CLOCK_MONOTONIC);
    const double cpu = side.Processor();
    sample.sum = sample.sum * 31 + side.work(firstCall + i);
    sample.cpu += (side.Processor() - cpu) / calls;
    sample.wall += (Now(CLOCK_MONOTONIC) - wall) / calls;
  }
  return sample;
}

Sample Take(const Side& side, int firstCall, int calls) {
  if (side.ready) return TakeOneByOne(side, firstCall, calls);
  Sample sample;
  const double wall = Now(CLOCK_MONOTONIC);
  const double cpu = side.Processor();
  for (int i = 0; i < calls; ++i) sample.sum = sample.sum * 31 + side.work(firstCall + i);
  sample.cpu = (side.Processor() - cpu) / calls;
  sample.wall = (Now(CLOCK_MONOTONIC) - wall) / calls;
  return sample;
}

Spread SpreadOf(std::vector<double> numbers) {
  std::ranges::sort(numbers);
  const auto at = [&](double share) { return numbers[static_cast<std::size_t>(share * static_cast<double>(numbers.size() - 1) + 0.5)]; };
  return {at(0.1), at(0.5), at(0.9)};
}

void RequireSame(const Job& job, const Sample& ours, const Sample& raw) {
  if (job.sameResult && ours.sum != raw.sum)
    throw std::runtime_error(job.name + ": the engine and the bare program deliver different rows");
}

Sample Mean(const Sample& one, const Sample& other) { return {(one.wall + other.wall) / 2, (one.cpu + other.cpu) / 2, 0}; }

void Prepare(const Job& job) {
  if (job.prepare) job.prepare();
}

int CallsFor(const Job& job) {
  if (job.calls > 0) return job.calls;
  Prepare(job);
  Take(RawOf(job), 0, 1);
  const double once = std::max(0.1, Take(RawOf(job), 1, 1).wall);
  return static_cast<int>(std::clamp(sampleMicroseconds / once, 1.0, 2000.0));
}

// Every call makes them, so one more round tells.
double TripsOf(const Job& job, int calls) {
  if (!job.trips) return 0;
  Prepare(job);
  std::uint64_t made = 0;
  for (int i = 0; i < calls; ++i) {
    if (job.readyOurs) job.readyOurs(i);
    const std::uint64_t before = job.trips();
    job.ours(i);
    made += job.trips() - before;
  }
  return static_cast<double>(made) / calls;
}

std::string Figure(double number) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(number < 10 ? 2 : number < 100 ? 1 : 0) << number;
  return text.str();
}

std::string WithSpread(const Spread& spread) {
  return Figure(spread.median) + " (" + Figure(spread.low) + " to " + Figure(spread.high) + ")";
}

std::string Bar(const Result& result) {
  const std::string times = result.mostRatio > 0 ? Figure(result.mostRatio) + " x " : "";
  if (result.mostExtra > 0) return times + "raw + " + Figure(result.mostExtra) + " us";
  return result.mostRatio > 0 ? Figure(result.mostRatio) : "";
}

}  // namespace

bool Result::Within() const {
  if (mostExtra > 0) return oursCpu <= rawCpu * (mostRatio > 0 ? mostRatio : 1) + mostExtra;
  return mostRatio <= 0 || ratioCpu.median <= mostRatio;
}

Result Measure(const Job& job, std::size_t pairs) {
  const int calls = CallsFor(job);
  std::vector<double> ours, raw, oursCpu, rawCpu, ratio, ratioCpu;
  for (std::size_t pair = 0; pair < pairs + 1; ++pair) {
    // Who goes first finds less of the file in the machine's caches: within a pair each side does so once.
    const int firstCall = static_cast<int>(pair) * 2 * calls;
    Prepare(job);
    Sample our = Take(OursOf(job), firstCall, calls);
    Sample bare = Take(RawOf(job), firstCall, calls);
    RequireSame(job, our, bare);
    Prepare(job);
    const Sample bareFirst = Take(RawOf(job), firstCall + calls, calls);
    const Sample ourSecond = Take(OursOf(job), firstCall + calls, calls);
    RequireSame(job, ourSecond, bareFirst);
    our = Mean(our, ourSecond);
    bare = Mean(bare, bareFirst);
    if (pair == 0) continue;  // warming up
    ours.push_back(our.wall);
    raw.push_back(bare.wall);
    oursCpu.push_back(our.cpu);
    rawCpu.push_back(bare.cpu);
    ratio.push_back(our.wall / bare.wall);
    ratioCpu.push_back(our.cpu / bare.cpu);
  }
  Result result;
  result.name = job.name;
  result.pairs = pairs;
  result.calls = calls;
  result.ours = SpreadOf(ours);
  result.raw = SpreadOf(raw);
  result.ratio = SpreadOf(ratio);
  result.ratioCpu = SpreadOf(ratioCpu);
  result.oursCpu = SpreadOf(oursCpu).median;
  result.rawCpu = SpreadOf(rawCpu).median;
  result.trips = TripsOf(job, calls);
  result.mostRatio = job.mostRatio;
  result.mostExtra = job.mostExtra;
  return result;
}

std::string TableHead() {
  return "| job | engine, us | raw, us | ratio by the clock | ratio by processor time | bar | |\n"
         "| --- | ---: | ---: | --- | --- | --- | --- |\n";
}

std::string TableLine(const Result& result) {
  return "| " + result.name + " | " + Figure(result.ours.median) + " (cpu " + Figure(result.oursCpu) + ") | " + Figure(result.raw.median) +
         " (cpu " + Figure(result.rawCpu) + ") | " + WithSpread(result.ratio) + " | " + WithSpread(result.ratioCpu) + " | " + Bar(result) +
         " | " +
         (result.mostRatio <= 0 && result.mostExtra <= 0 ? ""
          : result.Within()                              ? "within"
                                                         : "**over**") +
         " |\n";
}

double PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    if (word != "VmHWM:") continue;
    double kilobytes = 0;
    status >> kilobytes;
    return kilobytes / 1024;
  }
  return 0;
}

void ForgetPeakMemory() { std::ofstream("/proc/self/clear_refs") << 5; }

}  // namespace bench
