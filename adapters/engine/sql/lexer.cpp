#include "engine/sql/lexer.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "engine/sql/date_literal.h"

namespace engine::sql {
namespace {

class Lexer {
 public:
  explicit Lexer(std::string_view text) : text_(text) {}

  std::vector<Token> Run() {
    for (SkipBlanks(); at_ < text_.size(); SkipBlanks()) tokens_.push_back(Next());
    tokens_.push_back({.kind = TokenKind::End, .text = {}, .value = {}, .span = {text_.size(), text_.size()}});
    return std::move(tokens_);
  }

 private:
  char Peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

  void SkipBlanks() {
    while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) != std::string_view::npos) ++at_;
  }

  Token Next() {
    const std::size_t begin = at_;
    Token token = Read();
    token.span = {begin, at_};
    return token;
  }

  Token Read() {
    const char c = text_[at_];
    if (IsDigit(c) || (c == '.' && IsDigit(Peek(1)) && !BehindName())) return ReadNumber();
    if (IsWordByte(c)) return ReadWord();
    switch (c) {
      case '[':
        return ReadBracketed();
      case '\'':
      case '"':
        return ReadText(c);
      case '#':
        return ReadDate();
      default:
        return ReadSymbol(c);
    }
  }

  // "T.5" is no name and a number; "T .5" two tokens: a dot belongs to the name it touches.
  bool BehindName() const {
    if (tokens_.empty()) return false;
    const Token& last = tokens_.back();
    return last.span.end == at_ && (last.kind == TokenKind::Word || last.kind == TokenKind::Bracketed);
  }

  Token ReadWord() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && IsWordByte(text_[at_])) ++at_;
    const std::string_view word = text_.substr(begin, at_ - begin);
    return {.kind = TokenKind::Word, .keyword = KeywordOf(word), .text = std::string(word), .value = {}, .span = {}};
  }

  Token ReadBracketed() {
    const std::size_t close = text_.find(']', at_ + 1);
    if (close == std::string_view::npos) return BadToTheEnd(message::kMissingItem);
    const std::string_view name = text_.substr(at_ + 1, close - at_ - 1);
    at_ = close + 1;
    if (name.empty()) return Bad(message::kMissingItem);
    return {.kind = TokenKind::Bracketed, .text = std::string(name), .value = {}, .span = {}};
  }

  Token ReadText(char quote) {
    std::string content;
    for (std::size_t place = at_ + 1; place < text_.size(); ++place) {
      if (text_[place] != quote) {
        content += text_[place];
      } else if (place + 1 < text_.size() && text_[place + 1] == quote) {
        content += quote;
        ++place;
      } else {
        at_ = place + 1;
        return {.kind = TokenKind::Text, .text = std::move(content), .value = {}, .span = {}};
      }
    }
    return BadToTheEnd(message::kBadString);
  }

  Token ReadDate() {
    const std::size_t close = text_.find('#', at_ + 1);
    if (close == std::string_view::npos) return BadToTheEnd(message::kBadDate);
    const std::optional<platform::Date> date = ReadDateLiteral(text_.substr(at_ + 1, close - at_ - 1));
    at_ = close + 1;
    if (!date) return Bad(message::kBadDate);
    return {.kind = TokenKind::Date, .text = {}, .value = *date, .span = {}};
  }

  void SkipDigits() {
    while (IsDigit(Peek())) ++at_;
  }

  Token ReadNumber() {
    const std::size_t begin = at_;
    SkipDigits();
    bool whole = true;
    if (Peek() == '.') {
      whole = false;
      ++at_;
      SkipDigits();
    }
    if (Peek() == 'e' || Peek() == 'E') {
      const bool sign = Peek(1) == '+' || Peek(1) == '-';
      if (IsDigit(Peek(sign ? 2 : 1))) {
        whole = false;
        at_ += sign ? 2 : 1;
        SkipDigits();
      } else if (sign) {
        at_ += 2;
        return Bad(message::kBadNumber);
      }
    }
    if (Peek() == '.') {
      ++at_;
      SkipDigits();
      return Bad(message::kBadNumber);
    }
    return NumberToken(text_.substr(begin, at_ - begin), whole);
  }

  static Token NumberToken(std::string_view digits, bool whole) {
    Token token{.kind = TokenKind::Number, .text = {}, .value = {}, .span = {}};
    std::int32_t number = 0;
    const char* end = digits.data() + digits.size();
    if (whole && std::from_chars(digits.data(), end, number).ec == std::errc()) {
      token.value = number;
      return token;
    }
    double real = 0;
    const std::from_chars_result read = std::from_chars(digits.data(), end, real);
    if (read.ec == std::errc::result_out_of_range || !std::isfinite(real)) return Bad(message::kBadNumber);
    token.value = real;
    return token;
  }

  Token ReadSymbol(char c) {
    ++at_;
    const char next = Peek();
    switch (c) {
      case ',':
        return Of(Symbol::Comma);
      case '.':
        return Of(Symbol::Dot);
      case '*':
        return Of(Symbol::Star);
      case '/':
        return Of(Symbol::Slash);
      case '\\':
        return Of(Symbol::Backslash);
      case '^':
        return Of(Symbol::Caret);
      case '+':
        return Of(Symbol::Plus);
      case '-':
        return Of(Symbol::Minus);
      case '&':
        return Of(Symbol::Ampersand);
      case '=':
        return Of(Symbol::Equal);
      case '(':
        return Of(Symbol::Open);
      case ')':
        return Of(Symbol::Close);
      case ';':
        return Of(Symbol::Semicolon);
      case '<':
        if (next == '>') return OfTwo(Symbol::NotEqual);
        return next == '=' ? OfTwo(Symbol::LessEqual) : Of(Symbol::Less);
      case '>':
        return next == '=' ? OfTwo(Symbol::GreaterEqual) : Of(Symbol::Greater);
      default:
        return Bad(message::kMissingOperator);
    }
  }

  static Token Of(Symbol symbol) { return {.kind = TokenKind::Symbol, .symbol = symbol, .text = {}, .value = {}, .span = {}}; }

  Token OfTwo(Symbol symbol) {
    ++at_;
    return Of(symbol);
  }

  static Token Bad(std::string_view why) { return {.kind = TokenKind::Bad, .text = std::string(why), .value = {}, .span = {}}; }

  Token BadToTheEnd(std::string_view why) {
    at_ = text_.size();
    return Bad(why);
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> Lex(std::string_view text) { return Lexer(text).Run(); }

}  // namespace engine::sql
