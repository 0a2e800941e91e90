#pragma once

#include <string>

#include "engine/text/like.h"

namespace engine::postgres {

/// A pattern of Like as the server's regular expression, for the text without its trailing blanks: exactly the same texts match,
/// without any folding of the server's own. ASCII alone.
std::string LikeRegex(const LikePattern& pattern);

/// The expression to test: `text` without the blanks that Like leaves out.
std::string LikeSubject(const std::string& text);

}  // namespace engine::postgres
