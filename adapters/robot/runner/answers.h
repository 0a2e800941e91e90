#pragma once

#include <deque>
#include <optional>
#include <string>

#include "platform/host/front_end.h"

namespace robot {

/// What the scenario has queued for message boxes and the printer dialog.
class Answers {
 public:
  void Queue(int button) { buttons_.push_back(button); }
  /// nothing: the dialog is cancelled.
  void QueuePrinter(std::optional<platform::PrinterChoice> choice) { printer_.push_back(choice); }

  /// The button that is pressed in a box of that style. `missing` is what the scenario should have said, "" when it did: then
  /// the button is the harmless one.
  struct Pressed {
    int button = 0;
    std::string missing;
  };
  Pressed PressIn(int style);
  /// The button that does no harm in a box of that style.
  static int Harmless(int style);

  /// The next answer for the printer dialog; false when there is none.
  bool TakePrinter(std::optional<platform::PrinterChoice>& choice);

 private:
  std::deque<int> buttons_;
  std::deque<std::optional<platform::PrinterChoice>> printer_;
};

}  // namespace robot
