#include "engine/store/postgres/text/like_regex.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>

#include "engine/store/postgres/text/characters.h"
#include "platform/values/text.h"

namespace engine::postgres {
namespace {

using weights::Weights;

bool IsLetterOrDigit(char32_t c) { return (c >= U'0' && c <= U'9') || (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z'); }

// Everything but letters and digits by its number, so that no sign can mean something.
void AppendCharacter(std::string& regex, char32_t character) {
  if (IsLetterOrDigit(character)) {
    regex += static_cast<char>(character);
    return;
  }
  std::array<char, 16> escape{};
  std::snprintf(escape.data(), escape.size(), character < 0x10000 ? "\\u%04X" : "\\U%08X", static_cast<unsigned>(character));
  regex += escape.data();
}

void AppendRange(std::string& regex, CharacterRange range) {
  AppendCharacter(regex, range.first);
  if (range.first == range.last) return;
  regex += '-';
  AppendCharacter(regex, range.last);
}

// Those of the runs whose weights lie within first and last. Weights of plain characters rise with their code points.
void AppendPlain(std::string& regex, const std::vector<CharacterRange>& runs, const Weights& first, const Weights& last) {
  if (runs.empty()) return;
  const weights::Rank rank = weights::RankOf(weights::WeightsOf(runs.front().first).primary[0]);
  const auto weightsOf = [rank](char32_t character) {
    Weights own;
    own.primary[0] = weights::MakePrimary(rank, character);
    own.primaryCount = 1;
    return own;
  };
  // The first code point from which on `behind` holds; one behind the highest if none.
  const auto border = [](const auto& behind) {
    char32_t low = 0;
    char32_t high = platform::kHighestCodePoint + 1;
    while (low < high) {
      const char32_t middle = low + (high - low) / 2;
      if (behind(middle))
        high = middle;
      else
        low = middle + 1;
    }
    return low;
  };
  const char32_t from = border([&](char32_t character) { return weightsOf(character) >= first; });
  const char32_t behind = border([&](char32_t character) { return weightsOf(character) > last; });
  for (const CharacterRange& run : runs) {
    if (run.last < from || run.first >= behind) continue;
    const CharacterRange part{std::max(run.first, from), std::min<char32_t>(run.last + 1, behind) - 1};
    if (part.first <= part.last) AppendRange(regex, part);
  }
}

void AppendSpecial(std::string& regex, const Weights& first, const Weights& last) {
  const auto& special = AllCharacters().special;
  auto at = std::lower_bound(special.begin(), special.end(), first,
                             [](const SpecialCharacter& one, const Weights& weights) { return one.weights < weights; });
  for (; at != special.end() && at->weights <= last; ++at) AppendCharacter(regex, at->character);
}

std::string ClassOf(const LikePattern::Token& token) {
  std::string members;
  for (const LikePattern::Range& range : token.ranges) {
    AppendSpecial(members, range.first, range.last);
    AppendPlain(members, AllCharacters().symbols, range.first, range.last);
    AppendPlain(members, AllCharacters().letters, range.first, range.last);
  }
  return (token.negated ? "[^" : "[") + members + ']';
}

// The small letter or the digit that a token takes, and that in capitals; if it takes nothing else, or others behind them.
std::optional<char> OneLetter(const LikePattern::Token& token, bool maybeOthers) {
  using Kind = LikePattern::Token::Kind;
  if (token.kind != Kind::Literal && token.kind != Kind::List) return {};
  const std::string members = ClassOf(token);
  const auto takes = [&](const std::string& letters) { return maybeOthers ? members.starts_with(letters) : members == letters + ']'; };
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    const char capital = static_cast<char>(letter - 'a' + 'A');
    if (takes({'[', letter, capital}) || takes({'[', capital, letter})) return letter;
  }
  for (char digit = '0'; digit <= '9'; ++digit)
    if (takes({'[', digit})) return digit;
  return {};
}

bool TakesBlanks(const LikePattern::Token& token) {
  const Weights blank = weights::WeightsOf(U' ');
  return token.negated || std::ranges::any_of(token.ranges, [&](const LikePattern::Range& range) { return !(blank < range.first) && !(range.last < blank); });
}

bool NeedsNoAnchors(std::span<const LikePattern::Token> tokens) {
  using Kind = LikePattern::Token::Kind;
  if (tokens.size() < 3 || tokens.front().kind != Kind::AnyRun || tokens.back().kind != Kind::AnyRun) return false;
  const LikePattern::Token& last = tokens[tokens.size() - 2];
  return last.kind == Kind::Digit || ((last.kind == Kind::Literal || last.kind == Kind::List) && !TakesBlanks(last));
}

}  // namespace

bool StandsAnywhere(std::string_view regex) { return !regex.starts_with('^'); }

std::string LikeRegex(const LikePattern& pattern) {
  using Kind = LikePattern::Token::Kind;
  std::span<const LikePattern::Token> tokens = pattern.Tokens();
  const bool anywhere = NeedsNoAnchors(tokens);
  if (anywhere) tokens = tokens.subspan(1, tokens.size() - 2);
  std::string regex = anywhere ? "" : "^";
  for (const LikePattern::Token& token : tokens) {
    switch (token.kind) {
      case Kind::AnyRun:
        regex += ".*";
        break;
      case Kind::AnyCharacter:
        regex += '.';
        break;
      case Kind::Digit:
        regex += "[0-9]";
        break;
      case Kind::Literal:
      case Kind::List:
        regex += ClassOf(token);
        break;
    }
  }
  return anywhere ? regex : regex + '$';
}

std::optional<SmallLetters> HeldBy(const LikePattern& pattern) {
  using Kind = LikePattern::Token::Kind;
  const bool anywhere = NeedsNoAnchors(pattern.Tokens());
  SmallLetters held{.like = {}, .isAll = true};
  bool holdsAny = false;
  for (const LikePattern::Token& token : pattern.Tokens()) {
    const std::optional<char> letter = OneLetter(token, false);
    held.like += token.kind == Kind::AnyRun ? '%' : letter.value_or('_');
    held.isAll = held.isAll && (letter || token.kind == Kind::AnyRun || token.kind == Kind::AnyCharacter);
    holdsAny = holdsAny || letter;
  }
  const bool begins = held.isAll && (pattern.IsPrefixOnly() || pattern.IsLiteral());
  if (!holdsAny || !(anywhere || begins)) return {};
  return held;
}

std::optional<SmallLetters> CertainBeginning(const LikePattern& pattern) {
  using Kind = LikePattern::Token::Kind;
  if (!pattern.IsPrefixOnly()) return {};
  SmallLetters certain;
  for (const LikePattern::Token& token : pattern.Tokens()) {
    const std::optional<char> letter = OneLetter(token, true);
    if (!letter && token.kind != Kind::AnyRun) return {};
    certain.like += letter.value_or('%');
  }
  return certain;
}

std::string LikeSubject(const std::string& text) { return "rtrim(" + text + ", chr(32) || chr(9) || chr(160))"; }

}  // namespace engine::postgres
