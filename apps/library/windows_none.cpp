#include "library/windows.h"
#include "platform/values/error.h"

namespace library {
namespace {

platform::Error NoWindows() { return {5, "This program was built without windows; it runs scenarios with --front robot."}; }

}  // namespace

std::unique_ptr<platform::FrontEnd> MakeWindows(const std::string&, bool) { throw NoWindows(); }

std::unique_ptr<platform::UserHands> MakeWindowHands(platform::FrontEnd&) { throw NoWindows(); }

void KeepSettingsOf(platform::FrontEnd&, const std::string&) {}

bool CanShow(const platform::FrontEnd&) { return true; }

}  // namespace library
