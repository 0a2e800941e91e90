#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/services/map.h"

namespace streets {

/// The street map of files of the host, the base map first. `files` is asked for them at the first use, and at each Prepare: they are
/// opened anew when they are others or one has changed since. What can't be used is told by the ground's complaint; the rest serves.
std::unique_ptr<platform::MapEngine> MakeStreetMap(std::function<std::vector<std::string>()> files);

}  // namespace streets
