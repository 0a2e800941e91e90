#pragma once

#include <string>
#include <vector>

#include "robot/language/words.h"

namespace robot {

/// The commands of `at yield` and `at box`: each waits for its moment in the next act of the user.
class Interruptions {
 public:
  struct Waiting {
    int line = 0;
    int yield = 0;  ///< from 1; 0: at a box
    std::vector<Word> command;
  };
  /// One whose moment did not come, with what was wanted and what was.
  struct Missed {
    int line;
    std::string wanted;
    std::string was;
  };

  void Wait(Waiting one) { next_.push_back(std::move(one)); }
  /// An act begins: what was written for it counts from here on.
  void ActBegins();
  /// What has not been reached waits for the next act: this one was none of the user's.
  void KeepForTheNextAct();
  /// What the act so far has not reached; it waits no longer.
  std::vector<Missed> TakeMissed();
  /// The same at the end of the scenario, where no further act comes.
  std::vector<Missed> TakeMissedAtEnd();

  /// The program yields, shows a box: the commands for this moment.
  std::vector<Waiting> AtYield();
  std::vector<Waiting> AtBox();

 private:
  std::vector<Waiting> Take(int yield);

  std::vector<Waiting> next_;
  std::vector<Waiting> now_;
  int yields_ = 0;  ///< of this act
};

}  // namespace robot
