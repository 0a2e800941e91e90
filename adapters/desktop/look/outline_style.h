#pragma once

#include <QProxyStyle>

namespace desktop {

/// The base style with outlines that can be seen on dark colours too (edits, check marks, options), a focus frame around
/// boxes of many lines, read-only edits that look it, edits, lists and buttons of one comfortable height, and message boxes
/// with our own drawings.
class OutlineStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  OutlineStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const override;
  QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const override;
};

}  // namespace desktop
