#pragma once

#include <QAbstractScrollArea>
#include <deque>
#include <optional>
#include <utility>

#include "printing/output/page_painter.h"
#include "printing/output/page_spool.h"
#include "printing/preview/page_text.h"

namespace printing {

/// The pages below each other on a desk, drawn from their lists of texts and lines at any size.
class PageView final : public QAbstractScrollArea {
  Q_OBJECT

 public:
  enum class Fit { None, Page, Width };

  PageView(const PageSpool& pages, const FontSet& fonts, QWidget* parent);

  /// There are more pages; `count` is told on them when it is final, 0 until then.
  void PagesChanged(std::int64_t count);

  std::int64_t CurrentPage() const { return current_; }  ///< from 0
  void GoTo(std::int64_t page);

  double Zoom() const { return zoom_; }
  void SetZoom(double zoom);
  void SetFit(Fit fit);
  Fit Fitted() const { return fit_; }

  /// Marks all places of `wanted`, and `present` more than the others.
  void ShowHits(const QString& wanted, const std::optional<TextHit>& present);

  void SelectPage();
  void ClearSelection();
  bool HasSelection() const { return selected_.has_value(); }
  QString SelectedText() const;

  static constexpr double kLeastZoom = 0.1;
  static constexpr double kMostZoom = 6;

 signals:
  void CurrentPageChanged();
  void ZoomChanged();
  void SelectionChanged();
  /// A page has been painted for the first time.
  void FirstPainted();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  struct Selection {
    std::int64_t page = 0;
    QRectF area;  ///< inches
  };
  double Unit() const;  ///< pixels in an inch
  double PageStep() const;
  double DeskHeight() const;
  QRectF PaperOf(std::int64_t page) const;  ///< in the viewport
  std::int64_t PageAt(double y) const;
  std::optional<QPointF> OnPage(std::int64_t page, QPointF point) const;
  const Page& PageFor(std::int64_t page) const;
  void ShowSizes();
  void Refit();
  void ZoomAround(double zoom, QPointF fixed);
  void NoteCurrentPage();
  double Top() const;
  void SetTop(double pixels);
  void PaintMarks(QPainter& painter, std::int64_t page, const QRectF& paper) const;

  const PageSpool& pages_;
  const FontSet& fonts_;
  PagePainter painting_;
  double width_ = 8.5, height_ = 11;  ///< of the pages, in inches
  std::int64_t count_ = 0;
  double zoom_ = 1;
  Fit fit_ = Fit::None;
  std::int64_t current_ = 0;
  QString wanted_;
  std::optional<TextHit> present_;
  std::optional<Selection> selected_;
  std::optional<std::pair<std::int64_t, QPointF>> dragged_;
  std::optional<QPoint> panned_;
  mutable std::deque<std::pair<std::int64_t, Page>> read_;  ///< the pages that were shown last
  double pixelsPerStep_ = 1;                                ///< of the scroll bar, which counts no further than an int does
  bool painted_ = false;
};

}  // namespace printing
