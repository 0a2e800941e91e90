#include "streets/import/osm/addresses.h"

#include "streets/address/street_name.h"
#include "streets/import/osm/houses.h"

namespace streets {

AddressTexts AddressOf(const ExtractTags& tags) { return {tags["addr:housenumber"], tags["addr:street"], ZipOfTag(tags["addr:postcode"])}; }

std::string AddressWriter::Take(const AddressTexts& address, const Position& at) {
  if (address.street.empty()) return "it has no street (addr:street)";
  const auto houses = HousesOf(address.number, styles_.AreHyphenated(address.street, address.zip));
  if (houses.empty()) return "\"" + address.number + "\" is no house number";
  for (const HouseNumber& house : houses) TakeHouse(address.street, house, address.zip, at);
  return "";
}

void AddressWriter::TakeHouse(const std::string& street, const HouseNumber& number, const std::string& zip, const Position& at) {
  ++points_;
  if (!writer_) return;
  writer_->Point({writer_->Street(NormalStreet(street)), number, at, zip.empty() ? zips_.Nearest(at) : zip});
}

}  // namespace streets
