#pragma once

#include <memory>

#include "engine/engine.h"
#include "engine/store/store.h"
#include "platform/data/row_stream.h"

namespace engine {

/// A reader over any store.
std::unique_ptr<platform::SnapshotReader> MakeSnapshotReaderOver(std::unique_ptr<Store> store, const EngineOptions& options);

}  // namespace engine
