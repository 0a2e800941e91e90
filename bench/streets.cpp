// bench_streets STREETS MAP FILE...: how many addresses a second are found, in processor time, for each file of addresses (one a
// line). The files are read once before, so that nothing waits for the disk.

#include <ctime>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "streets/file/street_files.h"
#include "streets/geocoder/geocoder.h"
#include "streets/index/file_index.h"

namespace {

double ProcessorSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

std::vector<std::string> LinesOf(const std::string& file) {
  std::ifstream in(file);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

struct Counts {
  int found = 0;
  int matches = 0;
};

Counts FindAll(streets::Geocoder& geocoder, const std::vector<std::string>& addresses) {
  Counts counts;
  for (const std::string& address : addresses) {
    const auto answer = geocoder.Find(address);
    counts.found += answer.positionFound ? 1 : 0;
    counts.matches += answer.result == streets::Geocoder::kMatch ? 1 : 0;
  }
  return counts;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 4) {
    std::cerr << "bench_streets STREETS MAP FILE...\n";
    return 2;
  }
  streets::StreetFiles files({arguments[2], arguments[1]});
  if (!files.Complaint().empty()) {
    std::cerr << files.Complaint() << "\n";
    return 1;
  }
  streets::FileIndex index(files);
  streets::Geocoder geocoder(index);
  for (int i = 3; i < count; ++i) {
    const auto addresses = LinesOf(arguments[i]);
    FindAll(geocoder, addresses);
    const double start = ProcessorSeconds();
    const Counts counts = FindAll(geocoder, addresses);
    const double seconds = ProcessorSeconds() - start;
    std::cout << arguments[i] << ": " << addresses.size() << " addresses, " << counts.found << " found, " << counts.matches << " matches, "
              << static_cast<long long>(static_cast<double>(addresses.size()) / seconds) << " a second\n";
  }
  return 0;
}
