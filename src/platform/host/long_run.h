#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/host/application.h"
#include "platform/host/run_watcher.h"

namespace platform {

/// A run over many rows, as long as it lives: the user sees how far it is when it takes a while, can stop it, and can start nothing
/// else. One at a time.
class LongRun {
 public:
  /// `total` 0: nobody knows how many there are.
  LongRun(const Application& application, std::string title, std::int64_t total)
      : watcher_(dynamic_cast<RunWatcher*>(&application.FrontEnd())), state_{std::move(title), 0, total} {}
  ~LongRun() {
    if (watcher_ != nullptr) watcher_->ProgressEnds();
  }
  LongRun(const LongRun&) = delete;
  LongRun& operator=(const LongRun&) = delete;

  /// One more is done. False when the user has asked to stop.
  bool Next() {
    ++state_.done;
    return watcher_ == nullptr || watcher_->Progress(state_);
  }

 private:
  RunWatcher* watcher_;
  ProgressState state_;
};

}  // namespace platform
