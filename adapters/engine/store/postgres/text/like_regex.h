#pragma once

#include <string>
#include <string_view>

#include "engine/text/like.h"

namespace engine::postgres {

/// A pattern of Like as the server's regular expression, for the text without its trailing blanks: exactly the same texts match,
/// without any folding of the server's own. ASCII alone. What may stand anywhere and ends in no blank ("*smi*") needs no anchors, and finds
/// the same in the text with its blanks.
std::string LikeRegex(const LikePattern& pattern);
/// Whether a regular expression of these is one of the latter.
bool StandsAnywhere(std::string_view regex);

/// The expression to test: `text` without the blanks that Like leaves out.
std::string LikeSubject(const std::string& text);

}  // namespace engine::postgres
