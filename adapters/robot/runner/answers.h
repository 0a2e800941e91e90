#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <utility>

#include "platform/host/front_end.h"

namespace robot {

/// What the scenario has queued for message boxes and the printer dialog, and the printer that it has.
class Answers {
 public:
  void Queue(int button) { buttons_.push_back(button); }
  /// nothing: the dialog is cancelled.
  void QueuePrinter(std::optional<platform::PrinterChoice> choice) { printer_.push_back(choice); }
  /// Stays until another one is named; "" at first: there is no printer.
  void DefaultPrinter(std::string name) { defaultPrinter_ = std::move(name); }
  const std::string& DefaultPrinter() const noexcept { return defaultPrinter_; }

  /// The button that is pressed in a box of that style. `missing` is what the scenario should have said, "" when it did: then
  /// the button is the harmless one.
  struct Pressed {
    int button = 0;
    std::string missing;
  };
  Pressed PressIn(int style);
  /// The button that does no harm in a box of that style.
  static int Harmless(int style);

  /// The next long run is stopped when so many are done.
  void QueueStop(std::int64_t after) { stop_ = after; }
  /// Whether it is stopped now, which is said once.
  bool TakeStop(std::int64_t done);
  bool StopWaits() const noexcept { return stop_.has_value(); }

  /// The next answer for the printer dialog; false when there is none.
  bool TakePrinter(std::optional<platform::PrinterChoice>& choice);

 private:
  std::deque<int> buttons_;
  std::deque<std::optional<platform::PrinterChoice>> printer_;
  std::string defaultPrinter_;
  std::optional<std::int64_t> stop_;
};

}  // namespace robot
