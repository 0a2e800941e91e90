#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "engine/engine.h"
#include "engine/errors.h"
#include "engine/store/store.h"
#include "engine/values/clock.h"

namespace engine {

/// What all objects of one engine share.
class EngineContext {
 public:
  EngineContext(const EngineOptions& options, std::unique_ptr<Store> store)
      : options_(options), clock_(options.now ? options.now : LocalNow), store_(std::move(store)) {}

  const EngineOptions& Options() const noexcept { return options_; }
  const Clock& OwnClock() const noexcept { return clock_; }
  Store& OwnStore() const noexcept { return *store_; }
  const Dialect& OwnDialect() const { return store_->OwnDialect(); }

  /// The file that a path of the program's style names, opened.
  std::shared_ptr<StoreFile> Open(std::string_view path) {
    if (!options_.hostPath) return store_->Open(path, path);
    const std::string host = options_.hostPath(path);
    if (host.empty()) throw errors::InvalidPath(path);
    return store_->Open(host, path);
  }
  /// The real file or folder that a path of the program's style names; "" when there can be none.
  std::string HostPath(const std::string& path) const { return options_.hostPath ? options_.hostPath(path) : path; }
  /// A number that no other recordset of this engine has had.
  std::uint64_t NewSet() { return ++lastSet_; }

 private:
  EngineOptions options_;
  Clock clock_;
  std::unique_ptr<Store> store_;
  std::uint64_t lastSet_ = 0;
};

}  // namespace engine
