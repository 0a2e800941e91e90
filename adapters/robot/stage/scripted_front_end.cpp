#include "robot/stage/scripted_front_end.h"

namespace robot {

void ScriptedFrontEnd::Loaded(platform::Form& form) {
  inner_->Loaded(form);
  stage_.FormLoaded(form);
}

void ScriptedFrontEnd::Unloaded(platform::Form& form) {
  stage_.FormUnloaded(form);
  inner_->Unloaded(form);
}

void ScriptedFrontEnd::DoEvents() {
  inner_->DoEvents();
  stage_.Yielded();
}

void ScriptedFrontEnd::Pointer(int pointer) {
  stage_.PointerChanged(pointer);
  inner_->Pointer(pointer);
}

bool ScriptedFrontEnd::Progress(const platform::ProgressState& state) {
  platform::RunWatcher* const inner = inner_->Watcher();
  const bool goesOnInside = inner == nullptr || inner->Progress(state);
  return stage_.Progress(state) && goesOnInside;
}

void ScriptedFrontEnd::ProgressEnds() {
  if (platform::RunWatcher* const inner = inner_->Watcher()) inner->ProgressEnds();
  stage_.ProgressEnds();
}

void ScriptedFrontEnd::Serve() {
  if (platform::RunWatcher* const inner = inner_->Watcher()) inner->Serve();
}

void ScriptedFrontEnd::Changed(platform::Form& form, platform::Control* control, platform::Aspect aspect) {
  if (control != nullptr) stage_.ControlChanged(*control, aspect);
  inner_->Changed(form, control, aspect);
}

}  // namespace robot
