#include "streets/import/osm/number_styles.h"

#include "streets/address/words.h"
#include "streets/import/osm/houses.h"

namespace streets {
namespace {

// A bound on memory: streets beyond it are told by their ZIP.
constexpr std::size_t kMostStreets = 200'000;

std::string KeyOf(const std::string& street, const std::string& zip) { return street + '\n' + zip; }

}  // namespace

void NumberStyles::Count(const std::string& street, const std::string& zip, std::string_view number) {
  const auto pair = ReadHyphenPair(number);
  const bool isPlain = IsNumber(number);
  const bool isHyphenated = pair && !pair->CanBeRange();
  if (!isPlain && !isHyphenated) return;
  Add(KeyOf("", zip), isHyphenated);
  if (!street.empty()) Add(KeyOf(street, zip), isHyphenated);
}

void NumberStyles::Add(const std::string& key, bool hyphenated) {
  auto found = tallies_.find(key);
  if (found == tallies_.end()) {
    if (tallies_.size() >= kMostStreets) return;
    found = tallies_.try_emplace(key).first;
  }
  ++(hyphenated ? found->second.hyphenated : found->second.plain);
}

bool NumberStyles::AreHyphenated(const std::string& street, const std::string& zip) const {
  for (const std::string& key : {KeyOf(street, zip), KeyOf("", zip)}) {
    const auto found = tallies_.find(key);
    if (found != tallies_.end()) return found->second.hyphenated > found->second.plain;
  }
  return false;
}

}  // namespace streets
