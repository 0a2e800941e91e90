#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/data/data.h"
#include "platform/host/front_end.h"
#include "platform/services/accounts_lookup.h"
#include "platform/services/error_log.h"
#include "platform/services/map.h"
#include "platform/services/operating_system.h"
#include "platform/services/report_engine.h"
#include "platform/values/error.h"

namespace platform {

/// The parts that a host (or a test) puts together. `reports`, `map`, `listExport`, `accounts` and `diagnosticLog` may stay
/// empty.
struct ApplicationParts {
  std::unique_ptr<DataEngine> engine;
  std::unique_ptr<OperatingSystem> system;
  std::unique_ptr<ErrorLog> errorLog;
  std::unique_ptr<DiagnosticLog> diagnosticLog;
  std::unique_ptr<AccountsLookup> accounts;
  std::unique_ptr<ReportEngine> reports;
  std::unique_ptr<MapEngine> map;
  std::unique_ptr<ListExport> listExport;
  std::unique_ptr<FrontEnd> frontEnd;
  std::string path;                      ///< the library's own folder
  std::string title;                     ///< the host's name, for the log
  std::optional<std::int32_t> threadId;  ///< default: the system's process number
};

/// The application object: the library's folder, the number that tells running copies apart, the loaded forms, showing and
/// unloading, the yield, message boxes, the mouse pointer, the pending error. Everything runs on one thread.
class Application final : public FormHost {
 public:
  explicit Application(ApplicationParts parts);
  ~Application() override;
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  const std::string& Path() const noexcept { return parts_.path; }
  const std::string& Title() const noexcept { return parts_.title; }
  std::int32_t ThreadID() const noexcept { return threadId_; }
  DataEngine& Engine() const override { return *parts_.engine; }
  OperatingSystem& System() const { return *parts_.system; }
  Date Today() const override { return System().Today(); }
  platform::ErrorLog& ErrorLog() const { return *parts_.errorLog; }
  AccountsLookup* Accounts() const { return parts_.accounts.get(); }
  ReportEngine* Reports() const override { return parts_.reports.get(); }
  MapEngine* Map() const override { return parts_.map.get(); }
  ListExport* Exports() const override { return parts_.listExport.get(); }
  RunWatcher* Watcher() const override { return FrontEnd().Watcher(); }
  platform::FrontEnd& FrontEnd() const { return *parts_.frontEnd; }
  std::optional<PrinterChoice> PrinterDialog(Form& form) override { return FrontEnd().PrinterDialog(form); }
  /// The name of the default printer; "" when there is none.
  std::string DefaultPrinter() const { return FrontEnd().DefaultPrinter(); }
  void ServePainting() override { FrontEnd().ServePainting(); }

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
  void Unload(Form& form) override;
  /// Keeps an unloaded screen's object until no handler can be on the stack any more.
  void Bury(std::unique_ptr<Form> form);

  void DoEvents();
  int MsgBox(const std::string& text, int style, const std::string& title) override;
  int MousePointer() const noexcept { return pointer_; }
  void MousePointer(int pointer);

  /// The error that the handler which runs now was called for.
  const Error& Err() const noexcept { return pending_; }
  void SetErr(const Error& error) { pending_ = error; }
  /// Takes note of a failure that is about to be told. False: the user has been told in this act that the data is out of reach, and this
  /// is the same again, met by a later statement.
  bool IsNews(const Error& error);

  void Act(Form& form, const std::function<void()>& body) override;
  void Unhandled(const Error& error) override;
  void Close(Form& form) override;
  void Changed(Form& form, Control* control, Aspect aspect) override;
  void Refreshed(const Control& dataControl) override;
  void Log(LogLevel level, std::string_view text) const noexcept override;

  /// Told of each error that no handler took, and of each refresh of a data control: for tests and diagnosis.
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
  bool lossTold_ = false;  ///< in the act that runs
  int pointer_ = pointer::Default;
  Error pending_{0, ""};
};

}  // namespace platform
