#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace memory_store {

struct Token {
  enum class Kind { Word, Name, Text, Number, Parameter, Sign, End } kind = Kind::End;
  std::string text;  ///< words in capitals; names and texts without their quotes
};

/// Reads a statement through. What stands elsewhere than this store's dialect allows fails the test with the whole text.
class Tokens {
 public:
  explicit Tokens(std::string_view sql);

  const Token& Peek() const { return tokens_[at_]; }
  Token Take() { return tokens_[at_ + 1 < tokens_.size() ? at_++ : at_]; }
  bool AtWord(std::string_view word) const { return Peek().kind == Token::Kind::Word && Peek().text == word; }
  bool AtSign(std::string_view sign) const { return Peek().kind == Token::Kind::Sign && Peek().text == sign; }
  bool TakeWord(std::string_view word) { return AtWord(word) && (Take(), true); }
  bool TakeSign(std::string_view sign) { return AtSign(sign) && (Take(), true); }
  void NeedWord(std::string_view word);
  void NeedSign(std::string_view sign);
  std::string NeedName();
  [[noreturn]] void Refuse() const;

 private:
  std::string sql_;
  std::vector<Token> tokens_;
  std::size_t at_ = 0;
};

}  // namespace memory_store
