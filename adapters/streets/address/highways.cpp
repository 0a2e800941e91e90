#include "streets/address/highways.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "streets/address/states.h"
#include "streets/address/street_types.h"
#include "streets/address/words.h"

namespace streets {

namespace {

struct Form {
  std::string_view written;
  std::string_view type;
};

/// What stands before the number, with the normal forms of "highway", "road" and "route".
constexpr std::array kForms = {
    Form{"US", "US HWY"},
    Form{"US HWY", "US HWY"},
    Form{"US RTE", "US HWY"},
    Form{"USHWY", "US HWY"},
    Form{"U S", "US HWY"},
    Form{"U S HWY", "US HWY"},
    Form{"U S RTE", "US HWY"},
    Form{"UNITED STATES HWY", "US HWY"},
    Form{"FEDERAL HWY", "US HWY"},
    Form{"I", "I"},
    Form{"IH", "I"},
    Form{"INTERSTATE", "I"},
    Form{"INTERSTATE HWY", "I"},
    Form{"HWY", "HWY"},
    Form{"HWY NO", "HWY"},
    Form{"STATE", "STATE HWY"},
    Form{"STATE HWY", "STATE HWY"},
    Form{"STATE RTE", "STATE HWY"},
    Form{"STATE RD", "STATE HWY"},
    Form{"ST HWY", "STATE HWY"},
    Form{"ST RTE", "STATE HWY"},
    Form{"ST RD", "STATE HWY"},
    Form{"SR", "STATE HWY"},
    Form{"SH", "STATE HWY"},
    Form{"S R", "STATE HWY"},
    Form{"RTE", "RTE"},
    Form{"CO RD", "CO RD"},
    Form{"COUNTY RD", "CO RD"},
    Form{"CNTY RD", "CO RD"},
    Form{"CTY RD", "CO RD"},
    Form{"CO HWY", "CO RD"},
    Form{"COUNTY HWY", "CO RD"},
    Form{"CO RTE", "CO RD"},
    Form{"COUNTY RTE", "CO RD"},
    Form{"CR", "CO RD"},
    Form{"C R", "CO RD"},
    Form{"CTH", "CO RD"},
    Form{"FM", "FM RD"},
    Form{"F M", "FM RD"},
    Form{"FM RD", "FM RD"},
    Form{"FARM TO MARKET", "FM RD"},
    Form{"FARM TO MARKET RD", "FM RD"},
    Form{"RM", "RM RD"},
    Form{"RANCH RD", "RM RD"},
    Form{"RANCH TO MARKET RD", "RM RD"},
    Form{"NFS", "NFS RD"},
    Form{"NFS RD", "NFS RD"},
    Form{"NF RD", "NFS RD"},
    Form{"FS RD", "NFS RD"},
    Form{"USFS RD", "NFS RD"},
    Form{"NATIONAL FOREST RD", "NFS RD"},
    Form{"NATIONAL FOREST SERVICE RD", "NFS RD"},
    Form{"FOREST SERVICE RD", "NFS RD"},
    Form{"FOREST RD", "NFS RD"},
    Form{"TWP RD", "TWP RD"},
    Form{"TOWNSHIP RD", "TWP RD"},
    Form{"LOOP", "LOOP"},
    Form{"BIA RD", "BIA RD"},
};

/// The words in front of the number in those forms: "STATE HIWAY" is "STATE HWY".
std::string InForm(const std::vector<std::string>& words, std::size_t first, std::size_t last) {
  std::string text;
  for (std::size_t i = first; i < last; ++i) {
    const std::string type = StreetType(words[i]);
    if (!text.empty()) text += ' ';
    text += type == "HWY" || type == "RD" || type == "RTE" ? type : words[i];
  }
  return text;
}

/// "89", "12B", "A1A", and a county's single letters ("COUNTY RD X").
bool IsHighwayNumber(std::string_view word, std::string_view type) {
  constexpr std::size_t kLongest = 6;
  if (word.empty() || word.size() > kLongest || IsOrdinal(word)) return false;
  const bool hasDigit = std::any_of(word.begin(), word.end(), IsDigit);
  if (!hasDigit) return type == "CO RD" && word.size() <= 2 && std::all_of(word.begin(), word.end(), IsLetter);
  return std::count_if(word.begin(), word.end(), IsLetter) <= 2;
}

/// "MT 287", "MT HWY 287": the state's own highways.
bool NamesState(std::string_view written) {
  const std::size_t blank = written.find(' ');
  if (blank != std::string_view::npos) {
    const std::string_view rest = written.substr(blank + 1);
    if (rest != "HWY" && rest != "RTE") return false;
    written = written.substr(0, blank);
  }
  return IsStateCode(written) && written != "CT" && written != "AL";
}

}  // namespace

std::optional<Highway> HighwayOf(const std::vector<std::string>& words, std::size_t first, std::size_t last) {
  constexpr std::size_t kMostWords = 6;
  // "IL 62701" is a state and a ZIP.
  constexpr std::size_t kMostDigitsBehindState = 4;
  if (last <= first + 1 || last - first > kMostWords) return std::nullopt;
  const std::string& number = words[last - 1];
  const std::string written = InForm(words, first, last - 1);
  const auto found = std::find_if(kForms.begin(), kForms.end(), [&](const Form& form) { return form.written == written; });
  std::string type;
  if (found != kForms.end()) {
    type = found->type;
  } else if (number.size() <= kMostDigitsBehindState && NamesState(written)) {
    type = "STATE HWY";
  }
  if (type.empty() || !IsHighwayNumber(number, type)) return std::nullopt;
  return Highway{type, number};
}

}  // namespace streets
