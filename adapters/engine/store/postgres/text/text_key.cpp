#include "engine/store/postgres/text/text_key.h"

#include "engine/text/text_order.h"
#include "engine/text/weights.h"
#include "platform/values/text.h"

namespace engine::postgres {
namespace {

using weights::Primary;
using weights::Weights;

// Signs that are ASCII but stand above '/', lead by it: so they come behind it and before the digits.
constexpr std::string_view kHighSignLead = "/~";
constexpr std::string_view kDelete = "\x1F~";
constexpr std::string_view kOtherControlLead = "\x1F~~";

void AppendCode(std::string& key, std::uint32_t code) {
  for (int shift = 18; shift >= 0; shift -= 6) key += static_cast<char>(kFirstCodeSign + ((code >> shift) & 63));
}

std::string_view LeadOf(weights::Rank sharedRank) {
  if (sharedRank < weights::kBlankRank) return kOtherControlLead;
  return sharedRank < weights::kAsciiRanks['0'] ? kSymbolLead : kLetterLead;
}

bool IsHighSign(char32_t character) {
  return (character >= U':' && character <= U'@') || (character >= U'[' && character <= U'`') || (character >= U'{' && character <= U'~');
}

void AppendPrimary(std::string& key, Primary primary) {
  const weights::Rank rank = weights::RankOf(primary);
  if (weights::IsSharedRank(rank)) {
    key += LeadOf(rank);
    return AppendCode(key, weights::CodePointOf(primary));
  }
  const char32_t character = weights::CharacterOf(primary);
  switch (character) {
    case U'\u00F0':
      key += "d~";
      return;
    case U'\u00FE':
      key += '{';
      return;
    case U'\u00F8':
      key += '|';
      return;
    case 0x7F:
      key += kDelete;
      return;
    default:
      break;
  }
  if (character < U'\t') {
    key += static_cast<char>(character + 1);  // the lowest sign parts the halves
    return;
  }
  if (IsHighSign(character)) key += kHighSignLead;
  key += static_cast<char>(character);
}

void AppendAccent(std::string& key, std::uint32_t accent) {
  constexpr std::uint32_t kOrdered = 8;  // marks with a place of their own
  if (accent <= kOrdered) {
    key += static_cast<char>(kNoAccent + accent);
  } else {
    key += kLetterLead;
    AppendCode(key, accent);
  }
}

void AppendParts(KeyParts& parts, const Weights& weights) {
  for (std::uint8_t i = 0; i < weights.primaryCount; ++i) AppendPrimary(parts.primary, weights.primary[i]);
  parts.accents.append(weights.primaryCount, kNoAccent);
  for (std::uint8_t i = 0; i < weights.accentCount; ++i) AppendAccent(parts.accents, weights.accents[i]);
}

KeyParts PartsOf(std::string_view text) {
  KeyParts parts;
  for (std::size_t at = 0; at < text.size();) AppendParts(parts, weights::WeightsOf(platform::NextCodePoint(text, at)));
  return parts;
}

}  // namespace

KeyParts KeyPartsOf(char32_t character) {
  KeyParts parts;
  AppendParts(parts, weights::WeightsOf(character));
  return parts;
}

std::string TextKey(std::string_view text) {
  KeyParts parts = PartsOf(WithoutTrailingBlanks(text));
  while (!parts.accents.empty() && parts.accents.back() == kNoAccent) parts.accents.pop_back();
  if (parts.accents.empty()) return std::move(parts.primary);
  return parts.primary + kAccentsFollow + parts.accents;
}

TextKeyRange KeysBeginning(std::string_view prefix) {
  std::string lower = PartsOf(prefix).primary;
  std::string upper = lower + '\x7F';
  return {std::move(lower), std::move(upper)};
}

}  // namespace engine::postgres
