#include "desktop/list/list_view.h"

#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/list/cell_editor.h"
#include "desktop/list/list_header.h"
#include "desktop/list/list_painter.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {
constexpr int kRowGap = 8;
constexpr int kMarkerWidth = 22;
constexpr int kCaptionGap = 10;
constexpr int kCaptionMargin = 8;
constexpr int kCheckSize = 15;
constexpr int kSpareRows = 2;
}  // namespace

ListView::ListView(QWidget* parent)
    : QAbstractScrollArea(parent),
      header_(std::make_unique<ListHeader>(*this).release()),
      caption_(NewWidget<QLabel>(static_cast<QWidget*>(this))),
      rows_([this]() -> platform::RowWindow* { return grid_ && grid_->Data() ? grid_->Data()->Window() : nullptr; }) {
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(QFrame::StyledPanel);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // The bar stands beside the rows, not beside caption and headings, which do not move.
  aboveBar_ = NewWidget<QWidget>(static_cast<QWidget*>(this));
  addScrollBarWidget(aboveBar_, Qt::AlignTop);
  caption_->setTextFormat(Qt::PlainText);
  caption_->setProperty("role", "value");
  caption_->hide();
  viewport()->setAutoFillBackground(true);
  viewport()->setBackgroundRole(QPalette::Base);
  wish_.setSingleShot(true);
  connect(&wish_, &QTimer::timeout, this, [this] {
    if (!isVisible()) return;
    Sync();
    viewport()->update();
    header_->update();
  });
  sincePaint_.start();
  rowHeight_ = fontMetrics().height() + kRowGap;
}

ListView::~ListView() = default;

void ListView::Attach(platform::Grid& grid, Services& services) {
  grid_ = &grid;
  services_ = &services;
  DefineColumns();
}

void ListView::Detach() {
  grid_ = nullptr;
  wish_.stop();
  rows_.Forget();
  if (editor_) editor_->hide();
}

int ListView::MarkerWidth() const { return MarksRows() ? kMarkerWidth : 0; }

int ListView::HorizontalOffset() const { return horizontalScrollBar()->value(); }

std::int64_t ListView::TopPixel() const { return verticalScrollBar()->value(); }

std::int64_t ListView::FirstShown() const { return TopPixel() / rowHeight_; }

int ListView::WholeRowsShown() const { return std::max(1, viewport()->height() / rowHeight_); }

CellEditor* ListView::Editor() const { return editor_ && editor_->isVisible() ? static_cast<CellEditor*>(editor_.data()) : nullptr; }

QRect ListView::CellRect(std::int64_t ordinal, int column) const {
  const auto place = columns_.PlaceOf(column);
  const std::int64_t top = ordinal * rowHeight_ - TopPixel();
  if (!place || top < 0 || top + rowHeight_ > viewport()->height()) return {};
  QRect rect(MarkerWidth() + columns_.ShownLeft(*place, HorizontalOffset()), static_cast<int>(top), columns_.Width(column), rowHeight_);
  if (!columns_.IsFixed(*place)) rect.setLeft(std::max(rect.left(), MarkerWidth() + columns_.FixedWidth()));
  return rect.isValid() ? rect & viewport()->rect() : QRect();
}

QRect ListView::MarkerRect(std::int64_t ordinal) const {
  const std::int64_t top = ordinal * rowHeight_ - TopPixel();
  if (top < 0 || top + rowHeight_ > viewport()->height()) return {};
  return {0, static_cast<int>(top), MarkerWidth(), rowHeight_};
}

QRect ListView::CheckRect(const QRect& cell) const {
  QRect rect(0, 0, kCheckSize, kCheckSize);
  rect.moveCenter(cell.center());
  return rect;
}

void ListView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  if (!grid_) return;
  try {
    if (!services_->PaintingOnly() && !listChanged_) rows_.Need(FirstShown(), WholeRowsShown() + kSpareRows);
    ListPainter(*this, painter).Paint();
  } catch (const std::exception&) {
    // A list that can't be read paints what it has; the failure shows where the user acts on it.
  }
  sincePaint_.restart();
}

void ListView::resizeEvent(QResizeEvent* event) {
  QAbstractScrollArea::resizeEvent(event);
  PlaceHeader();
  UpdateRange();
}

void ListView::PlaceHeader() {
  const int captionHeight = caption_->isVisibleTo(this) ? caption_->fontMetrics().height() + kCaptionGap : 0;
  const int headerHeight = header_->sizeHint().height();
  const QMargins wanted(0, captionHeight + headerHeight, 0, 0);
  if (viewportMargins() != wanted) setViewportMargins(wanted);
  if (aboveBar_->height() != wanted.top()) aboveBar_->setFixedHeight(wanted.top());
  const QRect area = viewport()->geometry();
  // A margin of the label's own would be lost when the page is put into a scroll area.
  caption_->setGeometry(area.left() + kCaptionMargin, area.top() - headerHeight - captionHeight, area.width() - 2 * kCaptionMargin,
                        captionHeight);
  header_->setGeometry(area.left(), area.top() - headerHeight, area.width(), headerHeight);
}

void ListView::scrollContentsBy(int dx, int) {
  if (dx != 0) header_->update();
  viewport()->update();
  if (editor_ && editor_->isVisible()) cellChanged_ = true, Wish();
  if (dx != 0 && !adjusting_) TellLeftColumn();
}

void ListView::changeEvent(QEvent* event) {
  QAbstractScrollArea::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    rowHeight_ = fontMetrics().height() + kRowGap;
    if (grid_) PlaceHeader(), UpdateRange();
  } else if (event->type() == QEvent::EnabledChange || event->type() == QEvent::PaletteChange) {
    header_->update();
    viewport()->update();
  }
}

bool ListView::event(QEvent* event) {
  if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest) Wish();
  if (event->type() == QEvent::ShortcutOverride && grid_ && (grid_->OpenCell() || grid_->DataChanged()) &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
    event->accept();
  return QAbstractScrollArea::event(event);
}

void ListView::focusInEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusInEvent(event);
  viewport()->update();
}

void ListView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);
  viewport()->update();
}

}  // namespace desktop
