#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "company.h"
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

Options Read(const std::vector<std::string>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "--pairs" && i + 1 < words.size())
      options.pairs = std::stoul(words[++i]);
    else if (words[i] == "--area" && i + 1 < words.size())
      options.area = words[++i];
    else if (words[i] == "--only" && i + 1 < words.size())
      options.only = words[++i];
    else if (words[i] == "--waits")
      options.waits = true;
    else
      options.folders.push_back(words[i]);
  }
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
  try {
    const Options options = Read({words + 1, words + count});
    if (options.folders.empty()) {
      std::cerr << usage;
      return 2;
    }
    if (options.waits) {
      for (const std::string& folder : options.folders) PrintWaits(folder, options);
      return EXIT_SUCCESS;
    }
    std::vector<std::vector<bench::Result>> all;
    for (const std::string& folder : options.folders) all.push_back(MeasureFolder(folder, options));
    if (all.size() > 1) PrintGrowth(all.front(), all.back());
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_engine: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
