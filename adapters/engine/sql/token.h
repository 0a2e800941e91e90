#pragma once

#include <string>
#include <string_view>

#include "engine/sql/ast/span.h"
#include "engine/sql/keywords.h"
#include "platform/values/value.h"

namespace engine::sql {

enum class TokenKind {
  End,
  Word,       ///< a keyword or a name
  Bracketed,  ///< a name in brackets
  Text,       ///< '..' or ".."
  Number,
  Date,  ///< #..#
  Symbol,
  Bad,  ///< cannot be read; `text` says why, in the words of a bad expression
};

enum class Symbol {
  None,
  Comma,
  Dot,
  Star,
  Slash,
  Backslash,
  Caret,
  Plus,
  Minus,
  Ampersand,
  Equal,
  NotEqual,
  Less,
  Greater,
  LessEqual,
  GreaterEqual,
  Open,
  Close,
  Semicolon,
};

struct Token {
  TokenKind kind = TokenKind::End;
  Keyword keyword = Keyword::None;  ///< of a Word
  Symbol symbol = Symbol::None;
  std::string text;       ///< Word, Bracketed: the name; Text: its content; Bad: the message
  platform::Value value;  ///< Number: Long or Double; Date
  Span span;
};

/// What a bad expression says of itself (errors 3075 and 3077).
namespace message {
inline constexpr std::string_view kMissingOperator = "Syntax error (missing operator)";
inline constexpr std::string_view kBadString = "Syntax error in string";
inline constexpr std::string_view kBadDate = "Syntax error in date";
inline constexpr std::string_view kBadNumber = "Syntax error in number";
inline constexpr std::string_view kMissingItem = "Missing ), ], or Item";
inline constexpr std::string_view kComma = "Syntax error (comma)";
}  // namespace message

}  // namespace engine::sql
