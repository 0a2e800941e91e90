#include <cassert>
#include <string>

#include "platform/controls/common_dialog.h"
#include "platform/controls/report_control.h"
#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/failures.h"
#include "session/inspect.h"
#include "session/reports.h"

namespace orcussch {

namespace {
platform::Application* attached = nullptr;
bool mainDone = false;

void ForgetModule() {
  ForgetSessionValues();
  ForgetFiles();
  mainDone = false;
}
}  // namespace

platform::Application& App() {
  assert(attached && "no application is attached");
  return *attached;
}

void AttachApplication(platform::Application* application) {
  if (attached == application) return;
  ForgetModule();
  attached = application;
}

void Main() {
  if (mainDone) return;
  mainDone = true;
  const std::string separator = App().System().Separator();
  gTempDir = App().System().LocalRoot() + "orvTEMP" + separator;
  gSysModsDir = gTempDir + "SYSMODS" + separator;
  gUpdateDir = gTempDir + "UPDATE" + separator;
  gFilesOpen = false;
}

void ReportFailure(const platform::Error& error, const std::string& literal, bool terminate) {
  ++gFailuresReported;
  App().SetErr(error);
  if (App().IsNews(error) || terminate) ProgramError(literal, terminate);
}

void ProgramError(const std::string& Module, bool Terminate) {
  const int number = App().Err().Number();
  const std::string description = App().Err().Description();

  platform::ErrorRecord record;
  record.company = gCompanyID;
  record.terminate = Terminate;
  record.applicationTitle = App().Title();
  record.module = Module;
  record.user = gUserID;
  record.number = number;
  record.description = description;
  App().ErrorLog().Write(record);

  std::string message =
      "An error occurred in module: " + Module + "\r\r" + "Error: " + std::to_string(number) + "\r" + description + "\r\r";
  message += Terminate ? "This program will now terminate." : "This program will now attempt to resume.";
  App().MsgBox(message, platform::box::Exclamation, "Program Execution Error");
}

std::string Quoted(const std::string& Text) {
  std::string quoted = "'";
  for (const char character : Text) {
    if (character == '\'') quoted += character;
    quoted += character;
  }
  return quoted + "'";
}

std::string InFile(const std::string& Path) { return " IN " + Quoted(Path); }

std::string FixQuotes(const std::string& Text) {
  std::string fixed = Text;
  for (char& character : fixed)
    if (character == '\'') character = '?';
  return fixed;
}

bool FileExists(const std::string& Path) {
  if (Path.empty()) return false;
  return Ignore()([&] { App().System().FileLength(Path); });
}

bool IsFormLoaded(const platform::Form* Form) {
  for (int i = 0; i < App().FormCount(); ++i)
    if (&App().FormAt(i) == Form) return true;
  return false;
}

namespace {

/// A form's control by its name, as any form has to offer it; raises 438 where there is none.
template <class T>
T& Member(const platform::Form& Form, const char* Name) {
  if (auto* control = dynamic_cast<T*>(Form.Find(Name))) return *control;
  throw platform::error::NoSuchProperty();
}

}  // namespace

void PrinterSetup(platform::Form& Form) {
  Ignore()([&] {
    auto& CommonDialog1 = Member<platform::CommonDialog>(Form, "CommonDialog1");
    CommonDialog1.CancelError = false;
    CommonDialog1.ShowPrinter();
    if (!CommonDialog1.CancelError) {
      auto& Report1 = Member<platform::ReportControl>(Form, "Report1");
      Report1.Job.PrinterStartPage = CommonDialog1.FromPage;
      Report1.Job.PrinterStopPage = CommonDialog1.ToPage;
      Report1.Job.CopiesToPrinter = CommonDialog1.Copies;
    }
    App().DoEvents();
  });
}

}  // namespace orcussch
