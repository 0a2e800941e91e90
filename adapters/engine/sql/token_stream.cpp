#include "engine/sql/token_stream.h"

#include <algorithm>

#include "engine/errors.h"
#include "engine/sql/lexer.h"
#include "platform/values/text.h"

namespace engine::sql {
namespace {

constexpr std::size_t kLongestText = 1 << 20;

// The boundary lets no such text in; should one come, nothing of it goes on to the store.
void CheckBytes(std::string_view text) {
  if (text.find('\0') != std::string_view::npos || !platform::IsValidUtf8(text)) {
    throw errors::QueryExpression(message::kBadString, platform::NormaliseLossy(text));
  }
}

}  // namespace

TokenStream::TokenStream(std::string_view text) : text_(text) {
  if (text.size() > kLongestText) throw errors::QueryTooComplex();
  CheckBytes(text);
  tokens_ = Lex(text);
}

const Token& TokenStream::TokenAt(std::size_t place) const { return tokens_[std::min(place, tokens_.size() - 1)]; }

const Token& TokenStream::Peek(std::size_t ahead) const { return TokenAt(place_ + ahead); }

const Token& TokenStream::Next() {
  const Token& token = Peek();
  if (token.kind != TokenKind::End) ++place_;
  return token;
}

bool TokenStream::Skip(Symbol symbol) {
  if (!At(symbol)) return false;
  Next();
  return true;
}

bool TokenStream::Skip(Keyword keyword) {
  if (!At(keyword)) return false;
  Next();
  return true;
}

bool TokenStream::AtName() const {
  if (At(TokenKind::Bracketed)) return true;
  return At(TokenKind::Word) && !IsReserved(Peek().keyword) && !AtJoinWord();
}

bool TokenStream::IsJoinWord(std::size_t place) const {
  const auto is = [&](std::size_t ahead, Keyword keyword) { return TokenAt(place + ahead).keyword == keyword; };
  if (is(0, Keyword::Inner)) return true;
  if (!is(0, Keyword::Left) && !is(0, Keyword::Right)) return false;
  return is(1, Keyword::Join) || (is(1, Keyword::Outer) && is(2, Keyword::Join));
}

}  // namespace engine::sql
