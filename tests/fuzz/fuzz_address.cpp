#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "streets/address/address.h"
#include "streets/address/house_number.h"
#include "streets/address/place_key.h"
#include "streets/address/reading.h"
#include "streets/address/street_name.h"
#include "streets/address/words.h"

// Any bytes as an address: its parts are words as they should be, readings have names and come in order, and the normal form of what a
// street is called by its parts is found by every one of them.

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void CheckReadings(const std::vector<std::string>& words) {
  const streets::Reading plain = streets::PlainReading(words);
  Require(plain.cost == 0);
  int cost = 0;
  for (const streets::Reading& reading : streets::OtherReadings(words)) {
    Require(!reading.street.key.empty());
    Require(reading.cost >= cost);
    cost = reading.cost;
    Require(!(reading == plain));
  }
}

void CheckWords(const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    Require(!word.empty());
    Require(streets::Words(word) == std::vector<std::string>{word});
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  CheckWords(streets::Words(text));
  const streets::Address address = streets::ParseAddress(text);
  CheckWords(address.street);
  CheckReadings(address.street);
  Require(address.zip.zip.empty() || address.zip.zip.size() == 5);
  Require(address.state.empty() || address.state.size() == 2);
  const streets::StreetName name = streets::NormalStreet(text);
  Require(streets::Soundex(name.key) == streets::Soundex(streets::NormalStreet(text).key));
  Require(streets::EditDistance(name.key, name.key, 2) == 0 || name.key.size() > 60);
  Require(streets::PlaceKey(streets::PlaceKey(text)) == streets::PlaceKey(text));
  return 0;
}
