#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/controls/form/form_host.h"

namespace platform {

class Form;
class RunWatcher;

/// Mouse pointers.
namespace pointer {
inline constexpr int Default = 0;
inline constexpr int Hourglass = 11;
}  // namespace pointer

/// Who shows the screens: windows, or a scripted user. The application calls it; it calls the controls' `User...` acts from
/// its own loop, and only while RunModal or DoEvents runs.
class FrontEnd {
 public:
  virtual ~FrontEnd() = default;

  /// A screen's life. Loaded comes before Form_Load runs (the window is not visible yet), Unloaded after Form_Unload; no touch
  /// of the form's controls may follow Unloaded.
  virtual void Loaded(Form& form) = 0;
  virtual void Shown(Form& form) = 0;
  virtual void Hidden(Form& form) = 0;
  virtual void Unloaded(Form& form) = 0;

  /// Serves the user until `done`. Screens below `form` take no input meanwhile.
  virtual void RunModal(Form& form, const std::function<bool()>& done) = 0;
  /// Painting, input and idle work, once.
  virtual void DoEvents() = 0;
  /// Painting alone, from inside a long call of the data engine.
  virtual void ServePainting() = 0;

  /// Shows a box and returns the button pressed. `style` as in namespace box.
  virtual int MessageBox(const std::string& text, int style, const std::string& title) = 0;
  virtual void Pointer(int pointer) = 0;
  /// The printer dialog; nothing when the user cancels it.
  virtual std::optional<PrinterChoice> PrinterDialog(Form& form) = 0;
  /// The name of the default printer; "" when there is none.
  virtual std::string DefaultPrinter() = 0;
  /// Who shows long runs; nullptr for nobody.
  virtual RunWatcher* Watcher() { return nullptr; }

  /// A property of a control of a loaded form changed; `control` is nullptr for the form's own caption.
  virtual void Changed(Form& form, Control* control, Aspect aspect) = 0;
};

}  // namespace platform
