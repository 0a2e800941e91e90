#include "unit/engine/support/memory_store/tokens.h"

#include <cctype>

#include "platform/values/error.h"

namespace memory_store {
namespace {

bool IsWordLetter(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; }

}  // namespace

Tokens::Tokens(std::string_view sql) : sql_(sql) {
  std::size_t i = 0;
  const auto quoted = [&](char quote) {
    std::string text;
    for (++i; i < sql.size(); ++i) {
      if (sql[i] == quote && (i + 1 == sql.size() || sql[i + 1] != quote)) break;
      if (sql[i] == quote) ++i;
      text += sql[i];
    }
    ++i;
    return text;
  };
  const auto run = [&](auto test) {
    const std::size_t from = i;
    while (i < sql.size() && test(sql[i])) ++i;
    return std::string(sql.substr(from, i - from));
  };
  while (i < sql.size()) {
    const char c = sql[i];
    if (c == ' ') {
      ++i;
    } else if (c == '`') {
      tokens_.push_back({Token::Kind::Name, quoted(c)});
    } else if (c == '\'') {
      tokens_.push_back({Token::Kind::Text, quoted(c)});
    } else if (c == '$') {
      ++i;
      tokens_.push_back({Token::Kind::Parameter, run([](char d) { return std::isdigit(static_cast<unsigned char>(d)) != 0; })});
    } else if (std::isdigit(static_cast<unsigned char>(c)) != 0) {
      tokens_.push_back({Token::Kind::Number, run([](char d) { return IsWordLetter(d) || d == '.'; })});
    } else if (IsWordLetter(c)) {
      std::string word = run(IsWordLetter);
      for (char& letter : word) letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
      tokens_.push_back({Token::Kind::Word, std::move(word)});
    } else {
      const std::string_view two = sql.substr(i, 2);
      const bool pair = two == "<=" || two == ">=" || two == "<>" || two == "||";
      if (!pair && std::string_view("(),.=<>+-*/").find(c) == std::string_view::npos) Refuse();
      tokens_.push_back({Token::Kind::Sign, std::string(sql.substr(i, pair ? 2 : 1))});
      i += pair ? 2 : 1;
    }
  }
  tokens_.push_back({});
}

void Tokens::NeedWord(std::string_view word) {
  if (!TakeWord(word)) Refuse();
}
void Tokens::NeedSign(std::string_view sign) {
  if (!TakeSign(sign)) Refuse();
}
std::string Tokens::NeedName() {
  if (Peek().kind != Token::Kind::Name) Refuse();
  return Take().text;
}

void Tokens::Refuse() const {
  const std::string at = tokens_.empty() ? "its start" : at_ < tokens_.size() ? '"' + Peek().text + '"' : "its end";
  throw platform::Error(3000, "The store in memory does not know this statement, at " + at + ": " + sql_);
}

}  // namespace memory_store
