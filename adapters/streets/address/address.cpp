#include "streets/address/address.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "streets/address/directions.h"
#include "streets/address/house_number.h"
#include "streets/address/states.h"
#include "streets/address/street_types.h"
#include "streets/address/unit_words.h"
#include "streets/address/words.h"

namespace streets {

namespace {

using WordList = std::vector<std::string>;

/// More words than any street line has; the rest says nothing.
constexpr std::size_t kMostWords = 24;

std::vector<WordList> PartsOf(std::string_view text) {
  std::vector<WordList> parts;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(',', at), text.size());
    if (WordList words = Words(text.substr(at, end - at)); !words.empty()) parts.push_back(std::move(words));
    at = end + 1;
  }
  return parts;
}

bool IsCountry(const WordList& words) {
  const std::string text = words.size() > 4 ? "" : Join(words);
  return text == "USA" || text == "US" || text == "U S A" || text == "U S" || text == "UNITED STATES" || text == "UNITED STATES OF AMERICA";
}

/// The state that a part's last words name, which are taken off; the first word stays in any case. A code that is also a type of
/// street or a direction ("CT", "NE") only counts where a ZIP stood behind it.
std::string TakeState(WordList& words, bool zipBehind) {
  constexpr std::size_t kMostStateWords = 3;
  for (std::size_t count = std::min(kMostStateWords, words.size() - 1); count > 0; --count) {
    const std::size_t first = words.size() - count;
    const std::string state = StateCode(Join(words, first));
    const bool isOther = count == 1 && (!StreetType(words.back()).empty() || !Direction(words.back()).empty());
    if (state.empty() || (isOther && !zipBehind)) continue;
    words.resize(first);
    return state;
  }
  return "";
}

bool BeginsLikeAStreetLine(const WordList& words) { return LeadingHouseNumber(words) || NamesNoStreet(words) || words.front() == "#"; }

class AddressReader {
 public:
  explicit AddressReader(std::string_view text) : parts_(PartsOf(text)) {}

  Address Read() {
    if (parts_.size() > 1 && IsCountry(parts_.back())) parts_.pop_back();
    ReadZip();
    ReadState();
    ReadCity();
    ReadStreet();
    return std::move(address_);
  }

 private:
  void ReadZip() {
    if (parts_.empty()) return;
    address_.zip = ZipOf(parts_.back());
    if (address_.zip) {
      parts_.pop_back();
    } else if ((address_.zip = TakeZip(parts_.back()))) {
      zipInside_ = true;
    }
  }

  void ReadState() {
    if (parts_.empty()) return;
    WordList& last = parts_.back();
    const std::string state = last.size() > 4 ? "" : StateCode(Join(last));
    if (!state.empty()) {
      address_.state = state;
      // "New York" can be the town as well.
      if (state != last.front() || last.size() > 1) nameOfState_ = last;
      parts_.pop_back();
      return;
    }
    const bool couldHoldState = zipInside_ || parts_.size() > 1 || !BeginsLikeAStreetLine(last);
    if (couldHoldState && last.size() > 1) address_.state = TakeState(last, zipInside_);
  }

  void ReadCity() {
    if (parts_.size() > 1 && !IsOnlyUnit(parts_.back())) {
      address_.city = std::move(parts_.back());
      parts_.pop_back();
    } else if (parts_.size() == 1) {
      address_.streetMayBeCity = true;
    }
    if (address_.city.empty() && !address_.streetMayBeCity) address_.city = nameOfState_;
    if (address_.city.empty() && !parts_.empty() && BeginsLikeAStreetLine(parts_.front())) address_.city = nameOfState_;
    if (address_.city.size() > kMostWords) address_.city.resize(kMostWords);
  }

  void ReadStreet() {
    std::erase_if(parts_, IsOnlyUnit);
    if (parts_.empty()) return;
    // Of several parts the one that begins with the number: "c/o Smith, 100 Main St".
    auto part = std::find_if(parts_.begin(), parts_.end(), BeginsLikeAStreetLine);
    if (part == parts_.end()) part = parts_.begin();
    WordList& words = *part;
    address_.noStreet = NamesNoStreet(words);
    if (address_.noStreet) return;
    CutBox(words);
    CutUnit(words);
    if (words.size() > kMostWords) words.resize(kMostWords);
    address_.street = std::move(words);
  }

  std::vector<WordList> parts_;
  bool zipInside_ = false;  ///< the ZIP stood in one part with others
  WordList nameOfState_;
  Address address_;
};

}  // namespace

Address ParseAddress(const std::string& text) { return AddressReader(text).Read(); }

}  // namespace streets
