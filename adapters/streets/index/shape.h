#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "streets/index/street_index.h"

namespace streets {

/// A line as a file keeps it: the way from point to point (the first from 0, 0), longitude before latitude, each a whole number
/// of millionths of a degree whose sign stands in its lowest bit, seven bits a byte, the lowest first.
std::vector<std::byte> PackShape(std::span<const Position> line);

/// The line again. What is cut short or leaves the earth ends the line there: a damaged file shows less and harms nothing.
void UnpackShape(std::span<const std::byte> bytes, Line& line);

}  // namespace streets
