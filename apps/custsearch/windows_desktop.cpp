#include "custsearch/windows.h"
#include "desktop/desktop.h"

namespace custsearch {

bool HasWindows() { return true; }

std::unique_ptr<platform::FrontEnd> MakeWindows(const std::string& settingsFolder, const std::string& user, bool mayBeOffscreen) {
  desktop::DesktopOptions options;
  options.settingsFolder = settingsFolder;
  options.user = user;
  options.offscreenIfNoDisplay = mayBeOffscreen;
  return desktop::MakeFrontEnd(options);
}

std::unique_ptr<platform::UserHands> MakeWindowHands(platform::FrontEnd& windows) { return desktop::MakeHands(windows); }

}  // namespace custsearch
