#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "company.h"
#include "options.h"
#include "waits.h"

namespace {

constexpr const char* usage =
    "bench_engine [--pairs N] [--area lists|searches|records|queries|results] [--only TEXT] [--waits] DIR...\n"
    "Measures the engine beside a bare program on company 1 of each folder; prints a table for each. With two folders or\n"
    "more, the last table tells how the engine's times grow from the first to the last. --waits: how long painting waits in\n"
    "long jobs instead.\n";

struct Options {
  std::size_t pairs = 21;
  std::string area;
  std::string only;
  bool waits = false;
  std::vector<std::string> folders;
};

Options Read(int count, const char* const* words) {
  Options options;
  options.folders = bench::OptionWords()
                        .Number("--pairs", options.pairs)
                        .Text("--area", options.area)
                        .Text("--only", options.only)
                        .Flag("--waits", options.waits)
                        .Read(count, words);
  if (options.folders.empty()) throw std::invalid_argument("DIR");
  return options;
}

void PrintWaits(const std::string& folder, const Options& options) {
  bench::Company company(folder);
  std::cout << "\n"
            << company.Rows() << " customers, " << options.pairs << " rounds\n\n"
            << std::flush << bench::WaitTable(company, options.pairs);
}

std::vector<bench::Result> MeasureFolder(const std::string& folder, const Options& options) {
  bench::Company company(folder);
  std::cout << "\n"
            << company.Rows() << " customers, " << options.pairs << " pairs; the largest group of equal names has "
            << company.LargestGroupSize() << " rows\n\n"
            << bench::TableHead() << std::flush;
  std::vector<bench::Result> results;
  const auto queries = [&options](bench::Company& of) { return bench::QueryJobs(of, options.only); };
  using Area = std::pair<const char*, std::function<std::vector<bench::Job>(bench::Company&)>>;
  for (const auto& [name, jobsOf] : {Area{"lists", bench::ListJobs}, Area{"searches", bench::SearchJobs}, Area{"records", bench::RecordJobs},
                                     Area{"queries", queries}, Area{"results", bench::ResultJobs}}) {
    if (!options.area.empty() && options.area != name) continue;
    for (const bench::Job& job : jobsOf(company)) {
      if (job.name.find(options.only) == std::string::npos) continue;
      results.push_back(bench::Measure(job, options.pairs));
      std::cout << bench::TableLine(results.back()) << std::flush;
    }
  }
  return results;
}

void PrintGrowth(const std::vector<bench::Result>& small, const std::vector<bench::Result>& large) {
  std::cout << "\n| job | engine's time, last folder to first | by processor time |\n| --- | ---: | ---: |\n";
  for (const auto& first : small)
    for (const auto& last : large)
      if (first.name == last.name)
        std::cout << "| " << first.name << " | " << last.ours.median / first.ours.median << " | " << last.oursCpu / first.oursCpu << " |\n";
}

}  // namespace

int main(int count, char** words) {
  return bench::RunProgram("bench_engine", usage, [&] {
    const Options options = Read(count, words);
    if (options.waits) {
      for (const std::string& folder : options.folders) PrintWaits(folder, options);
      return;
    }
    std::vector<std::vector<bench::Result>> all;
    for (const std::string& folder : options.folders) all.push_back(MeasureFolder(folder, options));
    if (all.size() > 1) PrintGrowth(all.front(), all.back());
  });
}
