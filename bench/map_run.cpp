// All customers on the street map, without windows, beside a bare loop over the same rows that looks each address up once:
// bench_map_run DIR STREETS MAP [PAIRS].
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "company.h"
#include "main_screen.h"
#include "mapping/frmMap.h"
#include "measure.h"
#include "streets/entry/street_map.h"

namespace {

using MapFiles = std::function<std::vector<std::string>()>;

/// Names and addresses in the list's order, and where they lie.
class BareLoop {
 public:
  BareLoop(bench::raw::Store& store, const MapFiles& files)
      : rows_(store.Handle(), "SELECT AcctNum, FirstName, LastName, Latitude, Longitude, Addr1, City, State, Zip FROM f1.Customers ORDER BY LastName, AcctNum"),
        map_(streets::MakeStreetMap(files)) {}

  /// How many have an address.
  std::uint64_t Run() {
    constexpr int kAddress = 5, kColumns = 9;
    map_->Prepare();
    std::uint64_t count = 0;
    while (rows_.Step()) {
      std::string address(rows_.Text(kAddress));
      for (int column = kAddress + 1; column < kColumns; ++column)
        if (!rows_.Text(column).empty()) address.append(",").append(rows_.Text(column));
      if (address.empty()) continue;
      map_->Geocode(address);
      ++count;
    }
    rows_.Reset();
    return count;
  }

 private:
  bench::raw::Statement rows_;
  std::unique_ptr<platform::MapEngine> map_;
};

/// The screen loads, which is the run, and has a pin for each customer then.
std::uint64_t RunOfTheScreen(orcussch::frmCustMain& main, platform::MapEngine& map) {
  main.Toolbar1.Tag("All");
  orcussch::frmMap& screen = *orcussch::screens::frmMap;
  const std::uint64_t pins = map.Scene()->Pins().size();
  screen.App().Unload(screen);
  main.Act([] {});
  return pins;
}

}  // namespace

int main(int count, char** words) {
  if (count < 4) {
    std::cerr << "bench_map_run DIR STREETS MAP [PAIRS]: all customers of company 1 of the folder on the map\n";
    return 2;
  }
  try {
    const MapFiles files = [words] { return std::vector<std::string>{words[3], words[2]}; };
    bench::Company company(words[1]);
    BareLoop bare(company.Raw(), files);
    auto made = streets::MakeStreetMap(files);
    platform::MapEngine& map = *made;
    const auto work = [&](orcussch::frmCustMain& main, bench::WatchedFrontEnd&) {
      bench::Job job;
      job.name = "all customers on the map (raw: rows read, each address looked up)";
      job.calls = 1;
      job.mostRatio = 1.5;
      job.ours = [&](int) { return RunOfTheScreen(main, map); };
      job.raw = [&](int) { return bare.Run(); };
      std::cout << company.Rows() << " customers\n\n" << bench::TableHead() << bench::TableLine(bench::Measure(job, count > 4 ? std::stoul(words[4]) : 5));
    };
    bench::Visit visit;
    visit.folder = words[1];
    visit.map = std::move(made);
    bench::AtMainScreen(std::move(visit), work);
    std::cout << "peak memory " << bench::PeakMemory() << " MiB\n";
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "bench_map_run: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
