#pragma once

#include <memory>

#include "engine/catalogue/store_choice.h"
#include "engine/engine.h"
#include "platform/data/row_stream.h"

namespace engine {

/// A reader over any stores.
std::unique_ptr<platform::SnapshotReader> MakeSnapshotReaderOver(StoreChoice choice, const EngineOptions& options);

}  // namespace engine
