#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/values/number_text.h"
#include "platform/values/value.h"

/// The parts of Format: sections, number formats, text formats.
namespace platform {

/// One character of a section: what it says, or itself when it was escaped or quoted.
struct FormatItem {
  char32_t character = 0;
  bool literal = false;

  bool Is(char32_t meaning) const { return !literal && character == meaning; }
};
using FormatSection = std::vector<FormatItem>;

/// The sections between ";": `\x` and "..." make characters literal.
std::vector<FormatSection> SectionsOf(std::string_view format);

/// Whether the section has any of "@&<>!", which makes the format one for texts.
bool IsTextSection(const FormatSection& section);

/// The value as an exact decimal; a Double by its first 15 digits, a date by its serial. Nothing for a text that is no
/// number. The value is not Null.
std::optional<NumberText> DecimalOf(const Value& value);

/// The number in "0#,.%" and literals: first section, second for negative ones, third for zero.
std::string FormatNumber(const NumberText& number, const std::vector<FormatSection>& sections);

/// The text in "@&<>!" and literals.
std::string FormatText(std::string_view text, const FormatSection& section);

}  // namespace platform
