#include "printing/output/pdf_file.h"

#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <algorithm>
#include <optional>

#include "printing/data/report_errors.h"

namespace printing {

namespace {

constexpr int kPointsPerInch = 72;

QPageSize SizeOf(double width, double height) {
  return QPageSize(QSizeF(width * kPointsPerInch, height * kPointsPerInch), QPageSize::Point, {}, QPageSize::ExactMatch);
}

}  // namespace

struct PdfFile::Making {
  Making(const std::string& path, const FontSet& fonts, PaintSettings settings)
      : file(QString::fromStdString(path)), painting(fonts, settings) {}

  [[noreturn]] void Fail() const {
    throw ReportFailure(ReportError::OutputFailed, file.fileName().toStdString() + ": " + file.errorString().toStdString());
  }
  void Begin(double width, double height) {
    writer.emplace(&file);
    writer->setTitle(title);
    writer->setCreator(QStringLiteral("ORCusSch"));
    // A point is the unit: places come into the file as they are.
    writer->setResolution(kPointsPerInch);
    writer->setPageSize(SizeOf(width, height));
    writer->setPageMargins(QMarginsF());
    if (!painter.begin(&*writer)) Fail();
  }

  QSaveFile file;
  QString title;
  std::int64_t pageCount = 0;
  PagePainter painting;
  std::optional<QPdfWriter> writer;
  QPainter painter;
};

PdfFile::PdfFile(const std::string& path, const std::string& title, const FontSet& fonts, std::int64_t pageCount, PaintSettings settings)
    : making_(std::make_unique<Making>(path, fonts, settings)) {
  making_->title = QString::fromStdString(title);
  making_->pageCount = pageCount;
  if (!making_->file.open(QIODevice::WriteOnly)) making_->Fail();
}

PdfFile::~PdfFile() {
  if (making_->painter.isActive()) making_->painter.end();
}

void PdfFile::Add(const Page& page) {
  Making& making = *making_;
  if (!making.writer) {
    making.Begin(page.width, page.height);
  } else if (!making.writer->newPage()) {
    making.Fail();
  }
  making.painting.Paint(making.painter, page, kPointsPerInch, making.pageCount);
  if (making.file.error() != QFileDevice::NoError) making.Fail();
}

void PdfFile::Finish() {
  Making& making = *making_;
  if (!making.writer) making.Begin(Page{}.width, Page{}.height);
  making.painter.end();
  if (!making.file.commit()) making.Fail();
}

void WritePdf(const PageSpool& pages, const std::string& path, const std::string& title, const FontSet& fonts, const Progress& progress,
              std::int64_t from, std::int64_t to, PaintSettings settings) {
  PdfFile file(path, title, fonts, pages.Count(), settings);
  const std::int64_t last = to > 0 ? std::min(to, pages.Count()) : pages.Count();
  std::int64_t done = 0;
  for (std::int64_t page = std::max<std::int64_t>(from, 1); page <= last; ++page) {
    file.Add(pages.Read(page - 1));
    Ask(progress, ++done);
  }
  file.Finish();
}

}  // namespace printing
