#include "desktop/hands/input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QtTest/QTest>
#include <algorithm>
#include <array>
#include <cctype>

#include "desktop/toolkit/toolkit.h"
#include "platform/keys/key.h"

namespace desktop::input {

namespace {

/// To the widget that gets keys now: the focus widget of the window, else the window itself.
QWidget& KeyTarget(QWidget& window) {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup->focusWidget() ? *popup->focusWidget() : *popup;
  return window.focusWidget() ? *window.focusWidget() : window;
}

Qt::Key KeyOfCharacter(const QString& character) {
  if (character.size() != 1) return Qt::Key_unknown;
  const ushort code = character[0].toUpper().unicode();
  return code >= 0x20 && code < 0x7F ? static_cast<Qt::Key>(code) : Qt::Key_unknown;
}

struct Name {
  std::string_view name;
  Qt::Key key;
  const char* text;
};

constexpr std::array kNames = {
    Name{"Enter", Qt::Key_Return, "\r"},    Name{"Tab", Qt::Key_Tab, "\t"},
    Name{"Escape", Qt::Key_Escape, "\x1b"}, Name{"Up", Qt::Key_Up, ""},
    Name{"Down", Qt::Key_Down, ""},         Name{"Left", Qt::Key_Left, ""},
    Name{"Right", Qt::Key_Right, ""},       Name{"Home", Qt::Key_Home, ""},
    Name{"End", Qt::Key_End, ""},           Name{"PageUp", Qt::Key_PageUp, ""},
    Name{"PageDown", Qt::Key_PageDown, ""}, Name{"Backspace", Qt::Key_Backspace, "\b"},
    Name{"Delete", Qt::Key_Delete, "\x7f"}, Name{"Insert", Qt::Key_Insert, ""},
    Name{"Space", Qt::Key_Space, " "},      Name{"Plus", Qt::Key_Plus, "+"},
    Name{"Minus", Qt::Key_Minus, "-"},      Name{"Comma", Qt::Key_Comma, ","},
};

}  // namespace

void Click(QWidget& widget, const QPoint& at, Qt::KeyboardModifiers modifiers) {
  QTest::mouseClick(&widget, Qt::LeftButton, modifiers, at);
}

void Click(QWidget& widget) { Click(widget, widget.rect().center()); }

void DoubleClick(QWidget& widget, const QPoint& at) {
  const QPointer<QWidget> alive(&widget);
  Click(widget, at);
  if (alive) QTest::mouseDClick(&widget, Qt::LeftButton, Qt::NoModifier, at);
}

void Drag(QWidget& widget, const QPoint& from, const QPoint& to) {
  const auto send = [&](QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons held) {
    QMouseEvent event(type, at, widget.mapToGlobal(QPointF(at)), button, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  };
  constexpr int kSteps = 8;
  send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
  for (int step = 1; step <= kSteps; ++step) send(QEvent::MouseMove, from + (to - from) * step / kSteps, Qt::NoButton, Qt::LeftButton);
  send(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}

void Move(QWidget& widget, const QPoint& at) {
  QMouseEvent event(QEvent::MouseMove, at, widget.mapToGlobal(QPointF(at)), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void Key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text) {
  QWidget& target = KeyTarget(window);
  const QPointer<QWidget> alive(&target);
  QTest::sendKeyEvent(QTest::Press, &target, key, text, modifiers);
  if (alive) QTest::sendKeyEvent(QTest::Release, &target, key, text, modifiers);
}

void Type(QWidget& window, const QString& text) {
  const QPointer<QWidget> alive(&window);
  for (qsizetype at = 0; at < text.size() && alive;) {
    const qsizetype length = text[at].isHighSurrogate() && at + 1 < text.size() ? 2 : 1;
    const QString character = text.mid(at, length);
    const bool lineEnd = character == "\n" || character == "\r";
    // A line end of two characters is one key.
    if (character == "\r" && at + 1 < text.size() && text[at + 1] == QChar('\n')) ++at;
    Key(window, lineEnd ? Qt::Key_Return : KeyOfCharacter(character), Qt::NoModifier, lineEnd ? QString("\r") : character);
    at += length;
  }
}

NamedKey KeyByName(std::string_view name) {
  NamedKey named;
  const std::optional<platform::Key> key = platform::KeyNamed(name);
  if (!key) return named;
  if (key->control) named.modifiers |= Qt::ControlModifier;
  if (key->alt) named.modifiers |= Qt::AltModifier;
  if (key->shift) named.modifiers |= Qt::ShiftModifier;
  const auto found = std::find_if(kNames.begin(), kNames.end(), [&](const Name& one) { return one.name == key->plain; });
  if (found != kNames.end()) {
    named.key = found->key == Qt::Key_Tab && key->shift ? Qt::Key_Backtab : found->key;
    if (!key->control && !key->alt) named.text = QString::fromLatin1(found->text);
  } else if (key->plain.size() > 1 && key->plain[0] == 'F' && std::isdigit(static_cast<unsigned char>(key->plain[1]))) {
    named.key = static_cast<Qt::Key>(Qt::Key_F1 + ToShown(key->plain).mid(1).toInt() - 1);
  } else {
    named.key = KeyOfCharacter(ToShown(key->plain));
    named.text = ToShown(platform::TypedBy(platform::NameOf(*key)));
  }
  return named;
}

}  // namespace desktop::input
