#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/store.h"

namespace engine {

/// Stores of one kind: which files are theirs, and how one is made.
struct StoreKind {
  /// The name of the store that has the file of a real path, nothing for a path of another kind. Files of one name share a store,
  /// and thereby joins, links and transactions. Raises what a path raises that can't be one.
  std::function<std::optional<std::string>(std::string_view path)> nameOf;
  std::function<std::unique_ptr<Store>()> make;
};

/// The kinds of an engine: they are asked in their order, the last one takes what the others leave. What is written in one
/// transaction is committed in their order, too.
using StoreChoice = std::vector<StoreKind>;

/// One store for all paths.
StoreChoice OneStore(std::unique_ptr<Store> store);

}  // namespace engine
