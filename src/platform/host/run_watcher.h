#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// How far a long run is.
struct ProgressState {
  std::string title;
  std::int64_t done = 0;
  std::int64_t total = 0;  ///< 0: not known
};

/// Lets the user watch long runs. Under a front end without one they go on to their end.
class RunWatcher {
 public:
  virtual ~RunWatcher() = default;
  /// A run goes on; it shows itself when it has taken a while. False when the user has asked it to stop. From its first call to
  /// ProgressEnds he can start nothing else. Cheap.
  virtual bool Progress(const ProgressState& state) = 0;
  virtual void ProgressEnds() = 0;
  /// Lets the windows live for a moment, so that a press of Stop arrives; what else the user does waits until the run shows itself.
  virtual void Serve() = 0;
};

}  // namespace platform
