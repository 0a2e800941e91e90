#pragma once

#include <string>

#include "engine/text/like.h"

namespace engine::postgres {

/// The Like test as a condition, by a parameter that takes what LikeRegex gives.
std::string LikeTest(const std::string& value, const std::string& parameter);
/// The same by a pattern that is known beforehand, worded so that the server sees soonest which texts don't match.
std::string KnownLikeTest(const std::string& value, const LikePattern& pattern);

}  // namespace engine::postgres
