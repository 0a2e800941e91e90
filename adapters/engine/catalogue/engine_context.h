#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "engine/engine.h"
#include "engine/errors.h"
#include "engine/store/store.h"
#include "engine/values/clock.h"

namespace engine {

class Stores;
struct CollectedPlaces;

/// What all objects of one engine share whose files lie in one store.
class EngineContext {
 public:
  EngineContext(Stores& stores, std::unique_ptr<Store> store) : stores_(stores), store_(std::move(store)) {}

  const EngineOptions& Options() const noexcept;
  const Clock& OwnClock() const noexcept;
  Store& OwnStore() const noexcept { return *store_; }
  const Dialect& OwnDialect() const { return store_->OwnDialect(); }

  /// The file that a path of the program's style names, opened. Raises 3219 for one of another store.
  std::shared_ptr<StoreFile> Open(std::string_view path);
  /// The same of any store, with what belongs to it.
  Stores& AllStores() const noexcept { return stores_; }
  /// The real file or folder that a path of the program's style names; "" when there can be none.
  std::string HostPath(const std::string& path) const;
  /// A number that no other recordset of this engine has had.
  std::uint64_t NewSet();
  /// Keeps them for lists to come, instead of those before.
  void Keep(std::shared_ptr<const CollectedPlaces> places) noexcept { places_ = std::move(places); }

 private:
  Stores& stores_;
  std::unique_ptr<Store> store_;
  std::shared_ptr<const CollectedPlaces> places_;
};

}  // namespace engine
