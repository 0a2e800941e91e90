#include "desktop/look/outline_style.h"

#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <algorithm>

#include "desktop/look/icons.h"
#include "desktop/look/theme.h"

namespace desktop {

namespace {
constexpr float kOutlineStrength = 0.34F;
constexpr float kDisabledStrength = 0.16F;
constexpr qreal kCorner = 2.0;
constexpr int kEditHeight = 26;
constexpr int kButtonMargin = 16;

void DrawOutline(const QStyleOption& option, QPainter& painter, bool round) {
  QColor outline = option.palette.color(QPalette::Active, QPalette::WindowText);
  outline.setAlphaF(option.state.testFlag(QStyle::State_Enabled) ? kOutlineStrength : kDisabledStrength);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(outline);
  painter.setBrush(Qt::NoBrush);
  const QRectF line = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  if (round) {
    painter.drawEllipse(line);
  } else {
    painter.drawRoundedRect(line, kCorner, kCorner);
  }
  painter.restore();
}

/// Around a box of many lines, whose frame the base style draws alike with and without the focus.
void DrawBoxFrame(const QStyleOption& option, QPainter& painter) {
  if (!option.state.testFlag(QStyle::State_HasFocus)) {
    if (theme::IsDark(option.palette)) DrawOutline(option, painter, false);
    return;
  }
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(option.palette.color(QPalette::Active, QPalette::Highlight));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
  painter.restore();
}

}  // namespace

OutlineStyle::OutlineStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const {
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  if (element == PE_PanelLineEdit && frame && frame->state.testFlag(State_ReadOnly)) {
    QStyleOptionFrame quiet(*frame);
    quiet.palette.setBrush(QPalette::Base, Qt::NoBrush);
    QProxyStyle::drawPrimitive(element, &quiet, painter, widget);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  if (element == PE_Frame && qobject_cast<const QPlainTextEdit*>(widget)) {
    DrawBoxFrame(*option, *painter);
    return;
  }
  const bool round = element == PE_IndicatorRadioButton;
  const bool square = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck || element == PE_PanelLineEdit;
  const bool focused = element == PE_PanelLineEdit && option->state.testFlag(State_HasFocus);
  if ((!round && !square) || focused || !theme::IsDark(option->palette)) return;
  // An edit without a frame of its own is part of another control, which draws it.
  if (element == PE_PanelLineEdit && frame && frame->lineWidth == 0) return;
  DrawOutline(*option, *painter, round);
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox && !option->state.testFlag(State_HasFocus) && theme::IsDark(option->palette))
    DrawOutline(*option, *painter, false);
}

int OutlineStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon OutlineStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
  switch (which) {
    case SP_MessageBoxInformation:
      return DrawnIcon("box_Information");
    case SP_MessageBoxQuestion:
      return DrawnIcon("box_Question");
    case SP_MessageBoxWarning:
      return DrawnIcon("box_Warning");
    case SP_MessageBoxCritical:
      return DrawnIcon("box_Stop");
    default:
      return QProxyStyle::standardIcon(which, option, widget);
  }
}

QSize OutlineStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const {
  QSize wanted = QProxyStyle::sizeFromContents(type, option, size, widget);
  const bool edit = type == CT_LineEdit || type == CT_ComboBox;
  if (edit || type == CT_PushButton) wanted.setHeight(std::max(wanted.height(), kEditHeight));
  if (type == CT_PushButton) wanted.rwidth() += kButtonMargin;
  return wanted;
}

}  // namespace desktop
