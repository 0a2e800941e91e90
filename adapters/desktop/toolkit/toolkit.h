#pragma once

#include <QObject>
#include <QString>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"

/// Small bridges between the library's types and the toolkit's.
namespace desktop {

inline QString ToShown(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

/// Precomposed UTF-8, as the models keep their texts.
inline std::string ToUtf8(const QString& text) { return text.normalized(QString::NormalizationForm_C).toStdString(); }

/// A captured line end ("\r", "\r\n") as the toolkit breaks lines.
inline QString WithLineBreaks(QString text) {
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  text.replace(QChar('\r'), QChar('\n'));
  return text;
}

/// Characters of `text` before the UTF-16 position `at`, and back.
qsizetype CharactersBefore(const QString& text, qsizetype at);
qsizetype PositionOfCharacter(const QString& text, qsizetype characters);

/// A child that its parent owns.
template <class T, class... Args>
T* NewChild(QObject* parent, Args&&... args) {
  auto made = std::make_unique<T>(std::forward<Args>(args)...);
  made->setParent(parent);
  return made.release();
}

/// As NewChild, for widgets, whose parent has a type of its own.
template <class T, class Parent, class... Args>
T* NewWidget(Parent* parent, Args&&... args) {
  return std::make_unique<T>(std::forward<Args>(args)..., parent).release();
}

/// Tells the user (an error of the engine) or the diagnostic log (anything else) of what a slot could not handle.
void ReportFromSlot(platform::FormHost& host, const std::exception* what) noexcept;

/// Runs `body` so that nothing it throws reaches the toolkit.
template <class Body>
void Safely(platform::FormHost& host, Body&& body) noexcept {
  try {
    body();
  } catch (const std::exception& what) {
    ReportFromSlot(host, &what);
  } catch (...) {
    ReportFromSlot(host, nullptr);
  }
}

/// The name that a control's widget bears: "txtLastName", "grid_0".
QString WidgetName(const platform::Control& control);

}  // namespace desktop
