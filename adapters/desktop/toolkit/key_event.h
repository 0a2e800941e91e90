#pragma once

#include <QKeyEvent>
#include <string>

namespace desktop {

/// The key's name as platform/keys knows it: "Ctrl+Shift+P", or the character that it types; "" for a key without one.
std::string KeyName(const QKeyEvent& event);
/// Whether the key types a character (and is no command).
bool TypesCharacter(const QKeyEvent& event);
/// Whether the key has a printable text that is not meant as such: Alt with a letter that no menu or caption knows.
bool IsStrayLetter(const QKeyEvent& event);

}  // namespace desktop
