#pragma once

#include <QPainter>
#include <cstdint>
#include <vector>

#include "printing/layout/page.h"
#include "printing/output/font_set.h"

namespace printing {

/// How a printer that feeds a little askew is met: everything is moved, and made larger or smaller from the paper's left upper corner.
struct PaintSettings {
  double shiftX = 0, shiftY = 0;  ///< inches
  double scale = 1;
};

/// The text of an item with the number of pages in it; "…" while that isn't known (0).
std::string WithPageCount(const TextItem& item, std::int64_t pageCount);

/// Draws pages by the toolkit: on the screen, on paper, into a PDF.
class PagePainter {
 public:
  explicit PagePainter(const FontSet& fonts, PaintSettings settings = {}) : fonts_(fonts), settings_(settings) {}

  /// `unit`: the painter's units in an inch.
  void Paint(QPainter& painter, const Page& page, double unit, std::int64_t pageCount);

 private:
  void Paint(QPainter& painter, const BoxItem& box) const;
  void Paint(QPainter& painter, const LineItem& line) const;
  void Paint(QPainter& painter, const TextItem& item);
  void PaintByToolkit(QPainter& painter, const TextItem& item, const std::string& text, QPointF baseline, double pixels,
                      double width) const;
  double X(double inches) const { return (inches * settings_.scale + settings_.shiftX) * unit_; }
  double Y(double inches) const { return (inches * settings_.scale + settings_.shiftY) * unit_; }
  double Length(double inches) const { return inches * settings_.scale * unit_; }

  const FontSet& fonts_;
  PaintSettings settings_;
  double unit_ = 1;
  std::int64_t pageCount_ = 0;
  std::vector<quint32> glyphs_;
  std::vector<double> places_;
  std::vector<QPointF> positions_;
};

}  // namespace printing
