#pragma once

#include <QGuiApplication>
#include <memory>

namespace printing {

/// The toolkit's application object where the program has none: one that draws into memory. Fonts need it.
std::unique_ptr<QGuiApplication> ToolkitWithoutDisplay();
/// The same for windows.
std::unique_ptr<QGuiApplication> WindowsWithoutDisplay();

}  // namespace printing
