#include "platform/values/format_section.h"

#include <algorithm>

#include "platform/values/convert.h"
#include "platform/values/text.h"

namespace platform {

std::vector<FormatSection> SectionsOf(std::string_view format) {
  std::vector<FormatSection> sections(1);
  bool quoted = false;
  bool escaped = false;
  for (char32_t character : ToCodePoints(format)) {
    if (!escaped && !quoted && character == U'\\') {
      escaped = true;
    } else if (!escaped && character == U'"') {
      quoted = !quoted;
    } else if (!escaped && !quoted && character == U';') {
      sections.emplace_back();
    } else {
      sections.back().push_back({character, escaped || quoted});
      escaped = false;
    }
  }
  return sections;
}

bool IsTextSection(const FormatSection& section) {
  return std::any_of(section.begin(), section.end(), [](const FormatItem& item) {
    return item.Is(U'@') || item.Is(U'&') || item.Is(U'<') || item.Is(U'>') || item.Is(U'!');
  });
}

std::optional<NumberText> DecimalOf(const Value& value) {
  std::string text;
  if (value.Kind() == ValueKind::Boolean || value.Kind() == ValueKind::Date)
    text = CStr(CDbl(value));
  else
    text = CStr(value);
  auto number = ReadNumber(text);
  if (!number || !ToDouble(*number)) return {};
  if (number->bits) {
    number->digits = *number->bits ? std::to_string(*number->bits) : "";
    number->bits.reset();
  }
  return number;
}

}  // namespace platform
