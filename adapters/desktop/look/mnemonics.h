#pragma once

#include <QString>
#include <QWidget>

namespace desktop {

/// The caption of `widget` with the letter underlined that the layout's property "mnemonic" names, at its first place; an
/// ampersand in the caption stays one. Captions themselves hold no letters, so that they read everywhere as they are; only a button's
/// may mark one by an ampersand ("E&xit"), which is then used as it stands.
QString WithMnemonic(const QString& caption, const QWidget& widget);

}  // namespace desktop
