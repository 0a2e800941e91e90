#include "printing/preview/page_view.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "printing/preview/look.h"

namespace printing {

namespace {

constexpr double kGap = 14;
constexpr std::size_t kPagesKept = 8;
constexpr double kMostSteps = 1 << 29;

}  // namespace

PageView::PageView(const PageSpool& pages, const FontSet& fonts, QWidget* parent)
    : QAbstractScrollArea(parent), pages_(pages), fonts_(fonts), painting_(fonts) {
  setObjectName(QStringLiteral("previewPages"));
  setAccessibleName(tr("Pages"));
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setCursor(Qt::IBeamCursor);
}

double PageView::Unit() const { return logicalDpiX() * zoom_; }
double PageView::PageStep() const { return height_ * Unit() + kGap; }
double PageView::DeskHeight() const { return kGap + PageStep() * static_cast<double>(pages_.Count()); }
double PageView::Top() const { return verticalScrollBar()->value() * pixelsPerStep_; }

void PageView::SetTop(double pixels) { verticalScrollBar()->setValue(static_cast<int>(std::lround(pixels / pixelsPerStep_))); }

void PageView::PagesChanged(std::int64_t count) {
  const bool first = width_ <= 0 || read_.empty();
  if (first && pages_.Count() > 0) {
    const Page& page = PageFor(0);
    width_ = page.width;
    height_ = page.height;
  }
  const bool counted = count != count_;
  count_ = count;
  ShowSizes();
  if (counted || first) viewport()->update();
  NoteCurrentPage();
}

const Page& PageView::PageFor(std::int64_t page) const {
  const auto found = std::find_if(read_.begin(), read_.end(), [page](const auto& one) { return one.first == page; });
  if (found != read_.end()) return found->second;
  read_.emplace_front(page, pages_.Read(page));
  if (read_.size() > kPagesKept) read_.pop_back();
  return read_.front().second;
}

void PageView::ShowSizes() {
  const double room = viewport()->height();
  const double most = std::max(0.0, DeskHeight() - room);
  const double top = Top();
  pixelsPerStep_ = std::max(1.0, most / kMostSteps);
  verticalScrollBar()->setRange(0, static_cast<int>(most / pixelsPerStep_));
  verticalScrollBar()->setPageStep(std::max(1, static_cast<int>(room / pixelsPerStep_)));
  verticalScrollBar()->setSingleStep(std::max(1, static_cast<int>(40 / pixelsPerStep_)));
  if (top != Top()) SetTop(top);
  const double wide = width_ * Unit() + 2 * kGap - viewport()->width();
  horizontalScrollBar()->setRange(0, std::max(0, static_cast<int>(std::ceil(wide))));
  horizontalScrollBar()->setPageStep(viewport()->width());
  horizontalScrollBar()->setSingleStep(40);
}

QRectF PageView::PaperOf(std::int64_t page) const {
  const double wide = width_ * Unit();
  const double x = std::max(kGap, (viewport()->width() - wide) / 2) - horizontalScrollBar()->value();
  const double y = kGap + PageStep() * static_cast<double>(page) - Top();
  return {std::round(x), std::round(y), wide, height_ * Unit()};
}

std::int64_t PageView::PageAt(double y) const {
  const auto page = static_cast<std::int64_t>(std::floor((y + Top() - kGap / 2) / PageStep()));
  return std::clamp<std::int64_t>(page, 0, std::max<std::int64_t>(0, pages_.Count() - 1));
}

std::optional<QPointF> PageView::OnPage(std::int64_t page, QPointF point) const {
  if (page < 0 || page >= pages_.Count()) return {};
  return (point - PaperOf(page).topLeft()) / Unit();
}

void PageView::NoteCurrentPage() {
  // The page that has most of the view's upper half.
  const std::int64_t page = PageAt(viewport()->height() / 3.0);
  if (page == current_) return;
  current_ = page;
  emit CurrentPageChanged();
}

void PageView::GoTo(std::int64_t page) {
  page = std::clamp<std::int64_t>(page, 0, std::max<std::int64_t>(0, pages_.Count() - 1));
  SetTop(PageStep() * static_cast<double>(page));
  // At the end several pages may share the view; the one that was asked for counts.
  if (current_ == page) return;
  current_ = page;
  emit CurrentPageChanged();
}

void PageView::SetZoom(double zoom) {
  fit_ = Fit::None;
  ZoomAround(zoom, QPointF(viewport()->width() / 2.0, viewport()->height() / 3.0));
}

void PageView::SetFit(Fit fit) {
  fit_ = fit;
  const std::int64_t page = current_;
  Refit();
  if (fit == Fit::Page) GoTo(page);
  emit ZoomChanged();
}

void PageView::Refit() {
  if (fit_ == Fit::None) return;
  const double wide = (viewport()->width() - 2 * kGap) / (width_ * logicalDpiX());
  const double high = (viewport()->height() - 2 * kGap) / (height_ * logicalDpiX());
  ZoomAround(fit_ == Fit::Width ? wide : std::min(wide, high), QPointF(0, 0));
}

void PageView::ZoomAround(double zoom, QPointF fixed) {
  zoom = std::clamp(zoom, kLeastZoom, kMostZoom);
  if (zoom == zoom_) return;
  const std::int64_t page = PageAt(fixed.y());
  const QPointF before = (fixed - PaperOf(page).topLeft()) / Unit();
  zoom_ = zoom;
  ShowSizes();
  const QPointF now = PaperOf(page).topLeft() + before * Unit();
  SetTop(Top() + now.y() - fixed.y());
  horizontalScrollBar()->setValue(static_cast<int>(std::lround(horizontalScrollBar()->value() + now.x() - fixed.x())));
  viewport()->update();
  NoteCurrentPage();
  emit ZoomChanged();
}

void PageView::ShowHits(const QString& wanted, const std::optional<TextHit>& present) {
  wanted_ = wanted;
  present_ = present;
  if (present && present->page < pages_.Count()) {
    const QRectF place = PlaceOf(PageFor(present->page), *present, count_, fonts_);
    const QPointF corner = PaperOf(present->page).topLeft();
    const QRectF seen(corner + place.topLeft() * Unit(), place.size() * Unit());
    if (seen.top() < kGap || seen.bottom() > viewport()->height() - kGap) SetTop(Top() + seen.top() - viewport()->height() / 3.0);
    if (seen.left() < 0 || seen.right() > viewport()->width())
      horizontalScrollBar()->setValue(static_cast<int>(horizontalScrollBar()->value() + seen.left() - kGap));
    current_ = present->page;
    emit CurrentPageChanged();
  }
  viewport()->update();
}

void PageView::SelectPage() {
  if (pages_.Count() == 0) return;
  selected_ = Selection{current_, QRectF(0, 0, width_, height_)};
  viewport()->update();
  emit SelectionChanged();
}

void PageView::ClearSelection() {
  if (!selected_) return;
  selected_.reset();
  viewport()->update();
  emit SelectionChanged();
}

QString PageView::SelectedText() const { return selected_ ? TextIn(PageFor(selected_->page), selected_->area, count_, fonts_) : QString(); }

void PageView::PaintMarks(QPainter& painter, std::int64_t page, const QRectF& paper) const {
  const auto mark = [&](const QRectF& place, const QColor& colour) {
    painter.fillRect(QRectF(paper.topLeft() + place.topLeft() * Unit(), place.size() * Unit()).adjusted(-1, 0, 1, 0), colour);
  };
  const Page& content = PageFor(page);
  for (const TextHit& hit : HitsOn(content, page, wanted_, count_))
    mark(PlaceOf(content, hit, count_, fonts_), hit == present_ ? look::PresentHit() : look::Hit());
  if (!selected_ || selected_->page != page) return;
  const QColor chosen = look::Chosen(palette());
  for (const QRectF& box : BoxesIn(content, selected_->area, count_, fonts_)) mark(box, chosen);
}

void PageView::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  painter.fillRect(event->rect(), look::Desk(palette()));
  if (pages_.Count() == 0) return;
  painter.setRenderHint(QPainter::Antialiasing);
  const std::int64_t last = PageAt(event->rect().bottom());
  for (std::int64_t page = PageAt(event->rect().top()); page <= last; ++page) {
    const QRectF paper = PaperOf(page);
    painter.save();
    painter.fillRect(paper.adjusted(-1, -1, 1, 2), look::PaperEdge(palette()));
    painter.fillRect(paper, Qt::white);
    painter.setClipRect(paper.intersected(event->rect()));
    painter.save();
    painter.translate(paper.topLeft());
    painting_.Paint(painter, PageFor(page), Unit(), count_);
    painter.restore();
    // As a felt pen marks: over stripes and under letters.
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    PaintMarks(painter, page, paper);
    painter.restore();
  }
  if (!std::exchange(painted_, true)) emit FirstPainted();
}

void PageView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  Refit();
  ShowSizes();
  NoteCurrentPage();
}

void PageView::scrollContentsBy(int, int) {
  viewport()->update();
  NoteCurrentPage();
}

}  // namespace printing
