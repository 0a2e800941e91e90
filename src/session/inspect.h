#pragma once

#include <optional>
#include <string_view>

#include "platform/values/value.h"

namespace orcussch {

/// A session value by its variable's name ("gAddPhone", "gCompany.Zip"), for tests and support; nothing for an unknown name.
std::optional<platform::Value> SessionValue(std::string_view name);

/// Every one of them as in a module that has just been loaded.
void ForgetSessionValues();

}  // namespace orcussch
