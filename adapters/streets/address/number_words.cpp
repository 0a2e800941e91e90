#include "streets/address/number_words.h"

#include <algorithm>
#include <array>

#include "streets/address/sound.h"

namespace streets {

namespace {

struct Number {
  std::string_view cardinal;
  std::string_view ordinal;
  std::int64_t value;
};

constexpr std::array kNumbers = {
    Number{"ONE", "FIRST", 1},
    Number{"TWO", "SECOND", 2},
    Number{"THREE", "THIRD", 3},
    Number{"FOUR", "FOURTH", 4},
    Number{"FIVE", "FIFTH", 5},
    Number{"SIX", "SIXTH", 6},
    Number{"SEVEN", "SEVENTH", 7},
    Number{"EIGHT", "EIGHTH", 8},
    Number{"NINE", "NINTH", 9},
    Number{"TEN", "TENTH", 10},
    Number{"ELEVEN", "ELEVENTH", 11},
    Number{"TWELVE", "TWELFTH", 12},
    Number{"THIRTEEN", "THIRTEENTH", 13},
    Number{"FOURTEEN", "FOURTEENTH", 14},
    Number{"FIFTEEN", "FIFTEENTH", 15},
    Number{"SIXTEEN", "SIXTEENTH", 16},
    Number{"SEVENTEEN", "SEVENTEENTH", 17},
    Number{"EIGHTEEN", "EIGHTEENTH", 18},
    Number{"NINETEEN", "NINETEENTH", 19},
    Number{"TWENTY", "TWENTIETH", 20},
    Number{"THIRTY", "THIRTIETH", 30},
    Number{"FORTY", "FORTIETH", 40},
    Number{"FIFTY", "FIFTIETH", 50},
    Number{"SIXTY", "SIXTIETH", 60},
    Number{"SEVENTY", "SEVENTIETH", 70},
    Number{"EIGHTY", "EIGHTIETH", 80},
    Number{"NINETY", "NINETIETH", 90},
};

std::optional<WordedNumber> One(std::string_view word) {
  constexpr std::size_t kShortest = 3;
  constexpr std::size_t kLongest = 11;
  if (word.size() < kShortest || word.size() > kLongest) return std::nullopt;
  for (const Number& number : kNumbers)
    if (word == number.cardinal || word == number.ordinal) return WordedNumber{1, number.value, word == number.ordinal};
  return std::nullopt;
}

}  // namespace

std::optional<WordedNumber> NumberInWords(const std::vector<std::string>& words, std::size_t first) {
  if (first >= words.size()) return std::nullopt;
  auto number = One(words[first]);
  const bool isTens = number && !number->ordinal && number->number >= 20;
  if (!isTens || first + 1 >= words.size()) return number;
  const auto ones = One(words[first + 1]);
  if (ones && ones->number < 10) number = WordedNumber{2, number->number + ones->number, ones->ordinal};
  return number;
}

std::string MendedNumberWord(std::string_view word) {
  constexpr std::size_t kShortest = 5;
  for (const Number& number : kNumbers)
    for (const std::string_view right : {number.cardinal, number.ordinal})
      if (right.size() >= kShortest && !word.empty() && right.front() == word.front() && EditDistance(word, right, 1) == 1)
        return std::string(right);
  return "";
}

std::string Ordinal(std::int64_t number) {
  const std::int64_t ones = number % 10;
  const bool isTeen = number % 100 / 10 == 1;
  const char* ending = isTeen ? "TH" : ones == 1 ? "ST" : ones == 2 ? "ND" : ones == 3 ? "RD" : "TH";
  return std::to_string(number) + ending;
}

}  // namespace streets
