#include <filesystem>
#include <utility>

#include "desktop/desktop.h"
#include "engine/engine.h"
#include "engine/text/like.h"
#include "engine/text/text_order.h"
#include "library/reports.h"
#include "platform/services/data_path.h"
#include "printing/entry/report_engine.h"
#include "session/ModCustSch.h"

namespace library {
namespace {

namespace fs = std::filesystem;
using printing::DataFileKind;

printing::TextRules EngineTexts() {
  return {engine::CompareText, [](const std::string& pattern) -> std::function<bool(std::string_view)> {
            return [like = engine::LikePattern(pattern)](std::string_view text) { return like.Matches(text); };
          }};
}

bool IsOneFile(const std::string& left, const std::string& right) {
  std::error_code told;
  return !left.empty() && !right.empty() && (left == right || fs::equivalent(left, right, told));
}

/// The session's own files, the user's temporary one, and what lies in the company's folder itself.
DataFileKind KindOf(const platform::OperatingSystem& system, const std::string& path) {
  const auto host = [&](const std::string& name) { return system.ToHostPath(name); };
  const std::string file = host(path);
  if (file.empty()) return DataFileKind::Refused;
  if (IsOneFile(file, host(orcussch::gTempPath))) return DataFileKind::Temporary;
  for (const std::string& own : {orcussch::gCustomerPath, orcussch::gARTransPath, orcussch::gGLPath})
    if (IsOneFile(file, host(own))) return DataFileKind::Kept;
  const fs::path folder = fs::path(host(orcussch::GetDataPath(orcussch::gCompanyID, ""))).parent_path();
  std::error_code told;
  const bool inside = fs::equivalent(fs::path(file).parent_path(), folder, told) && !fs::is_symlink(file, told);
  return inside ? DataFileKind::Kept : DataFileKind::Refused;
}

printing::RunServices ForRun(const ReportPlaces& places) {
  const platform::OperatingSystem& system = places.app()->System();
  printing::RunServices run;
  run.folder = {places.libraryFolder, places.hostFolder};
  run.data.openReader = [&system] {
    engine::EngineOptions options;
    options.now = [&system] { return system.Now(); };
    options.hostPath = [&system](std::string_view path) { return system.ToHostPath(path); };
    return engine::MakeSnapshotReader(options);
  };
  run.data.dataFolder = orcussch::GetDataPath(orcussch::gCompanyID, "");
  run.data.kindOf = [&system](const std::string& path) { return KindOf(system, path); };
  run.data.text = EngineTexts();
  run.data.today = system.Today();
  return run;
}

/// While a screen is in the middle of something an open preview waits.
bool SomeScreenIsBusy(const platform::Application& app) {
  for (int i = 0; i < app.FormCount(); ++i)
    if (app.FormAt(i).Busy()) return true;
  return false;
}

printing::EngineServices Services(const ReportPlaces& places) {
  printing::EngineServices services;
  services.forRun = [places] { return ForRun(places); };
  services.busy = [places] { return places.app() != nullptr && SomeScreenIsBusy(*places.app()); };
  services.alignment = [places](const std::string& printer) {
    const desktop::PrinterAlignment kept = desktop::AlignmentOf(places.app()->FrontEnd(), printer);
    return printing::PaintSettings{kept.right, kept.down, kept.scale};
  };
  services.keepAlignment = [places](const std::string& printer, const printing::PaintSettings& settings) {
    desktop::KeepAlignment(places.app()->FrontEnd(), printer, {settings.shiftX, settings.shiftY, settings.scale});
  };
  services.watcher = [places] { return places.app()->Watcher(); };
  services.log = [places](const std::string& line) { places.app()->Log(platform::LogLevel::Warning, line); };
  return services;
}

}  // namespace

std::unique_ptr<platform::ReportEngine> MakeReports(const ReportPlaces& places) { return printing::MakeReportEngine(Services(places)); }

std::unique_ptr<platform::ReadableReports> MakeReadableReports(const ReportPlaces& places) {
  return printing::MakeReadableReports(Services(places), [places] { return places.app()->DefaultPrinter(); });
}

std::unique_ptr<platform::ListExport> MakeListExport() { return printing::MakeListExport(); }

int WriteReport(const ReportPlaces& places, const platform::ReportJob& job, const std::string& file,
                const std::function<void(const std::string&)>& log, const std::function<bool(std::int64_t)>& goOn) {
  printing::EngineServices services = Services(places);
  services.log = log;
  return printing::WriteReport(job, services, file, goOn);
}

}  // namespace library
