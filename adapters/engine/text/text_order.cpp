#include "engine/text/text_order.h"

#include <algorithm>

#include "engine/text/weights.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using weights::Weights;
using weights::WeightsOf;

weights::Rank AsciiRankAt(std::string_view text, std::size_t at) { return weights::kAsciiRanks[static_cast<unsigned char>(text[at])]; }

/// Gives out a text's primary weights, or its accents, one after the other and 0 at the end.
class Walk {
 public:
  explicit Walk(std::string_view text) : text_(text) {}

  weights::Primary NextPrimary() {
    while (at_ == current_.primaryCount) {
      if (!Advance()) return 0;
      at_ = 0;
    }
    return current_.primary[at_++];
  }

  /// 1 for each primary weight, the accents behind it each above 1.
  std::uint32_t NextAccent() {
    while (at_ == current_.primaryCount + current_.accentCount) {
      if (!Advance()) return 0;
      at_ = 0;
    }
    const int place = at_++;
    return place < current_.primaryCount ? 1 : 1 + current_.accents[static_cast<std::size_t>(place - current_.primaryCount)];
  }

 private:
  bool Advance() {
    if (offset_ == text_.size()) return false;
    current_ = WeightsOf(platform::NextCodePoint(text_, offset_));
    return true;
  }

  std::string_view text_;
  std::size_t offset_ = 0;
  Weights current_;
  std::uint8_t at_ = 0;
};

// The character that ends the upper bound of a fixed start: above all others.
bool StartsHighest(std::string_view text) { return text.starts_with("\xF4\x8F\xBF\xBF"); }

/// Two texts whose starts tied without an accent.
int CompareAnyText(std::string_view left, std::string_view right) {
  Walk leftPrimaries(left);
  Walk rightPrimaries(right);
  while (true) {
    const auto a = leftPrimaries.NextPrimary();
    const auto b = rightPrimaries.NextPrimary();
    if (a != b) return a < b ? -1 : 1;
    if (a == 0) break;
  }

  Walk leftAccents(left);
  Walk rightAccents(right);
  while (true) {
    const auto a = leftAccents.NextAccent();
    const auto b = rightAccents.NextAccent();
    if (a != b) return a < b ? -1 : 1;
    if (a == 0) return 0;
  }
}

}  // namespace

int CompareText(std::string_view left, std::string_view right) {
  left = WithoutTrailingBlanks(left);
  right = WithoutTrailingBlanks(right);
  const std::size_t shared = std::min(left.size(), right.size());
  for (std::size_t at = 0; at < shared; ++at) {
    const auto a = AsciiRankAt(left, at);
    const auto b = AsciiRankAt(right, at);
    if (a == 0 || b == 0) {
      // Each row of a list by a fixed start is compared with its upper bound.
      if (a != 0 && StartsHighest(right.substr(at))) return -1;
      if (b != 0 && StartsHighest(left.substr(at))) return 1;
      return CompareAnyText(left.substr(at), right.substr(at));
    }
    if (a != b) return a < b ? -1 : 1;
  }
  if (left.size() == right.size()) return 0;
  // What follows in the longer text counts unless it is only accents, and these are never ASCII.
  const std::string_view longer = left.size() > shared ? left : right;
  if (AsciiRankAt(longer, shared) == 0 && !StartsHighest(longer.substr(shared))) return CompareAnyText(left.substr(shared), right.substr(shared));
  return left.size() < right.size() ? -1 : 1;
}

int CompareCharacters(char32_t left, char32_t right) {
  if (left == right) return 0;
  if (left < 0x80 && right < 0x80) return int{weights::kAsciiRanks[left]} - int{weights::kAsciiRanks[right]};
  const auto order = WeightsOf(left) <=> WeightsOf(right);
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
  while (!text.empty()) {
    if (text.back() == ' ' || text.back() == '\t')
      text.remove_suffix(1);
    else if (text.ends_with("\u00A0"))
      text.remove_suffix(2);
    else
      break;
  }
  return text;
}

PrimaryRange PrefixRange(std::string_view prefix) {
  PrimaryRange range;
  Walk primaries(prefix);
  while (const auto primary = primaries.NextPrimary()) platform::AppendCodePoint(range.lower, weights::CharacterOf(primary));
  range.upper = range.lower;
  platform::AppendCodePoint(range.upper, platform::kHighestCodePoint);
  return range;
}

std::uint64_t SortPrefix(std::string_view text) {
  text = WithoutTrailingBlanks(text);
  std::uint64_t packed = 0;
  int free = 8;
  const auto put = [&](std::uint32_t byte) {
    if (free > 0) packed |= static_cast<std::uint64_t>(byte & 0xFF) << (8 * --free);
  };
  for (std::size_t at = 0; free > 0 && at < text.size(); ++at) {
    const auto rank = AsciiRankAt(text, at);
    if (rank != 0) {
      put(rank);
      continue;
    }
    Walk primaries(text.substr(at));
    while (const auto primary = free > 0 ? primaries.NextPrimary() : 0) {
      const auto ownRank = weights::RankOf(primary);
      put(ownRank);
      if (!weights::IsSharedRank(ownRank)) continue;
      const char32_t codePoint = weights::CodePointOf(primary);
      put(codePoint >> 16);
      put(codePoint >> 8);
      put(codePoint);
    }
    break;
  }
  return packed;
}

}  // namespace engine
