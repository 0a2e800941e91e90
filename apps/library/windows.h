#pragma once

#include <memory>
#include <string>

#include "platform/host/front_end.h"
#include "platform/host/user_hands.h"

/// The windows, where the build has them.
namespace library {

/// `settingsFolder` keeps window sizes and the like, "" nothing. `mayBeOffscreen`: without a display draws into memory. Raises
/// platform::Error when there is no display that can be opened, or not on the main thread.
std::unique_ptr<platform::FrontEnd> MakeWindows(const std::string& settingsFolder, bool mayBeOffscreen);
std::unique_ptr<platform::UserHands> MakeWindowHands(platform::FrontEnd& windows);

/// From here on the settings of that user are kept. A front end without windows has none.
void KeepSettingsOf(platform::FrontEnd& frontEnd, const std::string& user);
/// False when the toolkit's application object, which the host owned, has gone.
bool CanShow(const platform::FrontEnd& frontEnd);

}  // namespace library
