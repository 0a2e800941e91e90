#include "desktop/look/outline_style.h"

#include <QAbstractScrollArea>
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

/// Where the keyboard is.
void DrawFocus(const QStyleOption& option, QPainter& painter) {
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
  const bool focused = option->state.testFlag(State_HasFocus);
  // The base style's frame is as dark as a dark window, its lines get lost on screens that are scaled by a fraction, and the focus
  // does not show. A list shows the focus in its rows.
  if (element == PE_Frame && qobject_cast<const QAbstractScrollArea*>(widget)) {
    if (focused && qobject_cast<const QPlainTextEdit*>(widget)) {
      DrawFocus(*option, *painter);
    } else {
      DrawOutline(*option, *painter, false);
    }
    return;
  }
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  if (element == PE_PanelLineEdit && frame && frame->state.testFlag(State_ReadOnly)) {
    QStyleOptionFrame quiet(*frame);
    quiet.palette.setBrush(QPalette::Base, Qt::NoBrush);
    QProxyStyle::drawPrimitive(element, &quiet, painter, widget);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  const bool round = element == PE_IndicatorRadioButton;
  const bool edit = element == PE_PanelLineEdit;
  const bool square = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck || edit;
  if ((!round && !square) || !theme::IsDark(option->palette)) return;
  // An edit without a frame of its own is part of another control, which draws it.
  if (edit && frame && frame->lineWidth == 0) return;
  if (edit && focused) {
    DrawFocus(*option, *painter);
  } else {
    DrawOutline(*option, *painter, round);
  }
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control != CC_ComboBox || !theme::IsDark(option->palette)) return;
  if (option->state.testFlag(State_HasFocus)) {
    DrawFocus(*option, *painter);
  } else {
    DrawOutline(*option, *painter, false);
  }
}

int OutlineStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, data);
}

QIcon OutlineStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const {
  switch (which) {
    case SP_ToolBarHorizontalExtensionButton:
      return DrawnIcon("more");
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
