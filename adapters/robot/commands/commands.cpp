#include "robot/commands/commands.h"

namespace robot {

const Vocabulary& Commands() {
  static const Vocabulary all = [] {
    CommandList list;
    for (const CommandList& part : {HostCommands(), UserCommands(), ListCommands(), AnswerCommands(), OtherUserCommands(), FrameCommands()})
      list.insert(list.end(), part.begin(), part.end());
    return Vocabulary(std::move(list));
  }();
  return all;
}

}  // namespace robot
