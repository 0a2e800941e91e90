#pragma once

#include <QCheckBox>
#include <QGroupBox>

namespace desktop {

/// A frame whose layout says "marksOn" stands out while a check box in it is on, and so does its tab when the tab bar says the same.
/// To be called when the box was turned.
void ShowOn(const QCheckBox& box);

/// The title is wider when it stands out; the layouts are measured once.
void KeepRoomForTitle(QGroupBox& group);

}  // namespace desktop
