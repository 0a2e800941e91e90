#include "engine/store/postgres/wording/like_test.h"

#include <optional>
#include <string_view>

#include "engine/store/postgres/text/like_regex.h"
#include "engine/store/postgres/wording/names.h"

namespace engine::postgres {
namespace {

// A pattern with a fixed beginning stands behind a range of the index, which nearly all rows pass that lie in it. The planner takes any
// regular expression for one that hardly a row passes, and would rather put the whole range in order than walk it; of a CASE it
// takes half of the rows to pass.
std::string PassedByHalf(const std::string& test) { return "CASE " + test + " WHEN true THEN true WHEN false THEN false END"; }

bool HasFixedBeginning(std::string_view regex) { return regex.starts_with('^') && !regex.starts_with("^.") && regex.ends_with(".*$"); }

std::string Holds(const std::string& value, const SmallLetters& held) {
  return "lower(" + value + " COLLATE \"C\") LIKE '" + held.like + "' COLLATE \"C\"";
}

// What stands anywhere is no empty text, which most remarks are. A value that is put together is so but once.
std::string AnywhereTest(const std::string& value, const std::string& regex, const std::optional<SmallLetters>& held) {
  const bool isField = value.find('(') == std::string::npos;
  const std::string filled = value + " <> '' AND ";
  if (held && held->isAll) return isField ? '(' + filled + Holds(value, *held) + ')' : Holds(value, *held);
  const std::string test = value + " ~ " + QuoteText(regex);
  if (!isField) return test;
  return '(' + filled + (held ? Holds(value, *held) + " AND " : "") + test + ')';
}

}  // namespace

// Parameters are patterns with a fixed beginning always.
std::string LikeTest(const std::string& value, const std::string& parameter) { return PassedByHalf(LikeSubject(value) + " ~ " + parameter); }

std::string KnownLikeTest(const std::string& value, const LikePattern& pattern) {
  const std::string regex = LikeRegex(pattern);
  const std::optional<SmallLetters> held = HeldBy(pattern);
  if (StandsAnywhere(regex)) return AnywhereTest(value, regex, held);
  const std::string test = held ? Holds(pattern.IsLiteral() ? LikeSubject(value) : value, *held) : LikeSubject(value) + " ~ " + QuoteText(regex);
  return HasFixedBeginning(regex) ? PassedByHalf(test) : test;
}

}  // namespace engine::postgres
