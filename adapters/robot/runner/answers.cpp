#include "robot/runner/answers.h"

#include <algorithm>
#include <vector>

namespace robot {
namespace {

using namespace platform;

constexpr int kButtonsMask = 7;

/// The buttons that a box of that style has; the last one is the harmless one.
std::vector<int> ButtonsOf(int style) {
  switch (style & kButtonsMask) {
    case 0:
      return {box::Ok};
    case 1:
      return {box::Ok, box::Cancel};
    case 3:
      return {box::Yes, box::No, box::Cancel};
    default:
      return {box::Yes, box::No};
  }
}

std::string ButtonName(int button) {
  switch (button) {
    case box::Ok:
      return "OK";
    case box::Cancel:
      return "Cancel";
    case box::Yes:
      return "Yes";
    default:
      return "No";
  }
}

}  // namespace

int Answers::Harmless(int style) { return ButtonsOf(style).back(); }

Answers::Pressed Answers::PressIn(int style) {
  const std::vector<int> buttons = ButtonsOf(style);
  if (buttons.size() == 1) {
    if (!buttons_.empty() && buttons_.front() == buttons[0]) buttons_.pop_front();
    return {buttons[0], ""};
  }
  if (buttons_.empty()) return {buttons.back(), "an answer"};
  const int answer = buttons_.front();
  buttons_.pop_front();
  if (std::find(buttons.begin(), buttons.end(), answer) != buttons.end()) return {answer, ""};
  return {buttons.back(), "the button " + ButtonName(answer)};
}

bool Answers::TakeStop(std::int64_t done) {
  if (!stop_ || done < *stop_) return false;
  stop_.reset();
  return true;
}

bool Answers::TakePrinter(std::optional<PrinterChoice>& choice) {
  if (printer_.empty()) return false;
  choice = printer_.front();
  printer_.pop_front();
  return true;
}

}  // namespace robot
