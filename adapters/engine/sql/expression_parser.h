#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/sql/ast/expression.h"
#include "engine/sql/token_stream.h"

namespace engine::sql {

/// Which expression is read, so that an error can quote it.
enum class ExpressionPlace {
  Criterion,  ///< a whole Find criterion: errors are 3077
  Where,      ///< up to ORDER BY or the end; this and the others raise 3075 with their text
  Item,       ///< of a list: up to a comma or the next clause
  On,         ///< up to the next join, clause or closing parenthesis
};

/// Reads one expression from the stream's place on and leaves the place behind it. What stands there then is the caller's
/// matter: `FailHere` raises the error for a token that fits nowhere.
class ExpressionParser {
 public:
  ExpressionParser(TokenStream& tokens, ExpressionPlace place);

  Expression Parse();

  /// The expression is not finished where the stream stands now: missing operator, comma, or what the token itself says.
  [[noreturn]] void FailHere() const;

 private:
  class Level;  // counts how deep the parser is inside itself

  Expression ParseBinary(int loosest);
  Expression ParsePrefix();
  Expression ParsePrimary();
  Expression ParseWord();
  Expression ParseName();
  Expression ParseCall(std::string name, std::size_t begin);
  Expression ParseParentheses();
  Expression ParseOperator(Expression left, int operatorLevel);
  Expression ParsePredicate(Expression left);
  Expression ParseIn(Expression left, bool negated);
  std::vector<Expression> ParseList();
  void ExpectClose();

  /// Level of the binary operator at the place, 0 for none.
  int OperatorLevel() const;
  bool AtNegatedPredicate() const;

  Expression Make(decltype(Expression::node) node, std::size_t begin, int height) const;
  [[noreturn]] void Fail(std::string_view message) const;
  std::string_view Quoted() const;
  bool EndsHere(const Token& token, std::size_t at, int depth) const;

  TokenStream& tokens_;
  ExpressionPlace place_;
  std::size_t first_;
  int depth_ = 0;
};

}  // namespace engine::sql
