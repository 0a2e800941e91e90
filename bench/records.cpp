// The main screen at work beside a bare program that writes the same: saves, the lists of types and key words, bulk
// assignment. It works in the folder that it is given.
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>

#include "options.h"
#include "screen_jobs.h"

namespace {

constexpr const char* usage =
    "bench_records [--pairs N] [--only TEXT] [--types N] [--words N] [--map-codes N] DIR\n"
    "Measures the main screen's records on company 1 of the folder, which is changed: give it a copy. Types (1,000), key\n"
    "words (10,000) and map codes (10,000) are added until there are so many.\n";

struct Options {
  std::size_t pairs = 21;
  std::string only;
  int types = 1000;
  int words = 10'000;
  int mapCodes = 10'000;
  std::string folder;
};

Options Read(int count, const char* const* words) {
  Options options;
  const auto folders = bench::OptionWords()
                           .Number("--pairs", options.pairs)
                           .Text("--only", options.only)
                           .Number("--types", options.types)
                           .Number("--words", options.words)
                           .Number("--map-codes", options.mapCodes)
                           .Read(count, words);
  if (folders.size() != 1) throw std::invalid_argument("DIR");
  options.folder = folders[0];
  return options;
}

void MeasureAll(const bench::ScreenSides& sides, const Options& options) {
  std::cout << "\n"
            << sides.company.Rows() << " customers, " << options.pairs << " pairs; \"engine\" is the main screen\n\n"
            << bench::TableHead() << std::flush;
  // The many taxes come last: a customer's card holds them all.
  for (auto* some : {bench::SaveJobs, bench::SetupJobs, bench::AssignmentJobs, bench::TaxJobs})
    for (const bench::Job& job : some(sides))
      if (job.name.find(options.only) != std::string::npos) std::cout << bench::TableLine(bench::Measure(job, options.pairs)) << std::flush;
}

void ShowYields(const bench::ScreenSides& sides) {
  std::cout << "\n| command | yields | longest wait for one, ms | all but one in a thousand, ms | most work between two, ms | bar |\n"
            << "| --- | ---: | ---: | ---: | ---: | ---: |\n"
            << std::fixed << std::setprecision(2);
  for (const bench::YieldRow& row : bench::YieldsOfBulkCommands(sides))
    std::cout << "| " << row.command << " | " << row.yields << " | " << row.worstGap << " | " << row.rareGap << " | " << row.worstWork
              << " | 50 |\n"
              << std::flush;
}

}  // namespace

int main(int count, char** words) {
  return bench::RunProgram("bench_records", usage, [&] {
    const Options options = Read(count, words);
    const std::string temporary = bench::TemporaryFileIn(options.folder);
    bench::Company company(options.folder);
    bench::raw::Records bare(company.Raw(), temporary);
    bare.FillUp(bench::raw::Ticked::Types, options.types);
    bare.FillUp(bench::raw::Ticked::KeyWords, options.words);
    bare.FillUpMapCodes(options.mapCodes);
    bench::AtMainScreen(options.folder, [&](orcussch::frmCustMain& screen, bench::WatchedFrontEnd& windows) {
      const bench::ScreenSides sides{company, bare, screen, windows};
      MeasureAll(sides, options);
      if (options.only.empty()) ShowYields(sides);
    });
  });
}
