#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QString>
#include <memory>
#include <utility>

/// Colours and drawings of the preview, of one family with the program's other windows.
namespace printing::look {

/// A drawing by name ("print") in the text colour of the application; grey when disabled.
QIcon Icon(const QString& name);
/// Rules of style for the window, on its own palette.
QString WindowRules(const QPalette& palette);
/// What lies around the paper.
QColor Desk(const QPalette& palette);
QColor PaperEdge(const QPalette& palette);
/// Behind what was found, and behind the hit that is shown now.
QColor Hit();
QColor PresentHit();
/// Behind texts that are chosen for a copy.
QColor Chosen(const QPalette& palette);

/// A child that its parent owns.
template <class T, class Parent, class... Args>
T* New(Parent* parent, Args&&... args) {
  return std::make_unique<T>(std::forward<Args>(args)..., parent).release();
}

}  // namespace printing::look
