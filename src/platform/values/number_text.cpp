#include "platform/values/number_text.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace platform {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsSign(char c) { return c == '+' || c == '-'; }

/// Walks over the text once; each step takes what belongs to it.
class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  std::optional<NumberText> Read() {
    TakeLeading();
    if (Peek() == '&') return !sign_ && !currency_ && !parenthesis_ && TakeBits() ? std::optional(number_) : std::nullopt;
    if (!TakeDigits() || !TakeExponent()) return {};
    TakeTrailing();
    if (at_ != text_.size() || (parenthesis_ && !closed_)) return {};
    if (parenthesis_) number_.negative = true;
    number_.digits.erase(0, std::min(number_.digits.find_first_not_of('0'), number_.digits.size()));
    return number_;
  }

 private:
  char Peek(std::size_t ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0'; }

  bool TakeSign() {
    if (!IsSign(Peek()) || sign_ || parenthesis_) return false;
    sign_ = true;
    number_.negative = text_[at_++] == '-';
    return true;
  }

  bool TakeCurrency() {
    if (Peek() != '$' || currency_) return false;
    currency_ = true;
    ++at_;
    return true;
  }

  bool TakeBlank() {
    if (!IsBlank(Peek())) return false;
    ++at_;
    return true;
  }

  bool TakeOpening() {
    if (Peek() != '(' || parenthesis_ || sign_) return false;
    parenthesis_ = true;
    ++at_;
    return true;
  }

  bool TakeClosing() {
    if (Peek() != ')' || !parenthesis_ || closed_) return false;
    closed_ = true;
    ++at_;
    return true;
  }

  void TakeLeading() {
    while (TakeBlank() || TakeSign() || TakeCurrency() || TakeOpening()) {
    }
  }

  void TakeTrailing() {
    while (TakeBlank() || TakeSign() || TakeCurrency() || TakeClosing()) {
    }
  }

  bool TakeDigits() {
    bool any = false;
    while (IsDigit(Peek()) || (any && Peek() == ',')) {
      if (Peek() != ',') number_.digits.push_back(Peek());
      any = true;
      ++at_;
    }
    if (Peek() == '.') {
      ++at_;
      while (IsDigit(Peek())) {
        number_.digits.push_back(text_[at_++]);
        --number_.exponent;
        any = true;
      }
    }
    return any;
  }

  /// False only for an exponent without digits.
  bool TakeExponent() {
    const char mark = Peek();
    if (mark != 'e' && mark != 'E' && mark != 'd' && mark != 'D') return true;
    ++at_;
    const bool negative = Peek() == '-';
    if (IsSign(Peek())) ++at_;
    if (!IsDigit(Peek())) return false;
    constexpr int kFarBeyondAnyDouble = 100'000;
    int exponent = 0;
    for (; IsDigit(Peek()); ++at_) exponent = std::min(exponent * 10 + (Peek() - '0'), kFarBeyondAnyDouble);
    number_.exponent += negative ? -exponent : exponent;
    return true;
  }

  bool TakeBits() {
    const char mark = Peek(1);
    const int base = mark == 'H' || mark == 'h' ? 16 : mark == 'O' || mark == 'o' ? 8 : 0;
    if (base == 0) return false;
    at_ += 2;
    std::uint64_t bits = 0;
    const char* end = text_.data() + text_.size();
    const auto [stop, error] = std::from_chars(text_.data() + at_, end, bits, base);
    if (error != std::errc()) return false;
    at_ = static_cast<std::size_t>(stop - text_.data());
    while (TakeBlank()) {
    }
    number_.bits = bits;
    return at_ == text_.size();
  }

  std::string_view text_;
  std::size_t at_ = 0;
  NumberText number_;
  bool sign_ = false;
  bool currency_ = false;
  bool parenthesis_ = false;
  bool closed_ = false;
};

/// 1 when what is cut off rounds the kept digits away from zero.
bool RoundsUp(std::string_view kept, std::string_view cut) {
  if (cut.empty() || cut[0] < '5') return false;
  if (cut[0] > '5' || cut.find_first_not_of('0', 1) != std::string_view::npos) return true;
  return !kept.empty() && (kept.back() - '0') % 2 == 1;
}

std::optional<std::uint64_t> ToMagnitude(std::string_view digits, std::size_t zeros) {
  std::uint64_t magnitude = 0;
  constexpr auto kMost = std::numeric_limits<std::uint64_t>::max();
  for (std::size_t i = 0; i < digits.size() + zeros; ++i) {
    const auto digit = static_cast<std::uint64_t>(i < digits.size() ? digits[i] - '0' : 0);
    if (magnitude > (kMost - digit) / 10) return {};
    magnitude = magnitude * 10 + digit;
  }
  return magnitude;
}

}  // namespace

std::optional<NumberText> ReadNumber(std::string_view text) { return Reader(text).Read(); }

std::optional<double> ToDouble(const NumberText& number) {
  if (number.bits) return static_cast<double>(*number.bits);
  if (number.digits.empty()) return 0.0;
  const std::string plain = number.digits + 'e' + std::to_string(number.exponent);
  double value = 0;
  const auto result = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    if (static_cast<long>(number.digits.size()) + number.exponent > 0) return {};
    value = 0;
  }
  return number.negative ? -value : value;
}

std::optional<std::int64_t> ToScaled(const NumberText& number, int scale) {
  NumberText spelled = number;
  if (number.bits) {
    spelled.digits = *number.bits ? std::to_string(*number.bits) : "";
    spelled.bits.reset();
  }
  const std::string_view digits = spelled.digits;
  if (digits.empty()) return 0;

  const long shift = static_cast<long>(spelled.exponent) + scale;
  if (static_cast<long>(digits.size()) + shift > 20) return {};
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  std::optional<std::uint64_t> magnitude;
  if (shift >= 0) {
    magnitude = ToMagnitude(digits, static_cast<std::size_t>(shift));
  } else if (static_cast<std::size_t>(-shift) > digits.size()) {
    magnitude = 0;
  } else {
    const std::size_t keep = digits.size() - static_cast<std::size_t>(-shift);
    magnitude = ToMagnitude(digits.substr(0, keep), 0);
    // The bound is asked first: the widest number of all would become 0.
    if (magnitude && *magnitude <= kMost + 1 && RoundsUp(digits.substr(0, keep), digits.substr(keep))) ++*magnitude;
  }

  if (!magnitude || *magnitude > kMost + (spelled.negative ? 1 : 0)) return {};
  if (spelled.negative) return static_cast<std::int64_t>(~*magnitude + 1);
  return static_cast<std::int64_t>(*magnitude);
}

}  // namespace platform
