#pragma once

#include <optional>

#include "platform/services/map.h"
#include "streets/index/street_index.h"

namespace streets {

/// The great circle between two positions on the mean sphere, in feet.
double Feet(const Position& from, const Position& to);

enum class Side { Left, Right };

/// The place at a part of a line's true length, 0 to 1, drawn in a little from both ends and set off to a side, as a house lies beside
/// its street; on the line itself where it has no length. Nothing for a line without points.
std::optional<Position> BesideLine(const Line& line, double part, Side side);

/// The middle of a line's length, on the line.
std::optional<Position> MiddleOf(const Line& line);

/// In hundred-thousandths of a degree, rounded.
platform::MapPoint MapPointOf(const Position& position);

}  // namespace streets
