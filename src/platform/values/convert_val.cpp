#include <cstdint>

#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/number_text.h"

namespace platform {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsSign(char c) { return c == '+' || c == '-'; }

std::string WithoutBlanks(std::string_view text) {
  std::string dense;
  for (char c : text)
    if (c != ' ' && c != '\t' && c != '\n' && c != '\r') dense.push_back(c);
  return dense;
}

/// Value of a digit of a base up to 16, -1 if it is none.
int DigitOf(char c, int base) {
  const int digit = IsDigit(c) ? c - '0' : c >= 'A' && c <= 'F' ? c - 'A' + 10 : c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
  return digit < base ? digit : -1;
}

/// "&H" and "&O" numbers: up to 16 bits are a Short and up to 32 bits a Long, whose sign bit counts; a closing "&" makes
/// a Long of the former too.
double BitsAtStart(std::string_view dense) {
  const char mark = dense.size() > 1 ? dense[1] : '\0';
  const int base = mark == 'H' || mark == 'h' ? 16 : mark == 'O' || mark == 'o' ? 8 : 0;
  if (base == 0) return 0;
  double value = 0;
  std::size_t at = 2;
  for (; at < dense.size() && DigitOf(dense[at], base) >= 0; ++at) value = value * base + DigitOf(dense[at], base);
  const bool asLong = at < dense.size() && dense[at] == '&';
  if (value <= UINT16_MAX && !asLong) return static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
  if (value <= UINT32_MAX) return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
  return value;
}

/// Length of the longest start that is a decimal number.
std::size_t NumberLength(std::string_view dense) {
  std::size_t at = !dense.empty() && IsSign(dense[0]) ? 1 : 0;
  const auto digits = [&](std::size_t from) {
    std::size_t end = from;
    while (end < dense.size() && IsDigit(dense[end])) ++end;
    return end;
  };
  const std::size_t whole = digits(at);
  std::size_t end = whole;
  if (end < dense.size() && dense[end] == '.') end = digits(end + 1);
  const bool any = whole > at || end > whole + 1;
  if (!any) return 0;

  if (end < dense.size() && (dense[end] == 'e' || dense[end] == 'E' || dense[end] == 'd' || dense[end] == 'D')) {
    std::size_t exponent = end + 1;
    if (exponent < dense.size() && IsSign(dense[exponent])) ++exponent;
    if (digits(exponent) > exponent) end = digits(exponent);
  }
  return end;
}

}  // namespace

std::string ValText(std::string_view text) {
  std::string dense = WithoutBlanks(text);
  dense.resize(NumberLength(dense));
  return dense;
}

double Val(const Value& value) {
  const std::string dense = WithoutBlanks(CStr(value));
  if (!dense.empty() && dense[0] == '&') return BitsAtStart(dense);
  const std::size_t length = NumberLength(dense);
  if (length == 0) return 0;
  const auto number = ParseNumber(std::string_view(dense).substr(0, length));
  if (!number) throw error::Overflow();
  return *number;
}

}  // namespace platform
