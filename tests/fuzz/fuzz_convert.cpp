#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/values/calendar.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/format.h"
#include "platform/values/mask.h"
#include "platform/values/text.h"

// A text, and behind the first line end a format or mask: conversions raise nothing but their own errors, what a
// predicate accepts converts, and what a conversion gives reads back.

namespace {

using platform::Value;

void Require(bool condition) {
  if (!condition) std::abort();
}

/// Runs a conversion; true when it gave a value, false for one of its errors.
template <class Call>
bool Converts(Call call) {
  try {
    call();
    return true;
  } catch (const platform::Error& error) {
    Require(error.Number() == 5 || error.Number() == 6 || error.Number() == 13);
    return false;
  }
}

void CheckUtf8(std::string_view bytes) {
  const std::string lossy = platform::NormaliseLossy(bytes);
  Require(platform::IsValidUtf8(lossy));
  Require(platform::NormaliseLossy(lossy) == lossy);
  if (const auto text = platform::Normalise(bytes)) Require(*text == lossy);
  Require(platform::FromCodePoints(platform::ToCodePoints(lossy)) == lossy);
}

void CheckNumbers(const std::string& text) {
  const bool numeric = platform::IsNumeric(text);
  Require(numeric == Converts([&] { platform::CDbl(text); }));
  Converts([&] { platform::CInt(text); });
  Converts([&] { platform::CLng(text); });
  Converts([&] { platform::Val(text); });
  Converts([&] { platform::CBool(text); });
  Converts([&] {
    const platform::Currency amount = platform::CCur(text);
    Require(platform::CCur(platform::CStr(amount)) == amount);
  });
  if (numeric) {
    const std::string shown = platform::CStr(platform::CDbl(text));
    Require(platform::CStr(platform::CDbl(shown)) == shown);
  }
}

void CheckDates(const std::string& text) {
  const auto date = platform::ParseDate(text, 2001);
  if (!date) return;
  const auto again = platform::ParseDate(platform::CStr(*date), 2001);
  Require(again && platform::CStr(*again) == platform::CStr(*date));
}

void CheckShown(const std::string& text, const std::string& format) {
  Converts([&] { platform::Format(text, format); });
  const auto typed = platform::MaskInsert(format, {}, 0, text, 0);
  Require(typed.caret <= platform::CharacterCount(typed.raw));
  const std::string display = platform::MaskDisplay(format, typed.raw);
  if (format.empty()) return;
  Require(platform::CharacterCount(typed.raw) <= platform::MaskPlaces(format));
  Require(platform::MaskDisplayCaret(format, platform::CharacterCount(typed.raw)) == platform::CharacterCount(display));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckUtf8(bytes);
  const std::string whole = platform::NormaliseLossy(bytes);
  const std::size_t end = whole.find('\n');
  const std::string text = whole.substr(0, end);
  const std::string format = end == std::string::npos ? std::string() : whole.substr(end + 1);
  CheckNumbers(text);
  CheckDates(text);
  CheckShown(text, format);
  return 0;
}
