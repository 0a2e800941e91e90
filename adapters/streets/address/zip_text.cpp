#include "streets/address/zip_text.h"

#include <algorithm>

#include "streets/address/highways.h"
#include "streets/address/words.h"

namespace streets {

namespace {

constexpr std::size_t kZip = 5;
constexpr std::size_t kPlusFour = 4;

/// Letters that are taken for digits in a word that is digits else.
std::string WithDigits(std::string word) {
  constexpr int kFewest = 3;
  if (std::count_if(word.begin(), word.end(), IsDigit) < kFewest) return word;
  for (char& character : word) {
    if (character == 'O') character = '0';
    if (character == 'I' || character == 'L') character = '1';
  }
  return word;
}

WrittenZip OfOneWord(const std::string& written) {
  const std::string word = WithDigits(written);
  const std::size_t end = std::min(word.find_first_not_of("0123456789"), word.size());
  const std::string first = word.substr(0, end);
  const std::string rest = word.substr(end);
  const bool changed = word != written;
  if (first.size() == kZip && rest.empty()) return {first, !changed};
  if (first.size() == kZip && rest.front() == '-') return {first, !changed && rest.size() == kPlusFour + 1 && IsNumber(rest.substr(1))};
  if (!rest.empty()) return {};
  if (first.size() == 3 || first.size() == 4) return {std::string(kZip - first.size(), '0') + first, false};
  if (first.size() > kZip) return {first.substr(0, kZip), !changed && first.size() == kZip + kPlusFour};
  return {};
}

}  // namespace

WrittenZip ZipOf(const std::vector<std::string>& words) {
  if (words.size() == 1) return OfOneWord(words.front());
  const bool isSplit = words.size() == 2 && words[0].size() == kZip && words[1].size() <= kPlusFour && IsNumber(words[1]);
  if (!isSplit) return {};
  WrittenZip zip = OfOneWord(words[0]);
  zip.whole = zip.whole && words[1].size() == kPlusFour;
  return zip;
}

WrittenZip TakeZip(std::vector<std::string>& words) {
  if (words.size() < 2) return {};
  const WrittenZip zip = OfOneWord(words.back());
  if (!zip.whole) return {};
  constexpr std::size_t kMostHighwayWords = 6;
  for (std::size_t first = words.size() - std::min(words.size(), kMostHighwayWords); first < words.size(); ++first)
    if (HighwayOf(words, first, words.size())) return {};
  words.pop_back();
  return zip;
}

}  // namespace streets
