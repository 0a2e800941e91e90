#pragma once

#include <vector>

/// Rows of levels, one level a factor, in which every pair of levels of every two factors stands at least once. Always the same rows
/// for the same factors.
std::vector<std::vector<int>> CoverPairs(const std::vector<int>& levelsOfFactor);
