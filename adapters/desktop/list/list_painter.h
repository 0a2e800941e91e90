#pragma once

#include <QPainter>

#include "desktop/list/list_view.h"

namespace desktop {

/// Paints the rows of a list from what the window holds. Raises nothing.
class ListPainter {
 public:
  ListPainter(ListView& list, QPainter& painter) : list_(list), painter_(painter) {}
  void Paint();

 private:
  void PaintRow(std::int64_t ordinal, int top);
  void PaintBackground(std::int64_t ordinal, const ShownRow* row, const QRect& rect);
  void PaintMarker(const ShownRow* row, bool current, int top);
  void PaintCells(std::int64_t ordinal, ShownRow& row, int top, int firstPlace, int endPlace);
  void PaintCheck(const QRect& cell, bool on);
  bool StandsOut(const ShownRow& row) const;
  void PaintEmphasis(std::int64_t ordinal, int top);
  void PaintLines();
  void PaintEmpty();
  QColor RowTextColour(const ShownRow& row, bool current) const;
  QString TextOf(std::int64_t ordinal, ShownRow& row, int column);

  ListView& list_;
  QPainter& painter_;
};

}  // namespace desktop
