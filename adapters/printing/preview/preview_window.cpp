#include "printing/preview/preview_window.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QStatusBar>
#include <algorithm>
#include <exception>

#include "printing/data/report_errors.h"
#include "printing/preview/look.h"
#include "printing/preview/modal_escape.h"

namespace printing {

namespace {

constexpr std::int64_t kSliceMs = 8;
/// How long the first page may be waited for before the window shows without it.
constexpr std::int64_t kFirstPageMs = 2000;
constexpr int kBusyPauseMs = 40;
/// How long the window may take to paint before laying out goes on all the same: nobody may ever see it.
constexpr int kUnseenMs = 250;
/// How long laying out goes on before the window tells how much is left: to count the rows of a long table means to read through it.
constexpr std::int64_t kCountAfterMs = 1000;
constexpr double kLargestAtFirst = 1.25;

}  // namespace

PreviewWindow::PreviewWindow(std::unique_ptr<PreviewRun> run, std::shared_ptr<const FontSet> fonts, PreviewSettings settings,
                             std::function<bool()> busy, PreviewDialogs dialogs)
    : run_(std::move(run)),
      fonts_(std::move(fonts)),
      settings_(std::move(settings)),
      busy_(std::move(busy)),
      dialogs_(std::move(dialogs)),
      search_(run_->Pages()) {
  setObjectName(QStringLiteral("preview"));
  setAttribute(Qt::WA_QuitOnClose, false);
  setWindowTitle(QString::fromStdString(settings_.title));
  setWindowIcon(look::Icon(QStringLiteral("print")));
  auto* middle = look::New<QWidget>(static_cast<QWidget*>(this));
  auto* row = look::New<QHBoxLayout>(middle);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  thumbnails_ = look::New<Thumbnails>(middle, run_->Pages(), *fonts_);
  view_ = look::New<PageView>(middle, run_->Pages(), *fonts_);
  row->addWidget(thumbnails_);
  row->addWidget(view_, 1);
  setCentralWidget(middle);
  MakeActions();
  MakeToolBar();
  MakeStatusBar();
  setStyleSheet(look::WindowRules(palette()));
  connect(view_, &PageView::CurrentPageChanged, this, &PreviewWindow::ShowPlace);
  connect(view_, &PageView::ZoomChanged, this, &PreviewWindow::ShowZoom);
  connect(view_, &PageView::SelectionChanged, this, &PreviewWindow::ShowEnabled);
  connect(thumbnails_, &Thumbnails::Chosen, view_, &PageView::GoTo);
  connect(&idle_, &QTimer::timeout, this, &PreviewWindow::Slice);
  LayOutFor(kFirstPageMs);
  // The other pages, and their pictures, must not keep the first one from the screen.
  connect(view_, &PageView::FirstPainted, this, [this] { idle_.start(0); });
  idle_.start(kUnseenMs);
}

PreviewWindow::~PreviewWindow() = default;

void PreviewWindow::Open() {
  constexpr QSize kUsual(1000, 760);
  resize(kUsual);
  const ModalEscape* escape = std::make_unique<ModalEscape>(*this).release();
  Q_UNUSED(escape);
  if (settings_.maximised) {
    showMaximized();
  } else {
    show();
  }
  // As wide as the window, but not larger than one reads with ease.
  view_->SetFit(PageView::Fit::Width);
  if (view_->Zoom() > kLargestAtFirst) view_->SetZoom(kLargestAtFirst);
  view_->GoTo(0);
  view_->setFocus();
  raise();
  activateWindow();
  opened_.start();
  ShowPlace();
  ShowZoom();
}

void PreviewWindow::CloseForGood() {
  closing_ = true;
  idle_.stop();
  hide();
  if (!working_) deleteLater();
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  CloseForGood();
}

void PreviewWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || styleSheet().isEmpty()) return;
  const QString rules = look::WindowRules(palette());
  if (rules != styleSheet()) setStyleSheet(rules);
}

void PreviewWindow::LayOutFor(std::int64_t milliseconds) {
  QElapsedTimer clock;
  clock.start();
  const std::int64_t before = run_->Pages().Count();
  const bool first = before == 0;
  try {
    while (!complete_ && clock.elapsed() < milliseconds && !(first && run_->Pages().Count() > 0)) complete_ = !run_->Advance();
  } catch (const std::exception& what) {
    // What is there stays to be read.
    complete_ = true;
    failure_ = tr("The report could not be finished: %1").arg(QString::fromUtf8(what.what()));
  }
  if (run_->Pages().Count() == before && !complete_) return;
  view_->PagesChanged(complete_ && failure_.isEmpty() ? run_->Pages().Count() : 0);
  thumbnails_->PagesChanged();
}

const PageSpool& PreviewWindow::AllPages() {
  while (!complete_) LayOutFor(kFirstPageMs);
  ShowPlace();
  return run_->Pages();
}

void PreviewWindow::Slice() {
  if (working_ || closing_) return;
  const bool searching = search_.Now() == TextSearch::State::Searching;
  if (complete_ && !searching) {
    idle_.stop();
    return;
  }
  if (busy_ && busy_()) {
    idle_.setInterval(kBusyPauseMs);
    return;
  }
  idle_.setInterval(0);
  if (searching) {
    QElapsedTimer clock;
    clock.start();
    while (search_.Now() == TextSearch::State::Searching && clock.elapsed() < kSliceMs) {
      const std::int64_t looked = search_.PagesLookedAt();
      search_.Step(complete_, complete_ ? run_->Pages().Count() : 0);
      if (search_.PagesLookedAt() == looked) break;
    }
    ShowSearch();
  }
  if (!complete_) LayOutFor(kSliceMs);
  ShowPlace();
}

void PreviewWindow::LayOutRest(const Progress& progress) {
  while (!complete_) {
    complete_ = !run_->Advance();
    Ask(progress, run_->Pages().Count());
  }
  view_->PagesChanged(run_->Pages().Count());
  thumbnails_->PagesChanged();
  ShowPlace();
}

void PreviewWindow::ShowPlace() {
  const std::int64_t pages = run_->Pages().Count();
  const QString count = complete_ ? QString::number(pages) : QStringLiteral("…");
  const std::int64_t page = pages > 0 ? view_->CurrentPage() + 1 : 0;
  if (!pageEdit_->hasFocus() || !pageEdit_->isModified()) pageEdit_->setText(QString::number(page));
  pageCount_->setText(tr("of %1").arg(count));
  place_->setText(pages > 0 ? tr("Page %1 of %2").arg(page).arg(count) : tr("No pages"));
  if (!failure_.isEmpty()) {
    progress_->setText(failure_);
  } else if (complete_) {
    progress_->clear();
  } else {
    const bool lasts = opened_.isValid() && opened_.hasExpired(kCountAfterMs);
    const std::int64_t all = lasts ? run_->RowsInAll() : -1;
    progress_->setText(all > 0 ? tr("%L1 of %L2 rows laid out").arg(run_->RowsDone()).arg(all)
                               : tr("%L1 rows laid out").arg(run_->RowsDone()));
  }
  thumbnails_->ShowCurrent(view_->CurrentPage());
  ShowEnabled();
}

void PreviewWindow::ShowEnabled() {
  const std::int64_t last = run_->Pages().Count() - 1;
  Action("previewFirst").setEnabled(view_->CurrentPage() > 0);
  Action("previewPrevious").setEnabled(view_->CurrentPage() > 0);
  Action("previewNext").setEnabled(view_->CurrentPage() < last);
  Action("previewLast").setEnabled(view_->CurrentPage() < last);
  Action("previewCopy").setEnabled(view_->HasSelection());
}

void PreviewWindow::ShowZoom() {
  if (!zoom_->lineEdit()->hasFocus()) zoom_->setEditText(QStringLiteral("%1%").arg(std::lround(view_->Zoom() * 100)));
  Action("previewFitPage").setChecked(view_->Fitted() == PageView::Fit::Page);
  Action("previewFitWidth").setChecked(view_->Fitted() == PageView::Fit::Width);
}

void PreviewWindow::Find(bool forward) {
  search_.Begin(findEdit_->text(), forward, view_->CurrentPage());
  if (search_.Now() == TextSearch::State::Idle) view_->ShowHits({}, {});
  idle_.setInterval(0);
  idle_.start();
  ShowSearch();
}

void PreviewWindow::ShowSearch() {
  switch (search_.Now()) {
    case TextSearch::State::Found:
      view_->ShowHits(search_.Wanted(), search_.Hit());
      statusBar()->clearMessage();
      return;
    case TextSearch::State::NotFound:
      view_->ShowHits(search_.Wanted(), {});
      statusBar()->showMessage(tr("\"%1\" is not in this report.").arg(search_.Wanted()));
      return;
    case TextSearch::State::Searching:
      statusBar()->showMessage(tr("Searching for \"%1\": %L2 pages").arg(search_.Wanted()).arg(search_.PagesLookedAt()));
      return;
    case TextSearch::State::Idle:
      statusBar()->clearMessage();
  }
}

void PreviewWindow::CopySelection() {
  if (view_->HasSelection()) QGuiApplication::clipboard()->setText(view_->SelectedText());
}

}  // namespace printing
