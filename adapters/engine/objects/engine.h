#pragma once

#include <memory>

#include "engine/catalogue/store_choice.h"
#include "engine/engine.h"

namespace engine {

/// The data engine over any stores.
std::unique_ptr<platform::DataEngine> MakeEngineOver(StoreChoice choice, const EngineOptions& options);

}  // namespace engine
