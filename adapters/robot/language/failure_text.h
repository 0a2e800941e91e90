#pragma once

#include <string>

#include "platform/values/error.h"

namespace robot {

/// "error 3021 No current record.", for messages.
inline std::string ErrorText(const platform::Error& error) { return "error " + std::to_string(error.Number()) + " " + error.Description(); }

}  // namespace robot
