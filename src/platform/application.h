#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/accounts_lookup.h"
#include "platform/controls/form.h"
#include "platform/data.h"
#include "platform/error.h"
#include "platform/error_log.h"
#include "platform/front_end.h"
#include "platform/map.h"
#include "platform/operating_system.h"
#include "platform/report.h"

namespace platform {

/// The parts that a host (or a test) puts together. `map`, `accounts` and `diagnosticLog` may stay empty.
struct ApplicationParts {
  std::unique_ptr<DataEngine> engine;
  std::unique_ptr<OperatingSystem> system;
  std::unique_ptr<ErrorLog> errorLog;
  std::unique_ptr<DiagnosticLog> diagnosticLog;
  std::unique_ptr<AccountsLookup> accounts;
  std::unique_ptr<ReportEngine> reports;
  std::unique_ptr<MapEngine> map;
  std::unique_ptr<FrontEnd> frontEnd;
  std::string path;                      ///< the library's own folder
  std::string title;                     ///< the host's name, for the log
  std::optional<std::int32_t> threadId;  ///< default: the system's process number
};

/// The application object: the library's folder, the number that tells running copies apart, the loaded forms, showing and
/// unloading, the yield, message boxes, the mouse pointer, the pending error. Everything runs on one thread.
class Application {
 public:
  explicit Application(ApplicationParts parts);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  const std::string& Path() const noexcept { return parts_.path; }
  const std::string& Title() const noexcept { return parts_.title; }
  std::int32_t ThreadID() const noexcept { return threadId_; }
  DataEngine& Engine() const { return *parts_.engine; }
  OperatingSystem& System() const { return *parts_.system; }
  /// The year of a date that is written without one.
  int ThisYear() const;
  platform::ErrorLog& ErrorLog() const { return *parts_.errorLog; }
  AccountsLookup* Accounts() const { return parts_.accounts.get(); }
  ReportEngine* Reports() const { return parts_.reports.get(); }
  MapEngine* Map() const { return parts_.map.get(); }
  platform::FrontEnd& FrontEnd() const { return *parts_.frontEnd; }

  /// The loaded screens in the order of their loading.
  int FormCount() const noexcept { return static_cast<int>(forms_.size()); }
  Form& FormAt(int index) const;
  /// The screen that takes the user's input now; nullptr when none is up.
  Form* ActiveForm() const noexcept;

  /// Whether the user can act on the form now: it is the last one that was shown, or is about to be.
  bool TakesInput(const Form& form) const noexcept { return !modal_.empty() && modal_.back() == &form; }

  /// Runs Form_Load once.
  void Load(Form& form);
  /// Shows modally: loads if need be, becomes the active screen, returns when it hides or unloads. Form_Activate runs at its
  /// first show and each time a modal screen above it has gone.
  void Show(Form& form);
  void Hide(Form& form);
  /// Runs Form_Unload once, hides it and takes it out of the forms. A form that is not loaded is left alone.
  void Unload(Form& form);
  /// Keeps an unloaded screen's object until no handler can be on the stack any more.
  void Bury(std::unique_ptr<Form> form);

  void DoEvents();
  int MsgBox(const std::string& text, int style, const std::string& title);
  int MousePointer() const noexcept { return pointer_; }
  void MousePointer(int pointer);

  /// The error that the handler which runs now was called for.
  const Error& Err() const noexcept { return pending_; }
  void SetErr(const Error& error) { pending_ = error; }

  /// Runs one act of the user on a form. An error that leaves it ends here: one box with its description, one diagnostic
  /// line, and a toolbar that was disabled around the act is enabled again. A close that was asked for meanwhile is done
  /// when the form's last act has ended.
  void Act(Form& form, const std::function<void()>& body);
  /// True while an act of this form is on the stack.
  bool Busy(const Form& form) const noexcept { return form.handlers_ > 0; }
  /// What no handler caught; used by Act, and by hosts' entry points.
  void Unhandled(const Error& error);
  void Close(Form& form);

  void Log(LogLevel level, std::string_view text) const noexcept;

  /// From Control and Form.
  void Changed(Form& form, Control* control, Aspect aspect);

  /// Told of each error that no handler took, each report record, each refresh of a data control: for tests and diagnosis.
  std::function<void(const Error&)> OnUnhandled;
  std::function<void(const Control&)> OnRefreshed;

 private:
  void Activate(Form& form);
  void Purge();

  ApplicationParts parts_;
  std::int32_t threadId_ = 0;
  std::vector<Form*> forms_;
  std::vector<Form*> modal_;
  std::vector<std::unique_ptr<Form>> buried_;
  int depth_ = 0;
  int pointer_ = pointer::Default;
  Error pending_{0, ""};
};

}  // namespace platform
