#include "engine/text/like.h"

#include <algorithm>

#include "engine/text/text_order.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

namespace engine {

LikePattern::LikePattern(std::string_view pattern) {
  const std::u32string characters = platform::ToCodePoints(WithoutTrailingBlanks(pattern));
  for (std::size_t at = 0; at < characters.size();) {
    const char32_t character = characters[at++];
    switch (character) {
      case U'*':
        AddRun();
        break;
      case U'?':
        tokens_.push_back({Token::Kind::AnyCharacter});
        break;
      case U'#':
        tokens_.push_back({Token::Kind::Digit});
        break;
      case U'[':
        AddList(characters, at);
        break;
      default:
        AddLiteral(character);
    }
  }
  for (Token& token : tokens_) FindAscii(token);
  for (const Token& token : tokens_) {
    if (token.kind != Token::Kind::Literal) break;
    platform::AppendCodePoint(fixedPrefix_, token.character);
  }
}

void LikePattern::AddLiteral(char32_t character) {
  const auto own = weights::WeightsOf(character);
  Token token{Token::Kind::Literal, character};
  token.ranges.push_back(Range{own, own});
  tokens_.push_back(std::move(token));
}

void LikePattern::AddRun() {
  if (tokens_.empty() || tokens_.back().kind != Token::Kind::AnyRun) tokens_.push_back({Token::Kind::AnyRun});
}

void LikePattern::AddList(std::u32string_view pattern, std::size_t& at) {
  const std::size_t end = pattern.find(U']', at);
  if (end == std::u32string_view::npos) throw platform::error::InvalidPattern();
  std::u32string_view list = pattern.substr(at, end - at);
  at = end + 1;
  if (list.empty()) return;  // "[]" stands for no character

  Token token{Token::Kind::List};
  if (list.size() > 1 && list[0] == U'!') {
    token.negated = true;
    list.remove_prefix(1);
  }
  for (std::size_t i = 0; i < list.size(); ++i) {
    const bool isRange = list[i] != U'-' && i + 2 < list.size() && list[i + 1] == U'-';
    const Range range{weights::WeightsOf(list[i]), weights::WeightsOf(list[isRange ? i + 2 : i])};
    if (range.first > range.last) throw platform::error::InvalidPattern();
    token.ranges.push_back(range);
    if (isRange) i += 2;
  }
  if (list.size() == 1 && !token.negated)
    AddLiteral(list[0]);
  else
    tokens_.push_back(std::move(token));
}

bool LikePattern::TakesCharacter(const Token& token, char32_t character) {
  switch (token.kind) {
    case Token::Kind::AnyRun:
      return false;
    case Token::Kind::AnyCharacter:
      return true;
    case Token::Kind::Digit:
      return character >= U'0' && character <= U'9';
    case Token::Kind::Literal:
    case Token::Kind::List:
      break;
  }
  const auto own = weights::WeightsOf(character);
  const bool listed =
      std::any_of(token.ranges.begin(), token.ranges.end(), [&](const Range& range) { return range.first <= own && own <= range.last; });
  return listed != token.negated;
}

void LikePattern::FindAscii(Token& token) {
  if (token.kind == Token::Kind::Literal) {  // the usual case, and it has a short way: one rank each
    const weights::Weights& own = token.ranges[0].first;
    if (own.primaryCount != 1 || own.accentCount != 0) return;
    for (char32_t ascii = 0; ascii < 0x80; ++ascii)
      token.takesAscii[ascii] = weights::MakePrimary(weights::kAsciiRanks[ascii]) == own.primary[0];
    return;
  }
  for (char32_t ascii = 0; ascii < 0x80; ++ascii) token.takesAscii[ascii] = TakesCharacter(token, ascii);
}

bool LikePattern::TakesNext(const Token& token, std::string_view text, std::size_t& at) {
  const auto byte = static_cast<unsigned char>(text[at]);
  if (byte < 0x80) {
    if (!token.takesAscii[byte]) return false;
    ++at;
    return true;
  }
  std::size_t next = at;
  if (!TakesCharacter(token, platform::NextCodePoint(text, next))) return false;
  at = next;
  return true;
}

std::size_t LikePattern::NextStart(const Token& token, std::string_view text, std::size_t at) {
  for (; at < text.size(); ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const bool startsCharacter = (byte & 0xC0) != 0x80;
    if (byte < 0x80 ? token.takesAscii[byte] : startsCharacter) break;
  }
  return at;
}

bool LikePattern::Matches(std::string_view text) const {
  text = WithoutTrailingBlanks(text);

  // Only the last run passed needs another try: what an earlier one could take, the later one can take too.
  constexpr std::size_t kNoRun = static_cast<std::size_t>(-1);
  std::size_t token = 0;
  std::size_t at = 0;
  std::size_t lastRun = kNoRun;
  std::size_t start = 0;  // where the tokens behind that run were last tried
  while (at < text.size()) {
    if (token < tokens_.size() && tokens_[token].kind == Token::Kind::AnyRun) {
      lastRun = token++;
      if (token == tokens_.size()) return true;
      at = start = NextStart(tokens_[token], text, at);
      continue;
    }
    if (token < tokens_.size() && TakesNext(tokens_[token], text, at)) {
      ++token;
      continue;
    }
    if (lastRun == kNoRun) return false;
    token = lastRun + 1;
    at = start = NextStart(tokens_[token], text, start + 1);
  }
  while (token < tokens_.size() && tokens_[token].kind == Token::Kind::AnyRun) ++token;
  return token == tokens_.size();
}

bool LikePattern::IsLiteral() const {
  return std::all_of(tokens_.begin(), tokens_.end(), [](const Token& token) { return token.kind == Token::Kind::Literal; });
}

bool LikePattern::IsPrefixOnly() const {
  if (tokens_.empty() || tokens_.back().kind != Token::Kind::AnyRun) return false;
  return std::all_of(tokens_.begin(), tokens_.end() - 1, [](const Token& token) { return token.kind == Token::Kind::Literal; });
}

}  // namespace engine
