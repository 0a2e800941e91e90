#pragma once

#include <string_view>

namespace engine::sql {

/// The dialect's words. A word is a keyword only where the grammar wants one; see IsReserved for the others.
enum class Keyword {
  None,
  All,
  And,
  As,
  Asc,
  Between,
  By,
  Delete,
  Desc,
  Distinct,
  DistinctRow,
  Eqv,
  False,
  From,
  Imp,
  In,
  Inner,
  Insert,
  Into,
  Is,
  Join,
  Left,
  Like,
  Mod,
  No,
  Not,
  Null,
  Off,
  On,
  Or,
  Order,
  Outer,
  Right,
  Select,
  Set,
  True,
  Update,
  Values,
  Where,
  Xor,
  Yes,
};

/// The keyword of a word in any case, None for a plain name.
Keyword KeywordOf(std::string_view word);

/// True for keywords that can never be a name without brackets or a dot in front.
bool IsReserved(Keyword keyword);

/// True for the words that begin a clause or end one, so that no expression runs over them.
bool EndsExpression(Keyword keyword);

/// True for a text that can stand as a name without brackets: a word that is not reserved.
bool IsPlainName(std::string_view name);

/// A byte that a word may hold: letter, digit, underscore or part of a character beyond ASCII.
bool IsWordByte(char byte);
bool IsDigit(char byte);

}  // namespace engine::sql
