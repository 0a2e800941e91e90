#include "engine/sql/parser.h"

#include <utility>

#include "engine/errors.h"
#include "engine/sql/expression_parser.h"
#include "engine/sql/source_parser.h"
#include "engine/sql/token_stream.h"

namespace engine::sql {
namespace {

class StatementParser {
 public:
  explicit StatementParser(std::string_view text) : tokens_(text) {}

  Statement Parse() {
    Statement statement = ParseKind();
    if (tokens_.Skip(Symbol::Semicolon) && !tokens_.At(TokenKind::End)) throw errors::TextAfterEnd();
    return statement;
  }

 private:
  Statement ParseKind() {
    if (tokens_.At(Keyword::Select)) return ParseSelect();
    if (tokens_.At(Keyword::Insert)) return ParseInsert();
    if (tokens_.At(Keyword::Delete)) return ParseDelete();
    if (tokens_.At(Keyword::Update)) return ParseUpdate();
    throw errors::NoStatement();
  }

  bool AtEnd() const { return tokens_.At(TokenKind::End) || tokens_.At(Symbol::Semicolon); }

  // select ------------------------------------------------------------------------------------------------------------

  Select ParseSelect() {
    tokens_.Next();  // SELECT
    Select select;
    select.duplicates = ParseDuplicates();
    select.items = ParseItems();
    if (!tokens_.Skip(Keyword::From)) throw errors::SelectSyntax();
    select.sources = SourceParser(tokens_).ParseSources();
    select.inFile = ParseIn(errors::FromSyntax);
    if (!AtEnd() && !tokens_.At(Keyword::Where) && !tokens_.At(Keyword::Order)) throw errors::FromSyntax();
    select.where = ParseWhere(true);
    if (tokens_.Skip(Keyword::Order)) select.order = ParseOrder();
    return select;
  }

  Duplicates ParseDuplicates() {
    if (tokens_.Skip(Keyword::Distinct)) return Duplicates::Distinct;
    if (tokens_.Skip(Keyword::DistinctRow)) return Duplicates::DistinctRow;
    // ALL is a name where it is the whole item.
    const bool nameOnly = tokens_.At(Symbol::Comma, 1) || tokens_.At(Symbol::Dot, 1) || tokens_.At(Keyword::From, 1);
    if (!nameOnly) tokens_.Skip(Keyword::All);
    return Duplicates::All;
  }

  std::vector<SelectItem> ParseItems() {
    std::vector<SelectItem> items;
    do {
      items.push_back(ParseItem());
    } while (tokens_.Skip(Symbol::Comma));
    return items;
  }

  SelectItem ParseItem() {
    if (AtEnd() || tokens_.At(Symbol::Comma) || tokens_.At(Symbol::Close) || EndsExpression(tokens_.Peek().keyword))
      throw errors::SelectSyntax();
    if (std::optional<Star> star = ParseStar()) return *std::move(star);
    ExpressionParser parser(tokens_, ExpressionPlace::Item);
    Computed item{.expression = parser.Parse(), .alias = {}};
    if (tokens_.Skip(Keyword::As)) {
      if (!tokens_.AtName()) throw errors::SelectSyntax();
      item.alias = tokens_.Next().text;
      if (!AtEnd() && !tokens_.At(Symbol::Comma) && !tokens_.At(Keyword::From)) throw errors::SelectSyntax();
    }
    if (AtEnd() || tokens_.At(Symbol::Comma) || EndsExpression(tokens_.Peek().keyword)) return item;
    parser.FailHere();
  }

  // "*" or "T.*", which must be the whole item.
  std::optional<Star> ParseStar() {
    Star star;
    if (tokens_.At(Symbol::Star)) {
      tokens_.Next();
    } else if (tokens_.AtName() && tokens_.At(Symbol::Dot, 1) && tokens_.At(Symbol::Star, 2)) {
      star.table = tokens_.Next().text;
      tokens_.Next();
      tokens_.Next();
    } else {
      return std::nullopt;
    }
    if (!AtEnd() && !tokens_.At(Symbol::Comma) && !tokens_.At(Keyword::From)) throw errors::SelectSyntax();
    return star;
  }

  std::vector<OrderKey> ParseOrder() {
    if (!tokens_.Skip(Keyword::By)) throw errors::OrderBySyntax();
    std::vector<OrderKey> keys;
    do {
      if (AtEnd() || tokens_.At(Symbol::Comma) || EndsExpression(tokens_.Peek().keyword)) throw errors::OrderBySyntax();
      ExpressionParser parser(tokens_, ExpressionPlace::Item);
      OrderKey key{.expression = parser.Parse()};
      const bool ascending = tokens_.Skip(Keyword::Asc);
      key.descending = !ascending && tokens_.Skip(Keyword::Desc);
      keys.push_back(std::move(key));
      if (AtEnd() || tokens_.At(Symbol::Comma)) continue;
      if (ascending || keys.back().descending || EndsExpression(tokens_.Peek().keyword)) throw errors::OrderBySyntax();
      parser.FailHere();
    } while (tokens_.Skip(Symbol::Comma));
    return keys;
  }

  // shared clauses ----------------------------------------------------------------------------------------------------

  std::optional<std::string> ParseIn(platform::Error (*syntax)()) {
    if (!tokens_.Skip(Keyword::In)) return std::nullopt;
    if (!tokens_.At(TokenKind::Text)) throw syntax();
    return tokens_.Next().text;
  }

  std::optional<Expression> ParseWhere(bool orderMayFollow) {
    if (!tokens_.Skip(Keyword::Where)) return std::nullopt;
    if (AtEnd() || EndsExpression(tokens_.Peek().keyword)) throw errors::WhereSyntax();
    ExpressionParser parser(tokens_, ExpressionPlace::Where);
    Expression where = parser.Parse();
    if (AtEnd() || (orderMayFollow && tokens_.At(Keyword::Order))) return where;
    parser.FailHere();
  }

  // insert ------------------------------------------------------------------------------------------------------------

  Insert ParseInsert() {
    tokens_.Next();  // INSERT
    if (!tokens_.Skip(Keyword::Into) || !tokens_.AtName()) throw errors::InsertSyntax();
    Insert insert{.table = tokens_.Next().text, .fields = {}, .inFile = {}, .rows = {}};
    if (tokens_.Skip(Symbol::Open)) insert.fields = ParseFieldNames();
    insert.inFile = ParseIn(errors::InsertSyntax);
    if (tokens_.At(Keyword::Select)) {
      insert.rows = ParseSelect();
    } else if (tokens_.Skip(Keyword::Values)) {
      insert.rows = ParseValues();
    } else {
      throw errors::InsertSyntax();
    }
    return insert;
  }

  std::vector<std::string> ParseFieldNames() {
    std::vector<std::string> names;
    do {
      if (!tokens_.AtName()) throw errors::InsertSyntax();
      names.push_back(tokens_.Next().text);
    } while (tokens_.Skip(Symbol::Comma));
    if (!tokens_.Skip(Symbol::Close)) throw errors::InsertSyntax();
    return names;
  }

  ValueList ParseValues() {
    if (!tokens_.Skip(Symbol::Open)) throw errors::InsertSyntax();
    ValueList values;
    do {
      if (AtEnd() || tokens_.At(Symbol::Comma) || tokens_.At(Symbol::Close)) throw errors::InsertSyntax();
      ExpressionParser parser(tokens_, ExpressionPlace::Item);
      values.push_back(parser.Parse());
      if (AtEnd()) throw errors::InsertSyntax();
      if (!tokens_.At(Symbol::Comma) && !tokens_.At(Symbol::Close)) parser.FailHere();
    } while (tokens_.Skip(Symbol::Comma));
    if (!tokens_.Skip(Symbol::Close) || !AtEnd()) throw errors::InsertSyntax();
    return values;
  }

  // delete, update ----------------------------------------------------------------------------------------------------

  Delete ParseDelete() {
    tokens_.Next();  // DELETE
    Delete remove;
    if (!tokens_.At(Keyword::From)) {
      const std::optional<Star> star = ParseStar();
      if (!star || tokens_.At(Symbol::Comma)) throw errors::SelectSyntax();
      remove.qualifier = star->table;
    }
    if (!tokens_.Skip(Keyword::From) || !tokens_.AtName()) throw errors::FromSyntax();
    remove.table = tokens_.Next().text;
    remove.inFile = ParseIn(errors::FromSyntax);
    if (!AtEnd() && !tokens_.At(Keyword::Where)) throw errors::FromSyntax();
    remove.where = ParseWhere(false);
    return remove;
  }

  Update ParseUpdate() {
    tokens_.Next();  // UPDATE
    if (!tokens_.AtName() && !tokens_.At(Symbol::Open)) throw errors::UpdateSyntax();
    Update update{.source = SourceParser(tokens_).ParseSource(), .assignments = {}, .where = {}};
    if (!tokens_.Skip(Keyword::Set)) throw errors::UpdateSyntax();
    do {
      update.assignments.push_back(ParseAssignment());
    } while (tokens_.Skip(Symbol::Comma));
    update.where = ParseWhere(false);
    return update;
  }

  Assignment ParseAssignment() {
    if (!tokens_.AtName()) throw errors::UpdateSyntax();
    FieldName field{.table = {}, .name = tokens_.Next().text};
    if (tokens_.Skip(Symbol::Dot)) {
      if (!tokens_.At(TokenKind::Word) && !tokens_.At(TokenKind::Bracketed)) throw errors::UpdateSyntax();
      field = {.table = std::move(field.name), .name = tokens_.Next().text};
    }
    if (!tokens_.Skip(Symbol::Equal)) throw errors::UpdateSyntax();
    if (AtEnd() || tokens_.At(Symbol::Comma) || EndsExpression(tokens_.Peek().keyword)) throw errors::UpdateSyntax();
    ExpressionParser parser(tokens_, ExpressionPlace::Item);
    Assignment assignment{.field = std::move(field), .value = parser.Parse()};
    if (!AtEnd() && !tokens_.At(Symbol::Comma) && !tokens_.At(Keyword::Where)) parser.FailHere();
    return assignment;
  }

  TokenStream tokens_;
};

}  // namespace

Statement ParseStatement(std::string_view text) { return StatementParser(text).Parse(); }

Expression ParseCriterion(std::string_view text) {
  TokenStream tokens(text);
  ExpressionParser parser(tokens, ExpressionPlace::Criterion);
  Expression criterion = parser.Parse();
  if (!tokens.At(TokenKind::End)) parser.FailHere();
  return criterion;
}

}  // namespace engine::sql
