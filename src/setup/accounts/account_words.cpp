#include "setup/accounts/account_words.h"

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <string_view>

#include "session/ModCustSch.h"

namespace orcussch {

namespace {

constexpr std::size_t kAccountDigits = 5;

bool IsFigure(char character) { return character >= '0' && character <= '9'; }
bool AllFigures(std::string_view text) { return std::all_of(text.begin(), text.end(), IsFigure); }

/// The text itself as a pattern.
std::string Literally(std::string_view text) {
  std::string pattern;
  for (const char character : text) {
    const bool wild = std::string_view("*?#[").find(character) != std::string_view::npos;
    pattern += wild ? std::string{'[', character, ']'} : std::string{character};
  }
  return pattern;
}

std::string Begins(const char* field, std::string_view text) { return field + (" Like " + Quoted(Literally(text) + "*")); }
std::string Holds(const char* field, std::string_view text) { return field + (" Like " + Quoted("*" + Literally(text) + "*")); }

/// An account's figures and those of its department behind them.
std::string NumberCriterion(std::string_view account, std::string_view department) {
  return Begins("GL.Account", account) + " And " + Begins("GL.DeptNumber", department);
}

std::string WordCriterion(std::string_view word) {
  const std::size_t dash = word.find('-');
  if (dash != std::string_view::npos && dash > 0 && AllFigures(word.substr(0, dash)) && AllFigures(word.substr(dash + 1)))
    return NumberCriterion(word.substr(0, dash), word.substr(dash + 1));
  const std::string described = Holds("Accounts.AccountDescription", word);
  if (!AllFigures(word)) return described + " Or " + Holds("Departments.DeptDescription", word);
  if (word.size() > kAccountDigits) return NumberCriterion(word.substr(0, kAccountDigits), word.substr(kAccountDigits));
  return Begins("GL.Account", word) + " Or " + described;
}

}  // namespace

std::string AccountCriterion(const std::string& typed) {
  std::istringstream words(typed);
  std::string criterion;
  for (std::string word; words >> word;) criterion += (criterion.empty() ? "(" : " And (") + WordCriterion(word) + ")";
  return criterion;
}

}  // namespace orcussch
