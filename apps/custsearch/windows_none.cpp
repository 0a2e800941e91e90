#include "custsearch/windows.h"
#include "platform/error.h"

namespace custsearch {
namespace {

platform::Error NoWindows() { return {5, "This program was built without windows; it runs scenarios with --front robot."}; }

}  // namespace

bool HasWindows() { return false; }

std::unique_ptr<platform::FrontEnd> MakeWindows(const std::string&, const std::string&, bool) { throw NoWindows(); }

std::unique_ptr<platform::UserHands> MakeWindowHands(platform::FrontEnd&) { throw NoWindows(); }

}  // namespace custsearch
