#include "streets/import/census/source_text.h"

#include <cstddef>

namespace streets {
namespace {

bool IsUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const auto first = static_cast<unsigned char>(bytes[i]);
    const std::size_t length = first < 0x80 ? 1 : first >= 0xc2 && first < 0xe0 ? 2 : first >= 0xe0 && first < 0xf0 ? 3 : first >= 0xf0 && first < 0xf5 ? 4 : 0;
    if (length == 0 || bytes.size() - i < length) return false;
    for (std::size_t k = 1; k < length; ++k)
      if ((static_cast<unsigned char>(bytes[i + k]) & 0xc0) != 0x80) return false;
    i += length;
  }
  return true;
}

// The control characters between the letters and those of western Europe, which some terminals obey.
bool IsHighControl(unsigned char byte) { return byte >= 0x80 && byte < 0xa0; }

void AppendLatin(unsigned char byte, std::string& text) {
  text += static_cast<char>(0xc0 | byte >> 6);
  text += static_cast<char>(0x80 | (byte & 0x3f));
}

}  // namespace

std::string SourceText(std::string_view bytes) {
  const bool utf8 = IsUtf8(bytes);
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (byte < 0x20 || byte == 0x7f) continue;
    if (byte < 0x80) {
      text += bytes[i];
    } else if (!utf8) {
      if (!IsHighControl(byte)) AppendLatin(byte, text);
    } else if (byte == 0xc2 && IsHighControl(static_cast<unsigned char>(bytes[i + 1]))) {
      ++i;
    } else {
      text += bytes[i];
    }
  }
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace streets
