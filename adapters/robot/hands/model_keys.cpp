#include "platform/keys/control_keys.h"
#include "platform/keys/key.h"
#include "robot/hands/model_hands.h"
#include "robot/language/failure.h"

namespace robot {
namespace {

/// The rows of a list that are in view where no window shows any.
constexpr int kPageRows = 20;

}  // namespace

void PressKey(platform::Control& control, std::string_view name) {
  const auto key = platform::KeyNamed(name);
  if (!key) throw ActionFailed("no key " + std::string(name));
  platform::PressKey(control, platform::NameOf(*key), kPageRows);
}

}  // namespace robot
