#include "printing/run/report_run.h"

#include <cassert>
#include <utility>

#include "platform/values/text.h"
#include "printing/data/overrides.h"

namespace printing {

namespace {

constexpr std::int64_t kRowsBetweenAsking = 256;

ReportDefinition Load(const platform::ReportJob& job, const RunServices& services) {
  ReportDefinition report = LoadReport(services.folder, static_cast<const std::string&>(job.ReportFileName));
  ApplyFormulas(report, job.Formulas);
  return report;
}

/// The one customer's number in a selection of the form that the screens write; "" for any other.
std::string AccountIn(const std::string& selection) {
  constexpr std::string_view kStart = "{Customers.AcctNum}=";
  const bool one = selection.starts_with(kStart) && selection.find_first_not_of("0123456789", kStart.size()) == std::string::npos;
  return one ? selection.substr(kStart.size()) : "";
}

/// Over whom the report goes, as its head tells it.
std::string SelectionInWords(const ReportDefinition& report, const platform::ReportJob& job, const DataServices& data) {
  const std::string& selection = job.SelectionFormula;
  if (const std::string account = AccountIn(selection); !account.empty()) return "Customer " + account;
  if (!selection.empty()) return selection;
  for (std::size_t i = 0; i < report.tables.size(); ++i) {
    const auto file = job.DataFiles.find(static_cast<int>(i));
    const bool temporary = file != job.DataFiles.end() && !file->second.empty() && data.kindOf(file->second) == DataFileKind::Temporary;
    if (temporary && platform::EqualsNoCase(report.tables[i].name, "Customers")) return "Queried customers";
  }
  return "All customers";
}

RowRequest RequestOf(const platform::ReportJob& job) { return {job.DataFiles, job.SortFields, job.SelectionFormula}; }

void ExportRows(const ReportDefinition& report, ExpressionValues& values, RowSource& rows, DetailSink& sink, const Progress& progress) {
  DetailRows details(report, values, rows, sink);
  while (details.Advance())
    if (details.Records() % kRowsBetweenAsking == 0) Ask(progress, details.Records());
}

}  // namespace

ReportRun::ReportRun(const platform::ReportJob& job, RunServices services, const TextMeasure& measure, Details details)
    : services_(std::move(services)),
      report_(Load(job, services_)),
      selection_(SelectionInWords(report_, job, services_.data)),
      rows_(OpenReportRows(report_, RequestOf(job), services_.data)) {
  if (details == Details::Again) {
    auto kept = std::make_unique<KeptRows>(std::move(rows_));
    kept_ = kept.get();
    rows_ = std::move(kept);
  }
  values_ = std::make_unique<ExpressionValues>(report_, rows_->Fields(), services_.data.text, services_.data.today, selection_);
  layout_ = std::make_unique<ReportLayout>(report_, *values_, *rows_, measure, pages_, job.FirstLabel);
}

bool ReportRun::Advance() { return layout_->Advance(); }

void ReportRun::Export(DetailSink& sink, const Progress& progress) {
  assert(kept_ != nullptr);
  while (Advance()) Ask(progress, RowsDone());
  const std::unique_ptr<RowSource> again = kept_->Again();
  ExpressionValues values(report_, again->Fields(), services_.data.text, services_.data.today, selection_);
  ExportRows(report_, values, *again, sink, progress);
}

void ExportDetails(const platform::ReportJob& job, RunServices services, DetailSink& sink, const Progress& progress) {
  const ReportDefinition report = Load(job, services);
  const std::unique_ptr<RowSource> rows = OpenReportRows(report, RequestOf(job), services.data);
  ExpressionValues values(report, rows->Fields(), services.data.text, services.data.today, SelectionInWords(report, job, services.data));
  ExportRows(report, values, *rows, sink, progress);
}

}  // namespace printing
