#include "robot/runner/interruptions.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace robot {

void Interruptions::ActBegins() {
  now_ = std::exchange(next_, {});
  yields_ = 0;
}

void Interruptions::KeepForTheNextAct() {
  next_.insert(next_.begin(), now_.begin(), now_.end());
  now_.clear();
}

std::vector<Interruptions::Missed> Interruptions::TakeMissed() {
  std::vector<Missed> missed;
  for (const Waiting& one : std::exchange(now_, {})) {
    const bool box = one.yield == 0;
    const std::string moment = box ? "a box" : "yield " + std::to_string(one.yield);
    missed.push_back({one.line, moment + " for " + Written(one.command), box ? "none" : std::to_string(yields_) + " in all"});
  }
  return missed;
}

std::vector<Interruptions::Missed> Interruptions::TakeMissedAtEnd() {
  KeepForTheNextAct();
  now_ = std::exchange(next_, {});
  return TakeMissed();
}

std::vector<Interruptions::Waiting> Interruptions::AtYield() { return Take(++yields_); }
std::vector<Interruptions::Waiting> Interruptions::AtBox() { return Take(0); }

std::vector<Interruptions::Waiting> Interruptions::Take(int yield) {
  const auto due = [&](const Waiting& one) { return one.yield == yield; };
  std::vector<Waiting> taken;
  std::copy_if(now_.begin(), now_.end(), std::back_inserter(taken), due);
  std::erase_if(now_, due);
  return taken;
}

}  // namespace robot
