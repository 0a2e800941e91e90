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

bool IsField(const std::string& value) { return value.find('(') == std::string::npos; }

// A text that matches has as many bytes as the pattern, or more with blanks behind: most texts needn't be cut. A value that is put together
// is so but once.
std::string IsTest(const std::string& value, const SmallLetters& held) {
  const auto is = [&](const std::string& text) { return "lower(" + text + " COLLATE \"C\") = '" + held.like + '\''; };
  if (!IsField(value)) return is(LikeSubject(value));
  const std::string length = "octet_length(" + value + ')';
  const std::string bytes = std::to_string(held.like.size());
  return '(' + length + " = " + bytes + " AND " + is(value) + " OR " + length + " > " + bytes + " AND " + is(LikeSubject(value)) + ')';
}

// Of a range of the index nearly all rows begin with the letters themselves, and few with others that look like them.
std::string BeginsTest(const std::string& value, const std::string& regex, const LikePattern& pattern) {
  const std::string test = LikeSubject(value) + " ~ " + QuoteText(regex);
  const std::optional<SmallLetters> certain = CertainBeginning(pattern);
  return certain && IsField(value) ? '(' + Holds(value, *certain) + " OR " + test + ')' : test;
}

// What stands anywhere is no empty text, which most remarks are.
std::string AnywhereTest(const std::string& value, const std::string& regex, const std::optional<SmallLetters>& held) {
  const bool isField = IsField(value);
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
  if (held && pattern.IsLiteral()) return IsTest(value, *held);
  if (!HasFixedBeginning(regex)) return LikeSubject(value) + " ~ " + QuoteText(regex);
  return PassedByHalf(held ? Holds(value, *held) : BeginsTest(value, regex, pattern));
}

}  // namespace engine::postgres
