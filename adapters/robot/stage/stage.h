#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/controls/form/form.h"
#include "platform/host/front_end.h"
#include "platform/host/run_watcher.h"

namespace robot {

/// What the scripted front end asks of whoever reads the script.
class Stage {
 public:
  virtual ~Stage() = default;
  /// Runs further commands until `done`. When the script is over the screen is closed without saving.
  virtual void RunModal(platform::Form& form, const std::function<bool()>& done) = 0;
  virtual void Yielded() = 0;
  /// Records the box, chooses and presses the button; returns it.
  virtual int Box(const std::string& text, int style, const std::string& title) = 0;
  virtual std::optional<platform::PrinterChoice> PrinterDialog() = 0;
  virtual std::string DefaultPrinter() = 0;
  /// A long run goes on; false when the script stops it.
  virtual bool Progress(const platform::ProgressState& state) = 0;
  virtual void ProgressEnds() = 0;
  virtual void PointerChanged(int pointer) = 0;
  virtual void FormLoaded(platform::Form& form) = 0;
  virtual void FormUnloaded(platform::Form& form) = 0;
  virtual void ControlChanged(platform::Control& control, platform::Aspect aspect) = 0;
};

}  // namespace robot
