#pragma once

#include <memory>
#include <string>

#include "platform/front_end.h"
#include "platform/user_hands.h"

/// The windows, where the build has them.
namespace custsearch {

/// Whether this build has windows at all.
bool HasWindows();
/// `settingsFolder` keeps window sizes and the like, "" nothing. `mayBeOffscreen`: without a display draws into memory. Raises
/// platform::Error when there is no display.
std::unique_ptr<platform::FrontEnd> MakeWindows(const std::string& settingsFolder, const std::string& user, bool mayBeOffscreen);
std::unique_ptr<platform::UserHands> MakeWindowHands(platform::FrontEnd& windows);

}  // namespace custsearch
