#pragma once

#include <string>
#include <vector>

#include "streets/address/sound.h"
#include "streets/index/street_index.h"

namespace streets {

/// The normal form of a street's name as a source writes it (`id` 0, `shown` the text): the same for every usual way to write it.
/// "N. Saint John's Road" is N, ST JOHNS, RD; "Avenue C" AVE, C; "US Hwy 89 N" US HWY, 89, N; "North St" NORTH, ST.
StreetName NormalStreet(const std::string& written);

/// What is taken off a name as its direction or type; what isn't belongs to the name.
struct NameCut {
  bool before = true;
  bool type = true;
  bool behind = true;
};

/// The same of words in capitals, with `shown` empty.
StreetName StreetOfWords(std::vector<std::string> words, const NameCut& cut = {});

}  // namespace streets
