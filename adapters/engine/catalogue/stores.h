#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/catalogue/engine_context.h"
#include "engine/catalogue/store_choice.h"

namespace engine {

class StoresUnit;

/// The stores of one engine, each made when the first of its files is asked for, and kept as long as the engine.
class Stores {
 public:
  Stores(const EngineOptions& options, StoreChoice choice);
  Stores(const Stores&) = delete;
  Stores& operator=(const Stores&) = delete;

  /// A file with what belongs to its store.
  struct Opened {
    EngineContext& context;
    std::shared_ptr<StoreFile> file;
  };
  /// The file that a path of the program's style names, opened. Raises 3044 for what can be no path, and what opening raises.
  Opened Open(std::string_view path);
  /// The same; 3219 for a file of another store than `asker`'s.
  std::shared_ptr<StoreFile> OpenFor(const EngineContext& asker, std::string_view path);

  /// For all stores, those that are still to come too.
  void OnWait(std::function<void()> servePainting);

  const EngineOptions& Options() const noexcept { return options_; }
  const Clock& OwnClock() const noexcept { return clock_; }
  /// The real file or folder that a path of the program's style names; "" when there can be none.
  std::string HostPath(std::string_view path) const { return options_.hostPath ? options_.hostPath(path) : std::string(path); }
  std::uint64_t NewSet() { return ++lastSet_; }

 private:
  friend class StoresUnit;
  struct Member {
    std::size_t kind = 0;
    std::string name;
    std::unique_ptr<EngineContext> context;
    bool joined = false;  ///< it has opened a file, so that it takes part in units
  };
  std::string RealPath(std::string_view path) const;
  Member& MemberOf(const std::string& real);
  std::shared_ptr<StoreFile> OpenIn(Member& member, const std::string& real, std::string_view path);

  EngineOptions options_;
  Clock clock_;
  StoreChoice choice_;
  std::vector<std::unique_ptr<Member>> members_;  ///< by kind
  std::vector<StoresUnit*> units_;
  std::function<void()> servePainting_;
  std::uint64_t lastSet_ = 0;
};

/// A unit of writes over all stores of an engine. Each store commits for itself, in the order of their kinds: where one fails, those
/// behind it are undone.
class StoresUnit {
 public:
  explicit StoresUnit(Stores& stores);
  ~StoresUnit();
  StoresUnit(const StoresUnit&) = delete;
  StoresUnit& operator=(const StoresUnit&) = delete;
  void Commit();

 private:
  friend class Stores;
  struct Part {
    std::size_t kind = 0;
    std::unique_ptr<Transaction> unit;
  };
  void Take(const Stores::Member& member);

  Stores& stores_;
  std::vector<Part> parts_;  ///< by kind
};

}  // namespace engine
