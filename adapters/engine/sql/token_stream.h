#pragma once

#include <string_view>
#include <vector>

#include "engine/sql/token.h"

namespace engine::sql {

/// A text's tokens with a place in them.
class TokenStream {
 public:
  /// Cuts the text up. Longer than a statement may be: 3360.
  explicit TokenStream(std::string_view text);

  const Token& Peek(std::size_t ahead = 0) const;
  /// The token at the place, which moves on behind it; never beyond the end.
  const Token& Next();
  std::size_t Place() const { return place_; }

  bool At(TokenKind kind, std::size_t ahead = 0) const { return Peek(ahead).kind == kind; }
  bool At(Symbol symbol, std::size_t ahead = 0) const { return Peek(ahead).symbol == symbol; }
  bool At(Keyword keyword, std::size_t ahead = 0) const { return Peek(ahead).keyword == keyword; }
  /// Moves on when it is there.
  bool Skip(Symbol symbol);
  bool Skip(Keyword keyword);

  /// A name: brackets, or a word that is not reserved.
  bool AtName() const;
  /// LEFT, RIGHT or INNER where it begins a join, not a name.
  bool AtJoinWord() const { return IsJoinWord(place_); }
  bool IsJoinWord(std::size_t place) const;

  std::string_view Text() const { return text_; }
  const Token& TokenAt(std::size_t place) const;

 private:
  std::string_view text_;
  std::vector<Token> tokens_;
  std::size_t place_ = 0;
};

}  // namespace engine::sql
