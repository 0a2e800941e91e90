#pragma once

#include <QCheckBox>

namespace desktop {

/// A frame whose layout says "marksOn" stands out while a check box in it is on, and so does its tab when the tab bar says the same.
/// To be called when the box was turned.
void ShowOn(const QCheckBox& box);

/// A title is wider when it stands out, and the layouts are measured once: gives those frames of the window room for it. To be called
/// when all texts stand.
void KeepRoomForTitles(const QWidget& window);

}  // namespace desktop
