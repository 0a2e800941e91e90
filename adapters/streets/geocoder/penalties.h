#pragma once

/// What each thing that had to be overlooked costs a candidate. 0 is a match in everything; the less, the better.
namespace streets::penalty {

inline constexpr int kTypeMissing = 3;
inline constexpr int kDirectionMissing = 4;
inline constexpr int kDirectionElsewhere = 3;  ///< in front for behind
inline constexpr int kTypeOther = 12;
inline constexpr int kDirectionOther = 16;

inline constexpr int kOneLetter = 14;
inline constexpr int kTwoLetters = 18;
inline constexpr int kSoundAlone = 24;

inline constexpr int kOtherSuffix = 1;  ///< 12B for 12
inline constexpr int kOtherSide = 8;    ///< an even number where only odd ones are known
inline constexpr int kNumberNear = 13;  ///< outside of all ranges by a block or two: dearer than the next ZIP, cheaper than another name
inline constexpr int kNumberFar = 20;
inline constexpr int kNoNumbers = 24;  ///< a number, in a street without any

inline constexpr int kOtherTown = 9;     ///< the ZIP is right and the town isn't its own
inline constexpr int kUnknownZip = 6;    ///< the text's ZIP is not known
inline constexpr int kUnknownPlace = 8;  ///< where the street lies is not known
inline constexpr int kOtherZip = 12;     ///< the text's ZIP lies elsewhere
inline constexpr int kNeighbour = 14;    ///< neither its ZIP nor its town
inline constexpr int kOtherState = 20;

/// What costs more is no candidate.
inline constexpr int kMost = 45;

/// How much worse than the best a candidate may be. Next to a full match nothing else is worth a look.
constexpr int Margin(int best) { return best == 0 ? 0 : 4; }

}  // namespace streets::penalty
