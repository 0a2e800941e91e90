#pragma once

#include <string>

namespace suitefiles {

/// The blue pin of the map ("pushblue.bmp"): a bitmap with transparency, 20 by 28 points at twice a screen's density. Its foot, in the
/// middle below, is what stands on the place.
std::string PinPicture();

}  // namespace suitefiles
