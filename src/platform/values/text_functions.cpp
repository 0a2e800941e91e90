#include <algorithm>

#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/text.h"
#include "platform/values/unicode.h"

namespace platform {
namespace {

std::size_t Counted(int characters) {
  if (characters < 0) throw error::InvalidCall();
  return static_cast<std::size_t>(characters);
}

template <class Mapping>
std::string Mapped(std::string_view text, Mapping mapping) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) AppendCodePoint(out, mapping(NextCodePoint(text, at)));
  return out;
}

}  // namespace

std::string LTrim(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return std::string(text);
}

std::string RTrim(std::string_view text) { return std::string(text.substr(0, text.find_last_not_of(' ') + 1)); }
std::string Trim(std::string_view text) { return RTrim(LTrim(text)); }
std::string UCase(std::string_view text) { return Mapped(text, UpperOf); }
std::string LCase(std::string_view text) { return Mapped(text, LowerOf); }

std::string Left(std::string_view text, int characters) { return std::string(text.substr(0, ByteOffset(text, Counted(characters)))); }

std::string Right(std::string_view text, int characters) {
  const std::size_t wanted = Counted(characters);
  const std::size_t all = CharacterCount(text);
  return std::string(text.substr(ByteOffset(text, all - std::min(all, wanted))));
}

std::string Mid(std::string_view text, int start, std::optional<int> characters) {
  if (start < 1) throw error::InvalidCall();
  const std::string_view rest = text.substr(ByteOffset(text, static_cast<std::size_t>(start - 1)));
  return characters ? Left(rest, *characters) : std::string(rest);
}

int InStr(int start, std::string_view text, std::string_view wanted) {
  if (start < 1) throw error::InvalidCall();
  if (text.empty()) return 0;
  const std::size_t from = ByteOffset(text, static_cast<std::size_t>(start - 1));
  if (from == text.size()) return 0;
  if (wanted.empty()) return start;
  const std::size_t found = text.find(wanted, from);
  return found == std::string_view::npos ? 0 : Len(text.substr(0, found)) + 1;
}

int Len(std::string_view text) { return static_cast<int>(CharacterCount(text)); }

std::string FixedText(std::string_view text, int characters) {
  const std::size_t wanted = Counted(characters);
  const std::size_t all = CharacterCount(text);
  if (all >= wanted) return std::string(text.substr(0, ByteOffset(text, wanted)));
  return std::string(text) + std::string(wanted - all, ' ');
}

}  // namespace platform
