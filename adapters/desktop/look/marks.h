#pragma once

#include <QCheckBox>

namespace desktop {

/// A frame whose layout says "marksOn" stands out while a check box in it is on, and so does its tab when the tab bar says the same.
/// To be called when the box was turned.
void ShowOn(const QCheckBox& box);

}  // namespace desktop
