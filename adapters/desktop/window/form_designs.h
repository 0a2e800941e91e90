#pragma once

#include <vector>

#include "desktop/window/form_window.h"

namespace desktop {

/// The layouts of the library's screens, one form file each.
std::vector<FormDesign> LibraryDesigns();

/// A layout from the class that the form compiler made of a form file.
template <class Ui>
FormDesign DesignFrom(std::string screen) {
  return {std::move(screen), [](QMainWindow& window) { Ui().setupUi(&window); }};
}

}  // namespace desktop
