#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace printing {

/// How the data files order and match texts, handed in: the reports choose and group rows by the same order as the store sorts them.
struct TextRules {
  /// Below, equal to or above 0 as the left text stands before, with or behind the right one.
  std::function<int(std::string_view left, std::string_view right)> compare;
  /// A test for the texts that a pattern of the data engine takes: * ? # and lists in brackets.
  std::function<std::function<bool(std::string_view text)>(const std::string& pattern)> like;
};

/// A pattern of the selection language, in which * and ? alone are special, as the data engine writes it.
std::string EnginePattern(std::string_view pattern);
/// The engine's pattern for all texts with that start.
std::string EnginePatternOfStart(std::string_view start);

}  // namespace printing
