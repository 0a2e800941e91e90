#include "printing/expressions/lexer.h"

#include <charconv>
#include <cmath>

#include "platform/values/convert.h"
#include "printing/expressions/expression_error.h"

namespace printing {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsWordStart(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }

[[noreturn]] void Fail(std::size_t place, std::string text) { throw ExpressionError(ExpressionFault::Syntax, place, std::move(text)); }

void ReadNumber(std::string_view text, Token& token) {
  std::size_t at = token.begin;
  while (at < text.size() && IsDigit(text[at])) ++at;
  if (at < text.size() && text[at] == '.') {
    ++at;
    while (at < text.size() && IsDigit(text[at])) ++at;
  }
  if (at < text.size() && (IsWordStart(text[at]) || text[at] == '.')) Fail(token.begin, "This is no number.");
  const char* end = text.data() + at;
  const auto read = std::from_chars(text.data() + token.begin, end, token.number, std::chars_format::fixed);
  if (read.ec != std::errc() || read.ptr != end || !std::isfinite(token.number)) Fail(token.begin, "This is no number.");
  token.kind = TokenKind::Number;
  token.end = at;
}

// "{Table.Field}", "{@Formula}", "{#Total}": blanks may stand inside.
void ReadName(std::string_view text, Token& token) {
  const std::size_t close = text.find('}', token.begin);
  if (close == std::string_view::npos) Fail(token.begin, "The brace } is missing.");
  std::string name = platform::Trim(text.substr(token.begin + 1, close - token.begin - 1));
  token.kind = TokenKind::Name;
  token.end = close + 1;
  if (name.starts_with('@') || name.starts_with('#')) {
    token.nameKind = name.front() == '@' ? NameKind::Formula : NameKind::Total;
    token.text = platform::Trim(std::string_view(name).substr(1));
  } else {
    const std::size_t dot = name.find('.');
    if (dot == std::string::npos) Fail(token.begin, "A field is written {Table.Field}.");
    token.table = platform::Trim(std::string_view(name).substr(0, dot));
    token.text = platform::Trim(std::string_view(name).substr(dot + 1));
    if (token.table.empty()) Fail(token.begin, "The table's name is missing.");
  }
  if (token.text.empty()) Fail(token.begin, "The name is missing.");
}

void ReadSymbol(std::string_view text, Token& token) {
  const std::string_view two = text.substr(token.begin, 2);
  const bool pair = two == "<>" || two == "<=" || two == ">=";
  token.end = token.begin + (pair ? 2 : 1);
  token.text = text.substr(token.begin, token.end - token.begin);
  token.kind = std::string_view("=<>+-*/&()[],").find(text[token.begin]) != std::string_view::npos ? TokenKind::Symbol : TokenKind::Other;
}

}  // namespace

std::optional<std::string> ReadQuoted(std::string_view text, std::size_t& at) {
  const char quote = text[at];
  std::string content;
  for (std::size_t place = at + 1; place < text.size(); ++place) {
    if (text[place] != quote) {
      content += text[place];
    } else if (place + 1 < text.size() && text[place + 1] == quote) {
      content += quote;
      ++place;
    } else {
      at = place + 1;
      return content;
    }
  }
  return std::nullopt;
}

Token ReadToken(std::string_view text, std::size_t at) {
  while (at < text.size() && std::string_view(" \t\r\n").find(text[at]) != std::string_view::npos) ++at;
  Token token;
  token.begin = token.end = at;
  if (at >= text.size()) return token;
  const char c = text[at];
  if (IsDigit(c) || (c == '.' && at + 1 < text.size() && IsDigit(text[at + 1]))) {
    ReadNumber(text, token);
  } else if (IsWordStart(c)) {
    while (token.end < text.size() && (IsWordStart(text[token.end]) || IsDigit(text[token.end]))) ++token.end;
    token.kind = TokenKind::Word;
    token.text = text.substr(at, token.end - at);
  } else if (c == '"' || c == '\'') {
    std::optional<std::string> content = ReadQuoted(text, token.end);
    if (!content) Fail(at, "The text has no closing quote.");
    token.kind = TokenKind::Text;
    token.text = *std::move(content);
  } else if (c == '{') {
    ReadName(text, token);
  } else {
    ReadSymbol(text, token);
  }
  return token;
}

}  // namespace printing
