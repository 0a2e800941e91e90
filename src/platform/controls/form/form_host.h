#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/form/box.h"
#include "platform/controls/form/control.h"
#include "platform/data/data.h"
#include "platform/services/error_log.h"
#include "platform/services/list_export.h"
#include "platform/services/map.h"
#include "platform/services/report_engine.h"
#include "platform/values/calendar.h"
#include "platform/values/error.h"

namespace platform {

class Form;
class RunWatcher;

/// What the user set in the printer dialog.
struct PrinterChoice {
  int fromPage = 0;
  int toPage = 0;
  int copies = 1;
};

/// What a screen and its controls ask of the program that they run in.
class FormHost {
 public:
  virtual ~FormHost() = default;

  /// Runs one act of the user on a form. An error that leaves it ends here: one box with its description, one diagnostic
  /// line, and a toolbar that was disabled around the act is enabled again. A close that was asked for meanwhile is done
  /// when the form's last act has ended.
  virtual void Act(Form& form, const std::function<void()>& body) = 0;
  /// What no handler caught.
  virtual void Unhandled(const Error& error) = 0;
  /// The user closes the form; inside one of its acts it waits for the act's end.
  virtual void Close(Form& form) = 0;
  /// Runs Form_Unload once, hides it and takes it out of the forms. A form that is not loaded is left alone.
  virtual void Unload(Form& form) = 0;

  /// A property of a control changed; `control` is nullptr for the form's own caption.
  virtual void Changed(Form& form, Control* control, Aspect aspect) = 0;
  /// A data control has opened its list anew.
  virtual void Refreshed(const Control& dataControl) = 0;

  virtual DataEngine& Engine() const = 0;
  /// nullptr when the host has none.
  virtual ReportEngine* Reports() const = 0;
  virtual MapEngine* Map() const = 0;
  virtual ListExport* Exports() const = 0;
  virtual RunWatcher* Watcher() const = 0;
  /// Shows a box and returns the button pressed, both as in namespace box.
  virtual int MsgBox(const std::string& text, int style, const std::string& title) = 0;
  /// The printer dialog; nothing when the user cancels it.
  virtual std::optional<PrinterChoice> PrinterDialog(Form& form) = 0;
  virtual Date Today() const = 0;
  /// The year of a date that is written without one.
  int ThisYear() const { return CalendarOf(Today()).year; }
  /// Lets the windows paint, and nothing else, from inside a long act.
  virtual void ServePainting() = 0;
  virtual void Log(LogLevel level, std::string_view text) const noexcept = 0;
};

}  // namespace platform
