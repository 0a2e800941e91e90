#include "robot/runner/host_desk.h"

#include "platform/values/error.h"
#include "robot/language/failure.h"

namespace robot {

HostObject& HostDesk::Object() {
  if (!object_) {
    if (!surroundings_.makeHost) throw ActionFailed("no host here");
    object_ = surroundings_.makeHost();
  }
  return *object_;
}

void HostDesk::Release() {
  if (showing_) throw Refused("ShowUser running");
  object_.reset();
}

void HostDesk::ShowUser() {
  if (showing_) throw Refused("ShowUser running");
  HostObject& object = Object();
  struct Showing {
    bool& flag;
    explicit Showing(bool& showing) : flag(showing) { flag = true; }
    ~Showing() { flag = false; }
  } showing(showing_);
  try {
    object.ShowUser();
  } catch (const platform::Error& error) {
    journal_.Unhandled(error, false);
  }
}

}  // namespace robot
