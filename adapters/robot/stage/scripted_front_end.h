#pragma once

#include <memory>

#include "platform/host/front_end.h"
#include "platform/host/run_watcher.h"
#include "robot/stage/stage.h"

namespace robot {

/// Lets a script take the user's part: screens and changes go on to the front end that shows them, everything that waits for
/// the user is answered by the stage.
class ScriptedFrontEnd final : public platform::FrontEnd, public platform::RunWatcher {
 public:
  ScriptedFrontEnd(Stage& stage, std::unique_ptr<platform::FrontEnd> inner)
      : stage_(stage), inner_(std::move(inner)) {}

  void Loaded(platform::Form& form) override;
  void Shown(platform::Form& form) override { inner_->Shown(form); }
  void Hidden(platform::Form& form) override { inner_->Hidden(form); }
  void Unloaded(platform::Form& form) override;
  void RunModal(platform::Form& form, const std::function<bool()>& done) override { stage_.RunModal(form, done); }
  void DoEvents() override;
  void ServePainting() override { inner_->ServePainting(); }
  int MessageBox(const std::string& text, int style, const std::string& title) override { return stage_.Box(text, style, title); }
  void Pointer(int pointer) override;
  bool Progress(const platform::ProgressState& state) override;
  void ProgressEnds() override;
  void Serve() override;
  platform::RunWatcher* Watcher() override { return this; }
  std::optional<platform::PrinterChoice> PrinterDialog(platform::Form&) override { return stage_.PrinterDialog(); }
  std::string DefaultPrinter() override { return stage_.DefaultPrinter(); }
  void Changed(platform::Form& form, platform::Control* control, platform::Aspect aspect) override;

 private:
  Stage& stage_;
  std::unique_ptr<platform::FrontEnd> inner_;
};

}  // namespace robot
