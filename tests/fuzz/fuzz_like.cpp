#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

// Pattern and text, parted by the first line end: ranges hold all that Like finds, and the order contradicts itself nowhere.

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

int Sign(int number) { return (number > 0) - (number < 0); }

void CheckOrder(std::string_view left, std::string_view right) {
  const int order = Sign(engine::CompareText(left, right));
  Require(order == -Sign(engine::CompareText(right, left)));
  Require(engine::CompareText(left, left) == 0);
  const auto leftPrefix = engine::SortPrefix(left);
  const auto rightPrefix = engine::SortPrefix(right);
  if (leftPrefix != rightPrefix) Require(order == (leftPrefix < rightPrefix ? -1 : 1));
}

void CheckLike(std::string_view pattern, std::string_view text) {
  try {
    const engine::LikePattern like(pattern);
    if (!like.Matches(text)) return;
    const auto range = engine::PrefixRange(like.FixedPrefix());
    Require(engine::CompareText(range.lower, text) <= 0 && engine::CompareText(text, range.upper) < 0);
  } catch (const platform::Error& error) {
    Require(error.Number() == 93);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const std::size_t end = bytes.find('\n');
  const std::string_view first = bytes.substr(0, end);
  const std::string_view second = end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1);
  CheckOrder(first, second);
  const std::string pattern = platform::NormaliseLossy(first);
  const std::string text = platform::NormaliseLossy(second);
  CheckOrder(pattern, text);
  CheckLike(pattern, text);
  return 0;
}
