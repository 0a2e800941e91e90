#include "printing/entry/report_engine.h"

#include <QString>
#include <utility>

#include "printing/entry/numbered.h"
#include "printing/entry/windowed_engine.h"
#include "printing/entry/without_display.h"
#include "printing/output/csv_file.h"
#include "printing/output/pdf_file.h"
#include "printing/output/xlsx_file.h"

namespace printing {

namespace {

using platform::ReportJob;

bool Ends(const std::string& path, const char* ending) {
  return QString::fromStdString(path).endsWith(QLatin1String(ending), Qt::CaseInsensitive);
}

template <class File>
void WriteDetails(const ReportJob& job, const EngineServices& services, File&& file, const Progress& progress) {
  ExportDetails(job, services.forRun(), file, progress);
  file.Finish();
}

void WritePages(const ReportJob& job, const EngineServices& services, const std::string& path, const Progress& progress) {
  const FontSet fonts;
  ReportRun run(job, services.forRun(), fonts, Details::Once);
  while (run.Advance()) Ask(progress, run.RowsDone());
  WritePdf(run.Pages(), path, run.Title(), fonts, progress);
}

}  // namespace

std::unique_ptr<platform::ReportEngine> MakeReportEngine(EngineServices services) {
  return std::make_unique<WindowedEngine>(std::move(services));
}

int WriteReport(const ReportJob& job, const EngineServices& services, const std::string& path, const Progress& progress) {
  const auto toolkit = ToolkitWithoutDisplay();
  return Numbered(services, job, [&] {
    if (Ends(path, ".csv")) return WriteDetails(job, services, CsvFile(path), progress);
    if (Ends(path, ".xlsx")) return WriteDetails(job, services, XlsxFile(path, job.WindowTitle), progress);
    WritePages(job, services, path, progress);
  });
}

}  // namespace printing
