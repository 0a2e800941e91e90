#include "streets/address/street_name.h"

#include <algorithm>
#include <utility>

#include "streets/address/directions.h"
#include "streets/address/highways.h"
#include "streets/address/number_words.h"
#include "streets/address/street_types.h"
#include "streets/address/words.h"

namespace streets {

namespace {

/// "TWENTY", "FIRST" to "21ST"; "FOUR" to "4".
std::vector<std::string> WithDigits(const std::vector<std::string>& words) {
  std::vector<std::string> made;
  for (std::size_t i = 0; i < words.size();) {
    if (const auto number = NumberInWords(words, i)) {
      made.push_back(number->ordinal ? Ordinal(number->number) : std::to_string(number->number));
      i += number->words;
    } else {
      made.push_back(words[i++]);
    }
  }
  return made;
}

/// A word of a name in full, so that names are as far apart as they look; "ST" is a saint and "DR" a doctor there.
std::string NameWord(const std::string& word) {
  if (word == "SAINT") return "ST";
  if (word == "DOCTOR") return "DR";
  if (word == "ST" || word == "DR") return word;
  const std::string direction = DirectionInFull(word);
  return direction == word ? StreetTypeInFull(word) : direction;
}

class NameReader {
 public:
  NameReader(const std::vector<std::string>& words, const NameCut& cut) : words_(words), end_(words.size()), cut_(cut) {}

  StreetName Read() {
    if (!TakeHighway()) {
      if (cut_.behind) TakeBehind();
      if (!TakeHighway()) {
        if (cut_.before) TakeBefore();
        if (!TakeHighway()) {
          if (cut_.type) TakeType();
          TakeKey();
        }
      }
    }
    return std::move(name_);
  }

 private:
  std::size_t Left() const { return end_ - first_; }

  bool TakeHighway() {
    if (!cut_.type) return false;
    const auto highway = HighwayOf(words_, first_, end_);
    if (!highway) return false;
    name_.type = highway->type;
    name_.key = highway->number;
    return true;
  }

  void TakeBehind() {
    if (Left() >= 3) name_.behind = Direction(words_[end_ - 2], words_[end_ - 1]);
    std::size_t taken = name_.behind.empty() ? 0 : 2;
    // "Avenue N E" is an avenue N.
    if (taken == 2 && Left() == 3 && StandsInFront(StreetType(words_[first_]))) taken = 0;
    if (taken == 0) {
      name_.behind = Left() >= 2 ? Direction(words_[end_ - 1]) : "";
      taken = name_.behind.empty() ? 0 : 1;
    }
    // "Avenue E" is an avenue E.
    if (taken == 1 && Left() == 2 && StandsInFront(StreetType(words_[first_]))) taken = 0;
    if (taken == 0) name_.behind.clear();
    end_ -= taken;
  }

  void TakeBefore() {
    std::size_t taken = 0;
    if (Left() >= 3) name_.before = Direction(words_[first_], words_[first_ + 1]);
    if (!name_.before.empty()) taken = IsOnlyType(first_ + 2) ? 0 : 2;
    if (taken == 0) {
      name_.before = Left() >= 2 ? Direction(words_[first_]) : "";
      // "North St" is the street North.
      if (!name_.before.empty()) taken = IsOnlyType(first_ + 1) ? 0 : 1;
    }
    if (taken == 0) name_.before.clear();
    first_ += taken;
  }

  bool IsOnlyType(std::size_t from) const { return cut_.type && from + 1 == end_ && !StreetType(words_[from]).empty(); }

  void TakeType() {
    if (Left() < 2) return;
    name_.type = StreetType(words_[end_ - 1]);
    if (!name_.type.empty()) {
      --end_;
      return;
    }
    const std::string front = StreetType(words_[first_]);
    if (Left() == 2 && StandsInFront(front) && IsNumberOrLetter(words_[first_ + 1])) {
      name_.type = front;
      ++first_;
    }
  }

  static bool IsNumberOrLetter(const std::string& word) {
    return IsNumber(word) || IsOrdinal(word) || (word.size() == 1 && IsLetter(word.front()));
  }

  void TakeKey() {
    // A name of one word that could be more stays as it is written: "E St" and "East St" lie in one town.
    if (Left() == 1) {
      const std::string& word = words_[first_];
      name_.key = Direction(word).empty() ? NameWord(word) : word;
      return;
    }
    for (std::size_t i = first_; i < end_; ++i) {
      if (!name_.key.empty()) name_.key += ' ';
      name_.key += NameWord(words_[i]);
    }
  }

  const std::vector<std::string>& words_;
  std::size_t first_ = 0;
  std::size_t end_;
  NameCut cut_;
  StreetName name_;
};

}  // namespace

StreetName StreetOfWords(std::vector<std::string> words, const NameCut& cut) {
  std::erase(words, "#");
  words = WithDigits(words);
  return NameReader(words, cut).Read();
}

StreetName NormalStreet(const std::string& written) {
  StreetName name = StreetOfWords(Words(written));
  name.shown = written;
  return name;
}

}  // namespace streets
