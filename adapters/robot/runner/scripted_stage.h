#pragma once

#include <cstdint>

#include "robot/stage/stage.h"

namespace robot {

class Runner;

/// What the program asks of the user, and what it shows him: answered and written down for the scenario that runs.
class ScriptedStage final : public Stage {
 public:
  explicit ScriptedStage(Runner& runner) : runner_(runner) {}

  void RunModal(platform::Form& form, const std::function<bool()>& done) override;
  void Yielded() override;
  int Box(const std::string& text, int style, const std::string& title) override;
  std::optional<platform::PrinterChoice> PrinterDialog() override;
  std::string DefaultPrinter() override;
  bool Progress(const platform::ProgressState& state) override;
  void ProgressEnds() override;
  void PointerChanged(int pointer) override;
  void FormLoaded(platform::Form& form) override;
  void FormUnloaded(platform::Form& form) override;
  void ControlChanged(platform::Control& control, platform::Aspect aspect) override;

  bool BoxUp() const noexcept { return boxesUp_ > 0; }
  bool RunUp() const noexcept { return runsAt_ >= 0; }

 private:
  void CloseWithoutSaving(platform::Form& form);

  Runner& runner_;
  int boxesUp_ = 0;
  std::int64_t runsAt_ = -1;  ///< how far the long run is that goes on; -1: none does
};

}  // namespace robot
