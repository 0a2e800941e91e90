#include "streets/address/reading.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "streets/address/directions.h"
#include "streets/address/house_number.h"
#include "streets/address/number_words.h"
#include "streets/address/street_name.h"
#include "streets/address/street_types.h"
#include "streets/address/words.h"

namespace streets {

namespace {

using WordList = std::vector<std::string>;

constexpr int kOtherCut = 2;
constexpr int kLetterBehindNumber = 2;
constexpr int kOrdinal = 2;
constexpr int kNumberInWords = 3;
constexpr int kNumberIsName = 4;
constexpr int kWordTooMany = 5;
constexpr int kMisspeltType = 5;
constexpr int kMisspeltNumber = 5;
constexpr int kHyphen = 6;
constexpr int kNumberBehind = 6;

WordList From(const WordList& words, std::size_t first) { return {words.begin() + static_cast<std::ptrdiff_t>(first), words.end()}; }

bool IsOnlyType(const WordList& words) { return words.size() == 1 && !StreetType(words.front()).empty(); }

std::int64_t ValueOf(std::string_view digits) {
  std::int64_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

/// All the ways to understand words, gathered.
class ReadingMaker {
 public:
  std::vector<Reading> Make(const WordList& words) {
    const auto number = LeadingHouseNumber(words);
    if (number && number->words < words.size()) {
      const WordList name = From(words, number->words);
      // "1 Rd" is the road 1.
      AddNumbered(number->number, name, IsOnlyType(name) ? kNumberIsName : 0);
      AddNames(std::nullopt, words, IsOnlyType(name) ? 0 : kNumberIsName);
    } else {
      AddNames(std::nullopt, words, 0);
      AddNumberInWords(words);
      AddNumberBehind(words);
    }
    std::stable_sort(made_.begin(), made_.end(), [](const Reading& left, const Reading& right) { return left.cost < right.cost; });
    return std::move(made_);
  }

 private:
  void AddNumbered(const HouseNumber& number, const WordList& name, int cost) {
    AddNames(number, name, cost);
    AddLetterBehindNumber(number, name, cost);
    AddHyphens(number, name, cost);
  }

  /// "12 B MAIN ST" is number 12B; directions stay with the name. "12 REAR ELM ST" is the house behind 12.
  void AddLetterBehindNumber(const HouseNumber& number, const WordList& name, int cost) {
    if (!number.suffix.empty() || name.size() < 2) return;
    const bool isLetter = name.front().size() == 1 && IsLetter(name.front().front()) && Direction(name.front()).empty();
    const bool isRear = name.front() == "REAR" && !IsOnlyType(From(name, 1));
    if (!isLetter && !isRear) return;
    HouseNumber lettered = number;
    lettered.suffix = name.front();
    AddNames(lettered, From(name, 1), cost + kLetterBehindNumber);
  }

  /// "100-104" can be the houses 100 to 104, "24320" the house 243-20.
  void AddHyphens(const HouseNumber& number, const WordList& name, int cost) {
    if (!number.prefix.empty() && number.prefix.back() == '-') {
      const std::string first = number.prefix.substr(0, number.prefix.size() - 1);
      if (IsNumber(first) && first.size() < 10) AddNames(HouseNumber{"", ValueOf(first), ""}, name, cost + kHyphen);
      return;
    }
    const std::string digits = std::to_string(number.number);
    if (!number.prefix.empty() || digits.size() < 4 || digits.size() > 5) return;
    const std::size_t split = digits.size() - 2;
    AddNames(HouseNumber{digits.substr(0, split) + "-", ValueOf(digits.substr(split)), number.suffix}, name, cost + kHyphen);
  }

  /// "ONE MAIN ST".
  void AddNumberInWords(const WordList& words) {
    const auto number = NumberInWords(words, 0);
    if (!number || number->ordinal || number->words >= words.size()) return;
    AddNames(HouseNumber{"", number->number, ""}, From(words, number->words), kNumberInWords);
  }

  /// "MAIN ST 100".
  void AddNumberBehind(const WordList& words) {
    if (words.size() < 2) return;
    const auto number = HouseNumberOf(words.back());
    if (number) AddNames(number, WordList(words.begin(), words.end() - 1), kNumberBehind);
  }

  void AddNames(const std::optional<HouseNumber>& number, const WordList& words, int cost) {
    const StreetName plain = StreetOfWords(words);
    Add(number, plain, cost);
    if (!plain.type.empty()) AddCut(number, words, {true, false, true}, cost + kOtherCut);
    if (!plain.before.empty()) AddCut(number, words, {false, true, true}, cost + kOtherCut);
    if (!plain.behind.empty()) AddCut(number, words, {true, true, false}, cost + kOtherCut);
    AddOtherKeys(number, plain, cost);
    if (words.size() < 2) return;
    AddMisspeltType(number, words, cost);
    AddMisspeltNumber(number, words, cost);
    AddWithoutLast(number, words, plain, cost);
  }

  void AddCut(const std::optional<HouseNumber>& number, const WordList& words, const NameCut& cut, int cost) {
    Add(number, StreetOfWords(words, cut), cost);
  }

  /// "3 AVE" for "3RD AVE" and the other way round; "N ST" for "NORTH ST" and the other way round.
  void AddOtherKeys(const std::optional<HouseNumber>& number, const StreetName& plain, int cost) {
    StreetName other = plain;
    if (IsNumber(plain.key) && plain.key.size() < 10) {
      other.key = Ordinal(ValueOf(plain.key));
    } else if (IsOrdinal(plain.key)) {
      other.key = plain.key.substr(0, plain.key.size() - 2);
    } else if (const std::string direction = Direction(plain.key); !direction.empty()) {
      other.key = plain.key == direction ? DirectionInFull(direction) : direction;
    } else {
      return;
    }
    Add(number, other, cost + kOrdinal);
  }

  /// "MAIN STREAT", also before a direction.
  void AddMisspeltType(const std::optional<HouseNumber>& number, const WordList& words, int cost) {
    const std::size_t last = words.size() - 1;
    for (const std::size_t at : {last, last - 1}) {
      const std::string type = at == 0 || !StreetType(words[at]).empty() ? "" : MisspeltStreetType(words[at]);
      if (type.empty() || (at < last && Direction(words[last]).empty())) continue;
      WordList mended = words;
      mended[at] = type;
      Add(number, StreetOfWords(mended), cost + kMisspeltType);
    }
  }

  /// "SIXTEN MILE RD".
  void AddMisspeltNumber(const std::optional<HouseNumber>& number, const WordList& words, int cost) {
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
      const std::string mended = NumberInWords(words, i) ? "" : MendedNumberWord(words[i]);
      if (mended.empty()) continue;
      WordList other = words;
      other[i] = mended;
      Add(number, StreetOfWords(other), cost + kMisspeltNumber);
    }
  }

  /// "MAIN ST 5B": a part of the building without its word.
  void AddWithoutLast(const std::optional<HouseNumber>& number, const WordList& words, const StreetName& plain, int cost) {
    const std::string& last = words.back();
    const bool couldBeUnit = last.size() == 1 || std::any_of(last.begin(), last.end(), IsDigit);
    if (words.size() < 3 || !plain.type.empty() || !plain.behind.empty() || !couldBeUnit || IsOrdinal(last)) return;
    Add(number, StreetOfWords(WordList(words.begin(), words.end() - 1)), cost + kWordTooMany);
  }

  void Add(const std::optional<HouseNumber>& number, const StreetName& street, int cost) {
    if (street.key.empty()) return;
    const auto same =
        std::find_if(made_.begin(), made_.end(), [&](const Reading& one) { return one.number == number && one.street == street; });
    if (same == made_.end()) {
      made_.push_back({number, street, cost});
    } else {
      same->cost = std::min(same->cost, cost);
    }
  }

  std::vector<Reading> made_;
};

}  // namespace

Reading PlainReading(const std::vector<std::string>& words) {
  const auto number = LeadingHouseNumber(words);
  if (!number || number->words >= words.size()) return {std::nullopt, StreetOfWords(words), 0};
  const WordList name = From(words, number->words);
  if (IsOnlyType(name)) return {std::nullopt, StreetOfWords(words), 0};
  return {number->number, StreetOfWords(name), 0};
}

std::vector<Reading> OtherReadings(const std::vector<std::string>& words) {
  std::vector<Reading> readings = ReadingMaker().Make(words);
  std::erase(readings, PlainReading(words));
  return readings;
}

}  // namespace streets
