#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "printing/expressions/expression.h"

namespace printing {

enum class TokenKind {
  Word,    ///< letters, digits and underscores
  Number,  ///< digits, perhaps with a dot
  Text,    ///< in quotes
  Name,    ///< in braces
  Symbol,  ///< one of = <> < <= > >= + - * / & ( ) [ ] ,
  Other,   ///< any other sign: it ends an expression
  End,
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string text;   ///< of a text and a name what they hold, without quotes and braces
  double number = 0;  ///< of a number
  std::string table;  ///< of a field's name
  NameKind nameKind = NameKind::Field;
  std::size_t begin = 0;
  std::size_t end = 0;
};

/// The token that begins at or behind `at`, blanks passed over. Raises ExpressionError for an open quote or brace, an empty name and
/// a number that none can be.
Token ReadToken(std::string_view text, std::size_t at);

/// What a text in quotes holds, its quotes undoubled; `at` stands on the first quote and moves behind the last. Nothing when it has
/// no end.
std::optional<std::string> ReadQuoted(std::string_view text, std::size_t& at);

}  // namespace printing
