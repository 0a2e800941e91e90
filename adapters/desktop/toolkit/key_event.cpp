#include "desktop/toolkit/key_event.h"

#include "desktop/toolkit/toolkit.h"
#include "platform/keys/key.h"

namespace desktop {

namespace {

struct NamedKey {
  int key;
  const char* name;
};

constexpr NamedKey kNamedKeys[] = {
    {Qt::Key_Return, "Enter"},  {Qt::Key_Enter, "Enter"}, {Qt::Key_Escape, "Escape"},       {Qt::Key_Tab, "Tab"},
    {Qt::Key_Backtab, "Tab"},   {Qt::Key_Space, "Space"}, {Qt::Key_Backspace, "Backspace"}, {Qt::Key_Delete, "Delete"},
    {Qt::Key_Home, "Home"},     {Qt::Key_End, "End"},     {Qt::Key_PageUp, "PageUp"},       {Qt::Key_PageDown, "PageDown"},
    {Qt::Key_Up, "Up"},         {Qt::Key_Down, "Down"},   {Qt::Key_Left, "Left"},           {Qt::Key_Right, "Right"},
    {Qt::Key_Plus, "Plus"},     {Qt::Key_Equal, "Plus"},  {Qt::Key_Minus, "Minus"},         {Qt::Key_Underscore, "Minus"},
    {Qt::Key_Insert, "Insert"},
};

std::string PlainName(int key) {
  for (const NamedKey& named : kNamedKeys)
    if (named.key == key) return named.name;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return "F" + std::to_string(key - Qt::Key_F1 + 1);
  if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return std::string(1, static_cast<char>(key));
  return "";
}

}  // namespace

std::string KeyName(const QKeyEvent& event) {
  platform::Key key;
  key.plain = PlainName(event.key());
  const bool named = key.plain.size() > 1;
  if (!named && TypesCharacter(event)) return ToUtf8(event.text());
  if (key.plain.empty()) return "";
  key.control = event.modifiers().testFlag(Qt::ControlModifier);
  key.alt = event.modifiers().testFlag(Qt::AltModifier);
  // On many keyboards "+" needs Shift itself.
  const bool shiftCounts = key.plain != "Plus" && key.plain != "Minus";
  key.shift = shiftCounts && (event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab);
  return platform::NameOf(key);
}

bool TypesCharacter(const QKeyEvent& event) {
  const QString text = event.text();
  if (text.isEmpty()) return false;
  const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier | Qt::GroupSwitchModifier);
  const bool altGr = modifiers == (Qt::ControlModifier | Qt::AltModifier);
  if (modifiers != Qt::NoModifier && !altGr) return false;
  return text[0].isPrint() || text[0].isSurrogate() || text[0].category() == QChar::Other_PrivateUse ||
         text[0].category() == QChar::Other_Format;
}

bool IsStrayLetter(const QKeyEvent& event) { return !event.text().isEmpty() && event.text()[0].isPrint() && !TypesCharacter(event); }

}  // namespace desktop
