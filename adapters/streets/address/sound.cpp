#include "streets/address/sound.h"

#include <algorithm>
#include <array>
#include <vector>

#include "streets/address/words.h"

namespace streets {

namespace {

/// The class of each letter from A on; "0" for those that only part equal classes. H and W do not even that.
constexpr std::string_view kClasses = "01230120022455012623010202";
constexpr std::size_t kCodeLength = 4;

char Capital(char character) { return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character; }

char ClassOf(char letter) { return kClasses[static_cast<std::size_t>(letter - 'A')]; }

std::string DigitsOf(std::string_view text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits), IsDigit);
  return digits;
}

/// The longest texts compared; names of streets are shorter.
constexpr std::size_t kLongest = 60;

}  // namespace

std::string Soundex(const std::string& name) {
  std::string code;
  char last = '0';
  for (const char written : name) {
    if (code.size() == kCodeLength) break;
    if (!IsLetter(written)) {
      if (code.empty() && IsDigit(written)) code = written;
      continue;
    }
    const char letter = Capital(written);
    if (code.empty()) {
      code = letter;
      last = ClassOf(letter);
    } else if (letter != 'H' && letter != 'W') {
      const char kind = ClassOf(letter);
      if (kind != '0' && kind != last) code += kind;
      last = kind;
    }
  }
  if (!code.empty()) code.resize(kCodeLength, '0');
  return code;
}

int EditDistance(std::string_view left, std::string_view right, int most) {
  const auto apart = static_cast<int>(std::max(left.size(), right.size()) - std::min(left.size(), right.size()));
  if (apart > most || left.size() > kLongest || right.size() > kLongest || DigitsOf(left) != DigitsOf(right)) return most + 1;
  // Three rows of the table of distances between beginnings.
  std::array<std::array<int, kLongest + 1>, 3> rows{};
  std::array<int, kLongest + 1>* before = &rows[0];
  std::array<int, kLongest + 1>* last = &rows[1];
  std::array<int, kLongest + 1>* now = &rows[2];
  for (std::size_t j = 0; j <= right.size(); ++j) (*last)[j] = static_cast<int>(j);
  for (std::size_t i = 1; i <= left.size(); ++i) {
    (*now)[0] = static_cast<int>(i);
    int least = (*now)[0];
    for (std::size_t j = 1; j <= right.size(); ++j) {
      const int change = (*last)[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
      int best = std::min({change, (*last)[j] + 1, (*now)[j - 1] + 1});
      if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) best = std::min(best, (*before)[j - 2] + 1);
      (*now)[j] = best;
      least = std::min(least, best);
    }
    if (least > most) return most + 1;
    std::swap(before, last);
    std::swap(last, now);
  }
  return std::min((*last)[right.size()], most + 1);
}

}  // namespace streets
