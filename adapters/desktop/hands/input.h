#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <string_view>

/// Simulated input: the same events that mouse and keyboard of a user make.
namespace desktop::input {

void Click(QWidget& widget, const QPoint& at, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Click(QWidget& widget);
void DoubleClick(QWidget& widget, const QPoint& at);
void Drag(QWidget& widget, const QPoint& from, const QPoint& to);
void Move(QWidget& widget, const QPoint& at);
/// One key to whatever has the focus in `window`; shortcuts count.
void Key(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text = {});
/// Each character as a key.
void Type(QWidget& window, const QString& text);

/// A key by its name ("Ctrl+Shift+F7", "Enter", "a").
struct NamedKey {
  Qt::Key key = Qt::Key_unknown;
  Qt::KeyboardModifiers modifiers;
  QString text;
};
NamedKey KeyByName(std::string_view name);

}  // namespace desktop::input
