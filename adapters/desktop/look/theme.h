#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <string>

/// Colours and the few rules of style that all windows share.
namespace desktop::theme {

/// Whether dark colours are wanted: by `scheme` ("light", "dark"), else by ORCUSSCH_COLOR_SCHEME, else as the system's own
/// colours are.
bool WantsDark(const std::string& scheme);

QPalette Colours(bool dark);

/// Style and colours for the whole application; only for an application object of our own.
void Install(bool dark);

/// Rules of style for one of our windows, on its own palette.
QString WindowRules(const QPalette& palette);

bool IsDark(const QPalette& palette);

/// Soft line between cells and around groups.
QColor LineColour(const QPalette& palette);
/// Captions and hints: quieter than the text, and still read with ease.
QColor HintColour(const QPalette& palette);
/// The handle of a scroll bar.
QColor ScrollColour(const QPalette& palette);
/// The ground of a group that is on.
QColor OnColour(const QPalette& palette);
/// The ground of a card, between the window's and that of an edit.
QColor SheetColour(const QPalette& palette);

}  // namespace desktop::theme
