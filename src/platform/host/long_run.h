#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/host/run_watcher.h"

namespace platform {

/// A run over many rows, as long as it lives: the user sees how far it is when it takes a while, can stop it, and can start nothing
/// else. One at a time.
class LongRun {
 public:
  /// `watcher` nullptr: nobody looks. `total` 0: nobody knows how many there are.
  LongRun(RunWatcher* watcher, std::string title, std::int64_t total) : watcher_(watcher), state_{std::move(title), 0, total} {}
  ~LongRun() {
    if (watcher_ != nullptr) watcher_->ProgressEnds();
  }
  LongRun(const LongRun&) = delete;
  LongRun& operator=(const LongRun&) = delete;

  /// One more is done. False when the user has asked to stop, which he can in the caller's yields.
  bool Next() {
    ++state_.done;
    return watcher_ == nullptr || watcher_->Progress(state_);
  }
  /// So many are done, where the caller yields nowhere.
  bool Reached(std::int64_t done) {
    state_.done = done;
    if (watcher_ == nullptr) return true;
    const bool goOn = watcher_->Progress(state_);
    watcher_->Serve();
    return goOn;
  }

 private:
  RunWatcher* watcher_;
  ProgressState state_;
};

}  // namespace platform
