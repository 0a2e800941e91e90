#pragma once

#include <optional>
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

/// What a text that such a pattern matches holds in small letters.
struct SmallLetters {
  std::string like{};  ///< for the server's LIKE, its ASCII letters small: letters and digits alone, "_" for one character, "%" for a run
  bool isAll = false;  ///< whatever holds that matches
};
/// Nothing where the pattern has no letter or digit that no other character is taken for, or, unless it may stand anywhere, others
/// as well. A pattern without wildcards needs the text without its trailing blanks.
std::optional<SmallLetters> HeldBy(const LikePattern& pattern);

/// What certainly matches a pattern of letters and digits with a "*" behind: texts that begin with them, whatever else is taken for them.
std::optional<SmallLetters> CertainBeginning(const LikePattern& pattern);

/// The expression to test: `text` without the blanks that Like leaves out.
std::string LikeSubject(const std::string& text);

}  // namespace engine::postgres
