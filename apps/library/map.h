#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/host/application.h"
#include "platform/services/map.h"

/// The street map behind the map screen.
namespace library {

/// Reads the base map, which comes with the library, "streets.zds" in the library's folder, and the company's own "streets.zds" where
/// it has one. `app` gives the session's application when the map is first used; `hostFolder`: the library's folder on the host.
std::unique_ptr<platform::MapEngine> MakeMap(std::function<platform::Application*()> app, const std::string& hostFolder);

}  // namespace library
