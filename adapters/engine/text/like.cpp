#include "engine/text/like.h"

#include <algorithm>

#include "engine/text/text_order.h"
#include "platform/error.h"
#include "platform/text.h"

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
        tokens_.push_back({Token::Kind::Literal, character});
    }
  }
  for (const Token& token : tokens_) {
    if (token.kind != Token::Kind::Literal) break;
    platform::AppendCodePoint(fixedPrefix_, token.character);
  }
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
    const Range range{list[i], list[isRange ? i + 2 : i]};
    if (CompareCharacters(range.first, range.last) > 0) throw platform::error::InvalidPattern();
    token.ranges.push_back(range);
    if (isRange) i += 2;
  }
  if (list.size() == 1 && !token.negated)
    tokens_.push_back({Token::Kind::Literal, list[0]});
  else
    tokens_.push_back(std::move(token));
}

bool LikePattern::TokenTakes(const Token& token, char32_t character) {
  switch (token.kind) {
    case Token::Kind::Literal:
      return CompareCharacters(token.character, character) == 0;
    case Token::Kind::AnyCharacter:
      return true;
    case Token::Kind::Digit:
      return character >= U'0' && character <= U'9';
    case Token::Kind::List:
      break;
    case Token::Kind::AnyRun:
      return false;
  }
  const bool listed = std::any_of(token.ranges.begin(), token.ranges.end(), [&](const Range& range) {
    return CompareCharacters(range.first, character) <= 0 && CompareCharacters(character, range.last) <= 0;
  });
  return listed != token.negated;
}

bool LikePattern::Matches(std::string_view text) const {
  text = WithoutTrailingBlanks(text);

  // Only the last run passed needs another try: what an earlier one could take, the later one can take too.
  constexpr std::size_t kNoRun = static_cast<std::size_t>(-1);
  std::size_t token = 0;
  std::size_t at = 0;
  std::size_t lastRun = kNoRun;
  std::size_t runEnd = 0;
  while (at < text.size()) {
    if (token < tokens_.size() && tokens_[token].kind == Token::Kind::AnyRun) {
      lastRun = token++;
      if (token == tokens_.size()) return true;
      runEnd = at;
      continue;
    }
    std::size_t next = at;
    if (token < tokens_.size() && TokenTakes(tokens_[token], platform::NextCodePoint(text, next))) {
      ++token;
      at = next;
      continue;
    }
    if (lastRun == kNoRun) return false;
    platform::NextCodePoint(text, runEnd);
    at = runEnd;
    token = lastRun + 1;
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
