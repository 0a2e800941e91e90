#pragma once

#include "robot/language/vocabulary.h"

namespace robot {

/// The whole language: every command of the families below.
const Vocabulary& Commands();

CommandList HostCommands();
CommandList UserCommands();
CommandList ListCommands();
CommandList AnswerCommands();
CommandList OtherUserCommands();
CommandList FrameCommands();

}  // namespace robot
