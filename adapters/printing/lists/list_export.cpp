#include <QFileInfo>
#include <QString>

#include "platform/values/error.h"
#include "printing/data/report_errors.h"
#include "printing/entry/report_engine.h"
#include "printing/layout/expression_values.h"
#include "printing/layout/report_layout.h"
#include "printing/lists/list_pages.h"
#include "printing/lists/list_rows.h"
#include "printing/output/csv_file.h"
#include "printing/output/font_set.h"
#include "printing/output/pdf_file.h"
#include "printing/output/xlsx_file.h"

namespace printing {

namespace {

using platform::ExportedList;
using platform::ExportRows;

constexpr double kPixelsPerInch = 96;
constexpr int kPathAccessError = 75;

std::vector<DetailColumn> ColumnsOf(const ExportedList& list) {
  std::vector<DetailColumn> columns;
  for (const auto& column : list.columns) columns.push_back({column.caption, column.format, column.width / kPixelsPerInch});
  return columns;
}

template <class File>
bool WriteCells(const ExportedList& list, ExportRows& rows, File&& file) {
  file.Begin(ColumnsOf(list));
  std::vector<platform::Value> cells;
  for (;;) {
    const auto step = rows.Next(cells);
    if (step == ExportRows::Step::Stopped) return false;
    if (step == ExportRows::Step::End) break;
    file.Add(cells);
  }
  file.Finish();
  return true;
}

bool WritePages(const ExportedList& list, ExportRows& rows, const std::string& path) {
  const FontSet fonts;
  ListRows texts(list, rows);
  const ReportDefinition report = ListReport(list, texts.Figures());
  const TextRules rules{[](std::string_view left, std::string_view right) { return left.compare(right); }, {}};
  ExpressionValues values(report, texts.Fields(), rules, {}, "");
  PageSpool pages;
  ReportLayout layout(report, values, texts, fonts, pages);
  while (layout.Advance()) continue;
  if (texts.Stopped()) return false;
  WritePdf(pages, path, list.title, fonts, {});
  return true;
}

class Files final : public platform::ListExport {
 public:
  bool Export(const ExportedList& list, ExportRows& rows, const std::string& path) override {
    const QString ending = QFileInfo(QString::fromStdString(path)).suffix().toLower();
    try {
      if (ending == "csv") return WriteCells(list, rows, CsvFile(path));
      if (ending == "xlsx") return WriteCells(list, rows, XlsxFile(path, list.title));
      return WritePages(list, rows, path);
    } catch (const ReportFailure& failure) {
      throw platform::Error(kPathAccessError, failure.what());
    }
  }
};

}  // namespace

std::unique_ptr<platform::ListExport> MakeListExport() { return std::make_unique<Files>(); }

}  // namespace printing
