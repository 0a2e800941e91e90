// address_parts STREETS MAP FILE: how each address of the file (one a line) is understood at first, its parts parted by tabs: number,
// direction in front, name, type, direction behind, town, state, ZIP. On the error output how many a second, in processor time. For
// comparisons with other programs.

#include <ctime>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "streets/address/house_number.h"
#include "streets/address/reading.h"
#include "streets/address/words.h"
#include "streets/file/street_files.h"
#include "streets/geocoder/known_areas.h"
#include "streets/geocoder/town_teller.h"
#include "streets/index/file_index.h"

namespace {

double ProcessorSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

struct Parts {
  streets::Address address;
  streets::Reading reading;
};

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) {
    std::cerr << "address_parts STREETS MAP FILE\n";
    return 2;
  }
  streets::StreetFiles files({arguments[2], arguments[1]});
  if (!files.Complaint().empty()) {
    std::cerr << files.Complaint() << "\n";
    return 1;
  }
  streets::FileIndex index(files);
  streets::KnownAreas areas(index);
  streets::TownTeller teller(index, areas);
  std::vector<std::string> texts;
  std::ifstream in(arguments[3]);
  for (std::string text; std::getline(in, text);) texts.push_back(text);

  std::vector<Parts> told;
  const double start = ProcessorSeconds();
  for (const std::string& text : texts) {
    streets::Address address = teller.Read(text);
    streets::Reading reading;
    if (!address.street.empty()) reading = streets::PlainReading(address.street);
    told.push_back({std::move(address), std::move(reading)});
  }
  const double seconds = ProcessorSeconds() - start;
  for (const auto& [address, reading] : told) {
    const streets::StreetName& street = reading.street;
    std::cout << (reading.number ? streets::ShownNumber(*reading.number) : "") << "\t" << street.before << "\t" << street.key << "\t"
              << street.type << "\t" << street.behind << "\t" << streets::Join(address.city) << "\t" << address.state << "\t"
              << address.zip.zip << "\n";
  }
  std::cerr << static_cast<long long>(static_cast<double>(texts.size()) / seconds) << "\n";
  return 0;
}
