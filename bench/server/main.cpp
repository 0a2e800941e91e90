// A company on a server, beside a bare program on the same server in the same run. The machine's load goes into the clock's figures; the
// processor's are those of this process and of the server's process for its connection together.
#include <cstdlib>
#include <exception>
#include <functional>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "server/branch.h"

namespace {

constexpr const char* kUsage =
    "bench_server [--pairs N] [--area lists|searches|queries] [--only TEXT] postgresql://HOST/DATABASE/orv1/...\n"
    "Measures the engine beside a bare program on companies of a server where nobody else works.\n";

struct Options {
  std::size_t pairs = 21;
  std::string area, only;
  std::vector<std::string> places;
};

Options Read(const std::vector<std::string>& words) {
  Options options;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const bool more = i + 1 < words.size();
    if (words[i] == "--pairs" && more)
      options.pairs = std::stoul(words[++i]);
    else if (words[i] == "--area" && more)
      options.area = words[++i];
    else if (words[i] == "--only" && more)
      options.only = words[++i];
    else
      options.places.push_back(words[i]);
  }
  return options;
}

std::string Line(const bench::Result& result) {
  std::ostringstream line;
  line << std::fixed << std::setprecision(2) << "| " << result.name << " | " << result.ours.median / 1e3 << " | " << result.raw.median / 1e3 << " | "
       << result.ratio.median << " | " << result.oursCpu / 1e3 << " | " << result.rawCpu / 1e3 << " | " << result.ratioCpu.median << " | " << result.mostRatio
       << " | " << std::setprecision(1) << result.trips << " | " << (result.Within() ? "within" : "**over**") << " |\n";
  return line.str();
}

void MeasurePlace(const std::string& place, const Options& options) {
  bench::branch::Company company(place);
  std::cout << "\n"
            << company.Rows() << " customers, " << options.pairs
            << " pairs; milliseconds of a call, medians\n\n"
               "| job | engine | raw | ratio | engine, processor | raw, processor | ratio | bar | trips | |\n"
               "| --- | ---: | ---: | ---: | ---: | ---: | ---: | ---: | ---: | --- |\n"
            << std::flush;
  using Area = std::pair<const char*, std::function<std::vector<bench::Job>(bench::branch::Company&)>>;
  const auto queries = [&options](bench::branch::Company& of) { return bench::branch::QueryJobs(of, options.only); };
  for (const auto& [name, jobsOf] : {Area{"lists", bench::branch::ListJobs}, Area{"searches", bench::branch::SearchJobs}, Area{"queries", queries}}) {
    if (!options.area.empty() && options.area != name) continue;
    for (const bench::Job& job : jobsOf(company))
      if (job.name.find(options.only) != std::string::npos) std::cout << Line(bench::Measure(job, options.pairs)) << std::flush;
  }
}

}  // namespace

int main(int count, char** words) {
  try {
    const Options options = Read({words + 1, words + count});
    if (options.places.empty()) {
      std::cerr << kUsage;
      return 2;
    }
    for (const std::string& place : options.places) MeasurePlace(place, options);
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_server: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
