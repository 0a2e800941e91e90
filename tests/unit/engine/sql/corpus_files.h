#pragma once

#include <filesystem>
#include <memory>

#include "engine/engine.h"
#include "platform/data/data.h"

/// Where a corpus' company lies.
namespace corpus {

struct Place {
  /// Fills a company of its own with the corpus' files. The paths that the program uses are those of this folder.
  void (*fill)(const std::filesystem::path& folder);
  std::unique_ptr<platform::DataEngine> (*newEngine)(const std::filesystem::path& folder, const engine::EngineOptions& options);
  /// Behind the last engine on it.
  void (*remove)(const std::filesystem::path& folder);
};

/// In the folder's files.
const Place& Files();
/// In a database that stands for the folder.
const Place& Server();
/// The one that a program's tests are about.
const Place& OwnPlace();

}  // namespace corpus
