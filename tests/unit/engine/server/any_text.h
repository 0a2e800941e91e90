#pragma once

#include <cstddef>
#include <random>
#include <string>

#include "platform/values/text.h"

// Letters that tie, accents, marks, signs, blanks, symbols, other scripts, and now and then any character.
inline char32_t AnyCharacter(std::mt19937& random) {
  static const std::u32string frequent =
      U"aAbsSzZ09 "
      U"\t\u00A0!'-/"
      U":@[_`{~\u0001\u0008\u000A\u001F\u007F\u0085\u00E4\u00C4\u00E9\u00E8\u00DF\u00E6\u0153\u00F0\u00FE\u00F8\u0142\u017F\u0301\u0308"
      U"\u0345\u1EA5\u2013\u2019\u20AC\u00BD\u03A3\u03C2\u0416\u4E2D\uAC00\uFF21\U0001F600";
  if (random() % 8 != 0) return frequent[random() % frequent.size()];
  while (true) {
    const auto character = static_cast<char32_t>(1 + random() % platform::kHighestCodePoint);
    if (character < 0xD800 || character > 0xDFFF) return character;
  }
}

inline std::string AnyText(std::mt19937& random, std::size_t longest) {
  std::string text;
  for (std::size_t left = random() % (longest + 1); left > 0; --left) platform::AppendCodePoint(text, AnyCharacter(random));
  return text;
}
