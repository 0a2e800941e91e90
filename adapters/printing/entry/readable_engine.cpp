#include <algorithm>
#include <utility>

#include "printing/data/report_errors.h"
#include "printing/entry/report_engine.h"
#include "printing/entry/without_display.h"
#include "printing/entry/windowed_engine.h"
#include "printing/preview/page_text.h"
#include "printing/preview/preview_window.h"

namespace printing {

namespace {

using platform::PageTexts;
using platform::ReportJob;

PageTexts TextsOf(const Page& page, std::int64_t pageCount) {
  PageTexts texts;
  for (const PageItem& item : page.items)
    if (const QString text = ShownText(item, pageCount); !text.isEmpty()) texts.push_back(text.toStdString());
  return texts;
}

/// Pages from `from` to `to`, as PrinterRun counts them.
std::vector<PageTexts> TextsOf(const PageSpool& pages, std::int64_t from, std::int64_t to) {
  std::vector<PageTexts> texts;
  const std::int64_t last = to > 0 ? std::min(to, pages.Count()) : pages.Count();
  for (std::int64_t page = std::max<std::int64_t>(from, 1); page <= last; ++page) texts.push_back(TextsOf(pages.Read(page - 1), pages.Count()));
  return texts;
}

/// What goes to the printer is kept to be read.
class KeepingEngine final : public WindowedEngine {
 public:
  KeepingEngine(EngineServices services, std::function<std::string()> defaultPrinter)
      : WindowedEngine(std::move(services)), defaultPrinter_(std::move(defaultPrinter)) {}

  std::vector<PageTexts> printed;

 protected:
  void ToPrinter(std::unique_ptr<ReportRun> run, const PrinterRun& printer, const Progress&) override {
    if (defaultPrinter_().empty()) throw ReportFailure(ReportError::NoPrinter, "there is no printer");
    printed = TextsOf(run->Pages(), printer.from, printer.to);
  }

 private:
  std::function<std::string()> defaultPrinter_;
};

class ReadableEngine final : public platform::ReadableReports {
 public:
  ReadableEngine(EngineServices services, std::function<std::string()> defaultPrinter)
      : toolkit_(WindowsWithoutDisplay()), engine_(std::move(services), std::move(defaultPrinter)) {}

  int PrintReport(const ReportJob& job) override {
    engine_.printed.clear();
    const int before = OpenPreviews();
    const int number = engine_.PrintReport(job);
    lastIsPreview_ = OpenPreviews() > before;
    return number;
  }
  void CloseAll() override { engine_.CloseAll(); }

  int OpenPreviews() const override { return static_cast<int>(engine_.Open().Count()); }
  std::vector<PageTexts> Pages(int preview) override {
    if (preview == 0 && !lastIsPreview_) return engine_.printed;
    const int wanted = preview == 0 ? OpenPreviews() : preview;
    PreviewWindow* window = wanted > 0 ? engine_.Open().At(static_cast<std::size_t>(wanted) - 1) : nullptr;
    return window ? TextsOf(window->AllPages(), 0, 0) : std::vector<PageTexts>();
  }

 private:
  std::unique_ptr<QGuiApplication> toolkit_;
  KeepingEngine engine_;
  bool lastIsPreview_ = false;
};

}  // namespace

std::unique_ptr<platform::ReadableReports> MakeReadableReports(EngineServices services, std::function<std::string()> defaultPrinter) {
  return std::make_unique<ReadableEngine>(std::move(services), std::move(defaultPrinter));
}

}  // namespace printing
