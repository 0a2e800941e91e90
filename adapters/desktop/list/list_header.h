#pragma once

#include <QWidget>
#include <optional>

namespace desktop {

class ListView;

/// The headings of a list: a click orders, a drag moves a column within its group, a drag of an edge resizes, a double click
/// on an edge fits the column to what is in view.
class ListHeader final : public QWidget {
  Q_OBJECT

 public:
  explicit ListHeader(ListView& list);
  QSize sizeHint() const override;
  /// Where a column's heading is shown; empty when it is scrolled away.
  QRect HeadingRect(int column) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;

 private:
  enum class Drag { None, Pressed, Moving, Resizing };
  void PaintPlace(QPainter& painter, int place);
  std::optional<int> ColumnUnder(int x) const;
  /// The column whose right edge is at `x`.
  std::optional<int> EdgeAt(int x) const;
  int PlaceForDrop(int x) const;

  ListView& list_;
  Drag drag_ = Drag::None;
  int column_ = -1;
  int pressX_ = 0;
  int pressWidth_ = 0;
  int dropX_ = -1;
};

}  // namespace desktop
