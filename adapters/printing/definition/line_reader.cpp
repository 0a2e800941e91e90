#include "printing/definition/line_reader.h"

#include <charconv>
#include <cmath>
#include <optional>

#include "platform/values/text.h"
#include "printing/expressions/expression_error.h"
#include "printing/expressions/lexer.h"
#include "printing/expressions/parser.h"

namespace printing {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; }
void SetLine(Expression& expression, int line) {
  expression.line = line;
  for (Expression& operand : expression.operands) SetLine(operand, line);
}
bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

}  // namespace

void LineReader::SkipBlanks() {
  while (at_ < line_.size() && IsBlank(line_[at_])) ++at_;
}

bool LineReader::AtEnd() {
  SkipBlanks();
  return at_ == line_.size() || line_[at_] == '#';
}

void LineReader::RequireEnd() {
  if (!AtEnd()) Fail("The line should end here.");
}

std::string_view LineReader::WordHere() const {
  std::size_t end = at_;
  if (end == line_.size() || !IsLetter(line_[end])) return {};
  while (end < line_.size() && (IsLetter(line_[end]) || IsDigit(line_[end]) || line_[end] == '-')) ++end;
  return line_.substr(at_, end - at_);
}

std::string LineReader::Word() {
  SkipBlanks();
  const std::string_view word = WordHere();
  if (word.empty()) Fail("A word is missing.");
  at_ += word.size();
  return std::string(word);
}

bool LineReader::SkipWord(std::string_view word) {
  SkipBlanks();
  if (!platform::EqualsNoCase(WordHere(), word)) return false;
  at_ += word.size();
  return true;
}

bool LineReader::SkipWordBeforeNumber(std::string_view word) {
  SkipBlanks();
  const std::string_view here = line_.substr(at_, word.size());
  const std::size_t end = at_ + word.size();
  if (!platform::EqualsNoCase(here, word) || (end < line_.size() && (IsLetter(line_[end]) || IsDigit(line_[end])))) return false;
  at_ = end;
  return true;
}

void LineReader::RequireWord(std::string_view word) {
  if (!SkipWord(word)) Fail("The word " + std::string(word) + " is missing.");
}

std::string LineReader::Name() {
  SkipBlanks();
  if (at_ == line_.size() || line_[at_] != '"') return Word();
  const std::size_t begin = at_;
  std::string name = Text();
  if (name.empty()) FailAt(begin, "The name is empty.");
  return name;
}

std::string LineReader::Text() {
  SkipBlanks();
  if (at_ == line_.size() || line_[at_] != '"') Fail("A text in double quotes is missing.");
  std::optional<std::string> text = ReadQuoted(line_, at_);
  if (!text) Fail("The text has no closing quote.");
  return *std::move(text);
}

bool LineReader::AtNumber() {
  SkipBlanks();
  const std::size_t first = at_ < line_.size() && line_[at_] == '-' ? at_ + 1 : at_;
  return first < line_.size() && (IsDigit(line_[first]) || line_[first] == '.');
}

double LineReader::Number(double lowest, double highest) {
  if (!AtNumber()) Fail("A number is missing.");
  std::size_t end = at_ + 1;
  while (end < line_.size() && (IsDigit(line_[end]) || line_[end] == '.')) ++end;
  double number = 0;
  const auto read = std::from_chars(line_.data() + at_, line_.data() + end, number, std::chars_format::fixed);
  if (read.ec != std::errc() || read.ptr != line_.data() + end || (end < line_.size() && IsLetter(line_[end]))) Fail("This is no number.");
  if (!(number >= lowest && number <= highest)) Fail("The number is too small or too large.");
  at_ = end;
  return number;
}

int LineReader::WholeNumber(int lowest, int highest) {
  const std::size_t begin = Column();
  const double number = Number(lowest, highest);
  if (number != std::trunc(number)) FailAt(begin, "A whole number is missing.");
  return static_cast<int>(number);
}

Color LineReader::ReadColor() {
  constexpr std::size_t kLength = 7;
  SkipBlanks();
  unsigned rgb = 0;
  const std::string_view color = line_.substr(at_, kLength);
  const bool whole = at_ + kLength >= line_.size() || (!IsLetter(line_[at_ + kLength]) && !IsDigit(line_[at_ + kLength]));
  const char* end = color.data() + color.size();
  if (color.size() != kLength || color.front() != '#' || !whole) Fail("A colour as #rrggbb is missing.");
  const auto read = std::from_chars(color.data() + 1, end, rgb, 16);
  if (read.ec != std::errc() || read.ptr != end) Fail("A colour as #rrggbb is missing.");
  at_ += kLength;
  return {static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8 & 0xFF), static_cast<std::uint8_t>(rgb & 0xFF)};
}

Expression LineReader::ReadExpression() {
  try {
    Expression expression = ParseExpressionAt(line_, at_);
    SetLine(expression, number_);
    return expression;
  } catch (const ExpressionError& error) {
    FailAt(error.Place(), error.Text());
  }
}

Expression LineReader::ReadField() {
  Expression field = ReadExpression();
  if (field.kind != ExpressionKind::Name || field.nameKind == NameKind::Total) FailAt(field.place, "A field must stand here.");
  return field;
}

}  // namespace printing
