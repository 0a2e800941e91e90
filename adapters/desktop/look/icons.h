#pragma once

#include <QIcon>
#include <QString>

namespace desktop {

/// One of our own drawings, by name ("tb_Find"), in the colours of the application: the drawing's "currentColor" becomes
/// the text colour, grey when disabled. Sharp at any size and scale. An unknown name gives an empty icon.
QIcon DrawnIcon(const QString& name);

}  // namespace desktop
