#pragma once

#include <memory>

#include "robot/recorders/journal.h"
#include "robot/runner/surroundings.h"

namespace robot {

/// The host program's side: the one session object that a scenario works with.
class HostDesk {
 public:
  HostDesk(const Surroundings& surroundings, Journal& journal) : surroundings_(surroundings), journal_(journal) {}

  /// Made at the first use. Raises ActionFailed where there is none to be had.
  HostObject& Object();
  /// Both raise Refused while ShowUser runs.
  void Release();
  void ShowUser();

 private:
  const Surroundings& surroundings_;
  Journal& journal_;
  std::unique_ptr<HostObject> object_;
  bool showing_ = false;
};

}  // namespace robot
