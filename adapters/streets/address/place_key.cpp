#include "streets/address/place_key.h"

#include <vector>

#include "streets/address/directions.h"
#include "streets/address/words.h"

namespace streets {

namespace {

std::string Normal(const std::string& word) {
  if (word == "SAINT") return "ST";
  if (word == "SAINTE") return "STE";
  if (word == "FT") return "FORT";
  if (word == "MT") return "MOUNT";
  if (word == "MTN") return "MOUNTAIN";
  if (word == "SPGS" || word == "SPRGS") return "SPRINGS";
  if (word == "HTS") return "HEIGHTS";
  if (word == "TWP") return "TOWNSHIP";
  return word;
}

}  // namespace

std::string PlaceKey(std::string_view written) {
  std::vector<std::string> words = Words(written);
  for (std::string& word : words) word = Normal(word);
  if (words.size() > 1) words.front() = DirectionInFull(words.front());
  return Join(words);
}

}  // namespace streets
