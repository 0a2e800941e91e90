#pragma once

#include <memory>

#include "engine/engine.h"
#include "engine/store/store.h"

namespace engine {

/// The data engine over any store.
std::unique_ptr<platform::DataEngine> MakeEngineOver(std::unique_ptr<Store> store, const EngineOptions& options);

}  // namespace engine
