#include "streets/geocoder/name_match.h"

#include <algorithm>

#include "streets/address/sound.h"
#include "streets/geocoder/penalties.h"

namespace streets {

namespace {

int PartPenalty(const std::string& asked, const std::string& street) {
  if (asked == street) return 0;
  return asked.empty() || street.empty() ? penalty::kDirectionMissing : penalty::kDirectionOther;
}

int DirectionPenalty(const StreetName& asked, const StreetName& street) {
  const bool isSame = asked.before == street.before && asked.behind == street.behind;
  if (!isSame && asked.before == street.behind && asked.behind == street.before) return penalty::kDirectionElsewhere;
  return PartPenalty(asked.before, street.before) + PartPenalty(asked.behind, street.behind);
}

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

/// "HWY" says less than "STATE HWY" and does not contradict it; nor does "RD" contradict "CO RD".
bool IsPartOf(const std::string& less, const std::string& more) {
  return less == "RTE" ? EndsWith(more, "HWY") || more == "CO RD" : EndsWith(more, " " + less);
}

bool TypesFit(const std::string& asked, const std::string& street) {
  return asked.empty() || street.empty() || asked == street || IsPartOf(asked, street) || IsPartOf(street, asked);
}

bool PartsFit(const std::string& asked, const std::string& street) { return asked.empty() || street.empty() || asked == street; }

int TypePenalty(const std::string& asked, const std::string& street) {
  if (asked == street) return 0;
  return TypesFit(asked, street) ? penalty::kTypeMissing : penalty::kTypeOther;
}

}  // namespace

int NamePenalty(const StreetName& asked, const StreetName& street) {
  return DirectionPenalty(asked, street) + TypePenalty(asked.type, street.type);
}

bool Contradict(const StreetName& asked, const StreetName& street) {
  const bool isMoved = DirectionPenalty(asked, street) == penalty::kDirectionElsewhere;
  return isMoved || !PartsFit(asked.before, street.before) || !PartsFit(asked.behind, street.behind) || !TypesFit(asked.type, street.type);
}

std::optional<int> SpellingPenalty(const std::string& asked, const std::string& key) {
  constexpr std::size_t kShortest = 4;
  constexpr std::size_t kLong = 6;
  if (asked == key) return 0;
  if (asked.size() < kShortest || key.size() < kShortest - 1) return std::nullopt;
  // Names that sound the same may differ in more letters, but not in most.
  const int most = std::max(2, static_cast<int>(asked.size() / 3));
  const int distance = EditDistance(asked, key, most);
  if (distance > most) return std::nullopt;
  if (distance == 1) return penalty::kOneLetter;
  if (distance == 2 && std::max(asked.size(), key.size()) >= kLong) return penalty::kTwoLetters;
  if (Soundex(asked) == Soundex(key)) return penalty::kSoundAlone;
  return std::nullopt;
}

}  // namespace streets
