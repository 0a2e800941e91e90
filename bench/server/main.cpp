// A company on a server, beside a bare program on the same server in the same run. The machine's load goes into the clock's figures; the
// processor's are those of this process and of the server's process for its connection together.
#include <functional>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "options.h"
#include "server/branch.h"

namespace {

constexpr const char* kUsage =
    "bench_server [--pairs N] [--area lists|searches|queries|records] [--only TEXT] [--few N] [--many N]\n"
    "             postgresql://HOST/DATABASE/orv1/...\n"
    "Measures the engine beside a bare program on companies of a server where nobody else works. Records, which change the company, are\n"
    "measured when they are asked for: give them a copy. For the time of it there are few (1,000) and then\n"
    "many (10,000) types and key words.\n";

struct Options {
  std::size_t pairs = 21;
  std::string area, only;
  bench::branch::Entries entries;
  std::vector<std::string> places;
};

Options Read(int count, const char* const* words) {
  Options options;
  options.places = bench::OptionWords()
                       .Number("--pairs", options.pairs)
                       .Text("--area", options.area)
                       .Text("--only", options.only)
                       .Number("--few", options.entries.few)
                       .Number("--many", options.entries.many)
                       .Read(count, words);
  if (options.places.empty()) throw std::invalid_argument("postgresql://HOST/DATABASE/orv1/");
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
  const auto measure = [&options](const bench::Job& job) {
    if (job.name.find(options.only) != std::string::npos) std::cout << Line(bench::Measure(job, options.pairs)) << std::flush;
  };
  using Area = std::pair<const char*, std::function<std::vector<bench::Job>(bench::branch::Company&)>>;
  const auto queries = [&options](bench::branch::Company& of) { return bench::branch::QueryJobs(of, options.only); };
  for (const auto& [name, jobsOf] : {Area{"lists", bench::branch::ListJobs}, Area{"searches", bench::branch::SearchJobs}, Area{"queries", queries}}) {
    if (!options.area.empty() && options.area != name) continue;
    for (const bench::Job& job : jobsOf(company)) measure(job);
  }
  if (options.area == "records") bench::branch::WithRecordJobs(company, options.entries, measure);
}

}  // namespace

int main(int count, char** words) {
  return bench::RunProgram("bench_server", kUsage, [&] {
    const Options options = Read(count, words);
    for (const std::string& place : options.places) MeasurePlace(place, options);
  });
}
