#pragma once

#include <QProxyStyle>

namespace desktop {

/// The base style with outlines that can be seen on dark colours too: around edits, check marks and options.
class OutlineStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  OutlineStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

}  // namespace desktop
