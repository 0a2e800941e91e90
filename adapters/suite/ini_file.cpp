#include "suite/ini_file.h"

#include <array>

#include "platform/values/text.h"
#include "suite/host_file.h"

namespace suite {

namespace {

/// A settings file has a handful of lines; what lies behind this is not looked at.
constexpr std::size_t kGreatestIniFile = 1U << 20U;

constexpr std::array<char32_t, 32> kWesternHighControls = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
    0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

std::string FromWestern(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    platform::AppendCodePoint(text, byte >= 0x80 && byte < 0xA0 ? kWesternHighControls.at(byte - 0x80U) : char32_t{byte});
  }
  return text;
}

std::string FromUtf16(std::string_view bytes, bool bigEndian) {
  const auto unit = [&](std::size_t at) {
    const auto first = static_cast<unsigned char>(bytes[at]);
    const auto second = static_cast<unsigned char>(bytes[at + 1]);
    return static_cast<char32_t>(bigEndian ? first << 8U | second : second << 8U | first);
  };
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t point = unit(at);
    const bool high = point >= 0xD800 && point < 0xDC00;
    if (high && at + 3 < bytes.size()) {
      const char32_t low = unit(at + 2);
      if (low >= 0xDC00 && low < 0xE000) {
        point = 0x10000 + ((point - 0xD800) << 10U) + (low - 0xDC00);
        at += 2;
      }
    }
    if (point >= 0xD800 && point < 0xE000) point = 0xFFFD;
    platform::AppendCodePoint(text, point);
  }
  return text;
}

std::string_view TrimLine(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

/// The name in a "[Section]" line; nothing for other lines. A missing "]" is forgiven.
std::optional<std::string_view> SectionName(std::string_view line) {
  if (line.empty() || line.front() != '[') return std::nullopt;
  line.remove_prefix(1);
  return TrimLine(line.substr(0, line.find(']')));
}

/// Takes the first line, up to CR or LF, off `text`.
std::string_view NextLine(std::string_view& text) {
  const auto end = text.find_first_of("\r\n");
  const auto line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return TrimLine(line);
}

}  // namespace

std::string DecodeIniText(std::string_view bytes) {
  std::string text;
  if (bytes.substr(0, 2) == "\xFF\xFE") {
    text = FromUtf16(bytes.substr(2), false);
  } else if (bytes.substr(0, 2) == "\xFE\xFF") {
    text = FromUtf16(bytes.substr(2), true);
  } else {
    text = bytes.substr(bytes.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0);
  }
  for (char& c : text) {
    if (c == '\0') c = '\n';
  }
  return platform::IsValidUtf8(text) ? text : FromWestern(text);
}

std::optional<std::string> FindIniValue(std::string_view text, std::string_view section, std::string_view key) {
  bool inside = false;
  while (!text.empty()) {
    const auto line = NextLine(text);
    if (line.empty() || line.front() == ';') continue;
    if (const auto name = SectionName(line)) {
      if (inside) return std::nullopt;
      inside = platform::EqualsNoCase(*name, section);
      continue;
    }
    const auto sign = line.find('=');
    if (!inside || sign == std::string_view::npos || !platform::EqualsNoCase(TrimLine(line.substr(0, sign)), key)) continue;
    return std::string(WithoutQuotes(TrimLine(line.substr(sign + 1))));
  }
  return std::nullopt;
}

std::string ReadIniFile(const std::string& hostPath, std::string_view section, std::string_view key, std::string_view defaultValue,
                        int size) {
  std::string value(defaultValue);
  if (const auto bytes = ReadFileStart(hostPath, kGreatestIniFile)) {
    if (const auto found = FindIniValue(DecodeIniText(*bytes), section, key)) value = *found;
  }
  value = platform::Normalise(value).value_or(value);
  if (size < 1) return {};
  value.resize(platform::ByteOffset(value, static_cast<std::size_t>(size) - 1));
  return value;
}

}  // namespace suite
