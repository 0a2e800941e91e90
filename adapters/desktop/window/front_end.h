#pragma once

#include <QElapsedTimer>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "desktop/services/services.h"
#include "desktop/services/toolkit_application.h"
#include "desktop/window/form_window.h"
#include "desktop/window/run_window.h"
#include "platform/host/front_end.h"
#include "platform/host/run_watcher.h"

namespace desktop {

/// Shows the screens as windows.
class DesktopFrontEnd final : public platform::FrontEnd, public platform::RunWatcher {
 public:
  explicit DesktopFrontEnd(const DesktopOptions& options);
  ~DesktopFrontEnd() override;

  /// Lays out the screen of that name from here on; the screens of the library are known already.
  void AddDesign(FormDesign design);

  /// The window of a loaded screen; nullptr if it has none.
  FormWindow* WindowOf(const platform::Form& form) const;
  Services& Shared() noexcept { return *services_; }
  /// See desktop.h.
  void KeepSettingsOf(const std::string& user);
  bool CanShow() const noexcept { return toolkit_.Lives(); }
  /// The window that a message box belongs to now; nullptr while no screen is up.
  QWidget* BoxParent() const;

  void Loaded(platform::Form& form) override;
  void Shown(platform::Form& form) override;
  void Hidden(platform::Form& form) override;
  void Unloaded(platform::Form& form) override;
  void RunModal(platform::Form& form, const std::function<bool()>& done) override;
  void DoEvents() override;
  void ServePainting() override;
  int MessageBox(const std::string& text, int style, const std::string& title) override;
  void Pointer(int pointer) override;
  bool Progress(const platform::ProgressState& state) override;
  void ProgressEnds() override;
  void Serve() override;
  platform::RunWatcher* Watcher() override { return this; }
  std::optional<platform::PrinterChoice> PrinterDialog(platform::Form& form) override;
  std::string DefaultPrinter() override;
  void Changed(platform::Form& form, platform::Control* control, platform::Aspect aspect) override;

 private:
  struct DeleteLater {
    void operator()(FormWindow* window) const { window->deleteLater(); }
  };
  using WindowPointer = std::unique_ptr<FormWindow, DeleteLater>;

  const FormDesign* DesignOf(const std::string& screen) const;
  bool AnyScreenBusy() const;

  ToolkitApplication toolkit_;
  std::string settingsFolder_;
  std::unique_ptr<Services> services_;
  std::vector<FormDesign> designs_;
  std::map<const platform::Form*, WindowPointer> windows_;
  QElapsedTimer lastPainting_;
  QElapsedTimer lastServed_;
  std::optional<RunWindow> run_;
  bool hourglass_ = false;
};

}  // namespace desktop
