#include "desks/day_book.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace bench::desks {

void DayBook::Write(const std::string& path) const {
  std::ofstream file(path);
  for (const auto& [act, times] : acts_)
    for (const double time : times) file << "act\t" << time << '\t' << act << '\n';
  for (const auto& [what, count] : told_) file << "told\t" << count << '\t' << what << '\n';
  for (const double own : memory_) file << "memory\t" << own << "\t\n";
  for (const double share : fairShares_) file << "share\t" << share << "\t\n";
  if (!file.flush()) throw std::runtime_error("can't write " + path);
}

void DayBook::Add(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("a desk left no book: " + path);
  std::string kind, number, text;
  while (std::getline(file, kind, '\t') && std::getline(file, number, '\t') && std::getline(file, text)) {
    if (kind == "act") Did(text, std::atof(number.c_str()));
    if (kind == "told") told_[text] += std::atoi(number.c_str());
    if (kind == "memory") Memory(std::atof(number.c_str()));
    if (kind == "share") SharedMemory(std::atof(number.c_str()));
  }
}

namespace {

// MiB of all lines of this process's memory that begin so.
double MemoryIn(const std::string& beginning) {
  std::ifstream rollup("/proc/self/smaps_rollup");
  double kilobytes = 0;
  for (std::string line; std::getline(rollup, line);)
    if (line.starts_with(beginning)) kilobytes += std::atof(line.c_str() + line.find(':') + 1);
  return kilobytes / 1024;
}

}  // namespace

double OwnMemory() { return MemoryIn("Private_"); }
double FairShareOfMemory() { return MemoryIn("Pss:"); }

}  // namespace bench::desks
