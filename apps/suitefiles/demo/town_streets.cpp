#include "suitefiles/demo/town_streets.h"

#include <algorithm>
#include <map>

#include "streets/address/street_name.h"
#include "streets/file/file_error.h"
#include "streets/file/street_file.h"
#include "streets/file/street_files.h"
#include "streets/import/source_writer.h"
#include "streets/index/file_index.h"
#include "suitefiles/demo/customers.h"
#include "suitefiles/demo/sub_records.h"
#include "suitefiles/demo/town_grid.h"

namespace suitefiles::demo {

namespace {

constexpr std::int32_t kMostCustomers = 100'000;

// Pieces of street have numbers of their own for each company, beyond those of any county.
constexpr std::int64_t kFirstPiece = 900'000'000'000;
constexpr std::int64_t kOfCompany = 100'000'000;
constexpr std::int64_t kCompanies = 1'000;

using Towns = std::map<std::string, UsedStreets>;  // by ZIP

void Use(Towns& towns, const std::string& line1, const std::string& zip) {
  constexpr std::size_t kZip = 5;
  const StreetLine parts = PartsOf(line1);
  if (parts.street.empty()) return;
  int& greatest = towns[zip.substr(0, kZip)][parts.street];
  greatest = std::max(greatest, parts.number);
}

Towns TownsOf(const World& world, std::int32_t customers) {
  Towns towns;
  for (std::int32_t account = 1; account <= std::min(customers, kMostCustomers); ++account) {
    const Identity identity = MakeIdentity(world, account);
    const Contact contact = MakeContact(world, identity);
    Use(towns, contact.street.line1, contact.zip);
    for (const Address& address : MakeAddresses(world, identity)) Use(towns, address.street.line1, address.zip);
  }
  return towns;
}

platform::MapLine KindOf(const std::string& street) {
  for (const char* wide : {" Blvd", " Pkwy"})
    if (street.ends_with(wide)) return platform::MapLine::MainRoad;
  return street == "Main St" ? platform::MapLine::Road : platform::MapLine::Street;
}

void Write(streets::SourceWriter& to, std::int64_t number, const GridPiece& piece, const std::string& zip) {
  constexpr int kLastOdd = 998;
  const std::int64_t street = to.Street(streets::NormalStreet(piece.street));
  to.Edge(number, KindOf(piece.street), piece.street, piece.line);
  to.Name(number, street, zip);
  to.Range({number, street, false, "", piece.first, piece.first + kLastOdd, streets::Parity::Odd, zip});
  to.Range({number, street, true, "", piece.first + 1, piece.first + 1 + kLastOdd, streets::Parity::Even, zip});
}

}  // namespace

int MakeTownStreets(const World& world, std::int32_t customers, int company, const std::string& baseMap, const std::string& streetsFile,
                    const std::function<void(std::int64_t, std::int64_t)>& progress) {
  streets::StreetFiles base({baseMap});
  if (base.All().empty()) throw streets::FileError(base.Complaint());
  streets::FileIndex zips(base);
  const Towns towns = TownsOf(world, customers);
  const auto file = streets::OpenOrMakeStreetFile(streetsFile);
  const std::string code = "demo:" + std::to_string(company);
  streets::SourceWriter writer(*file, {code, "Invented streets of company " + std::to_string(company), ""});
  std::int64_t number = kFirstPiece + company % kCompanies * kOfCompany;
  std::int64_t done = 0;
  int placed = 0;
  for (const auto& town : towns) {
    progress(done++, static_cast<std::int64_t>(towns.size()));
    const auto area = zips.Zip(town.first);
    if (!area) continue;
    for (const GridPiece& piece : TownGrid(area->at, town.second)) Write(writer, number++, piece, town.first);
    ++placed;
  }
  writer.Commit(placed, done - placed);
  return placed;
}

}  // namespace suitefiles::demo
