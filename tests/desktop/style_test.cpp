#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleOption>
#include <cmath>

#include "desktop/look/outline_style.h"
#include "desktop/look/theme.h"
#include "desktop/support/desk.h"

namespace desktop_test {
namespace {

class Style : public Desk {
 protected:
  void SetUp() override { Start(); }
};

double Light(const QColor& colour) {
  const auto part = [](double value) { return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4); };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Light(one);
  const double b = Light(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

TEST_F(Style, TextsAndHintsCanBeReadInBothSchemes) {
  constexpr double kReadable = 4.5;
  for (const bool dark : {false, true}) {
    const QPalette colours = desktop::theme::Colours(dark);
    const QColor ground = colours.color(QPalette::Window);
    EXPECT_GE(Contrast(colours.color(QPalette::WindowText), ground), kReadable);
    EXPECT_GE(Contrast(colours.color(QPalette::Text), colours.color(QPalette::Base)), kReadable);
    EXPECT_GE(Contrast(colours.color(QPalette::Text), desktop::theme::SheetColour(colours)), kReadable);
    EXPECT_GE(Contrast(desktop::theme::HintColour(colours), ground), kReadable);
    EXPECT_GE(Contrast(colours.color(QPalette::ButtonText), colours.color(QPalette::Button)), kReadable);
    EXPECT_GE(Contrast(colours.color(QPalette::HighlightedText), colours.color(QPalette::Highlight)), kReadable);
    EXPECT_GE(Contrast(desktop::theme::ScrollColour(colours), ground), 3.0);
  }
}

/// The current row of a list that has not the focus, marked or not, on both grounds of its rows.
TEST_F(Style, TheRowsOfAListCanBeReadInEveryState) {
  constexpr double kReadable = 4.5;
  const auto over = [](const QColor& ground, const QColor& colour, double strength) {
    const auto mix = [strength](float below, float above) { return static_cast<float>(below * (1 - strength) + above * strength); };
    return QColor::fromRgbF(mix(ground.redF(), colour.redF()), mix(ground.greenF(), colour.greenF()), mix(ground.blueF(), colour.blueF()));
  };
  for (const bool dark : {false, true}) {
    const QPalette colours = desktop::theme::Colours(dark);
    const QColor accent = colours.color(QPalette::Highlight);
    for (const auto role : {QPalette::Base, QPalette::AlternateBase}) {
      const QColor current = over(colours.color(role), accent, 0.30);
      EXPECT_GE(Contrast(colours.color(QPalette::Text), current), kReadable) << dark;
      EXPECT_GE(Contrast(colours.color(QPalette::Text), over(over(colours.color(role), accent, 0.22), accent, 0.30)), kReadable) << dark;
    }
  }
}

TEST_F(Style, UncheckedMarksHaveAnOutlineThatShows) {
  const desktop::OutlineStyle style;
  for (const bool dark : {false, true}) {
    QStyleOptionButton option;
    option.palette = desktop::theme::Colours(dark);
    option.rect = QRect(0, 0, 16, 16);
    option.state = QStyle::State_Enabled | QStyle::State_Off;
    for (const auto element : {QStyle::PE_IndicatorCheckBox, QStyle::PE_IndicatorRadioButton}) {
      const QColor ground = option.palette.color(QPalette::Window);
      QImage picture(16, 16, QImage::Format_RGB32);
      picture.fill(ground);
      QPainter painter(&picture);
      style.drawPrimitive(element, &option, &painter, nullptr);
      painter.end();
      double most = 1;
      for (int x = 0; x < 4; ++x) most = std::max(most, Contrast(picture.pixelColor(x, 8), ground));
      EXPECT_GT(most, 1.6) << dark << " " << element;
    }
  }
}

TEST_F(Style, EditsListsAndButtonsAreOfOneHeight) {
  const desktop::OutlineStyle style;
  QStyleOptionFrame edit;
  QStyleOptionComboBox combo;
  QStyleOptionButton button;
  const QSize text(60, 14);
  const int height = style.sizeFromContents(QStyle::CT_LineEdit, &edit, text, nullptr).height();
  EXPECT_GE(height, 24);
  EXPECT_EQ(style.sizeFromContents(QStyle::CT_ComboBox, &combo, text, nullptr).height(), height);
  EXPECT_EQ(style.sizeFromContents(QStyle::CT_PushButton, &button, text, nullptr).height(), height);
}

TEST_F(Style, ABoxOfManyLinesShowsItsFocus) {
  const desktop::OutlineStyle style;
  QPlainTextEdit box;
  QStyleOptionFrame option;
  option.palette = desktop::theme::Colours(false);
  option.rect = QRect(0, 0, 40, 40);
  option.lineWidth = 1;
  const auto drawn = [&](QStyle::State state) {
    option.state = state;
    QImage picture(40, 40, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    style.drawPrimitive(QStyle::PE_Frame, &option, &painter, &box);
    return picture.pixelColor(0, 20);
  };
  const QColor without = drawn(QStyle::State_Enabled);
  const QColor with = drawn(QStyle::State_Enabled | QStyle::State_HasFocus);
  EXPECT_GT(Contrast(with, without), 2.0);
}

/// Where the keyboard is stands out from the window, whatever kind of box it is in.
TEST_F(Style, TheFocusShowsInBothSchemes) {
  const desktop::OutlineStyle style;
  const QPlainTextEdit memo;
  for (const bool dark : {false, true}) {
    const QPalette colours = desktop::theme::Colours(dark);
    const QColor ground = colours.color(QPalette::Window);
    const auto outline = [&](QStyleOption& option, const auto& draw) {
      option.palette = colours;
      option.rect = QRect(0, 0, 60, 26);
      option.state = QStyle::State_Enabled | QStyle::State_HasFocus;
      QImage picture(60, 26, QImage::Format_RGB32);
      picture.fill(ground);
      QPainter painter(&picture);
      draw(&painter);
      painter.end();
      return std::max(Contrast(picture.pixelColor(0, 13), ground), Contrast(picture.pixelColor(1, 13), ground));
    };
    QStyleOptionFrame frame;
    frame.lineWidth = 1;
    EXPECT_GE(outline(frame, [&](QPainter* painter) { style.drawPrimitive(QStyle::PE_PanelLineEdit, &frame, painter, nullptr); }), 3)
        << dark;
    EXPECT_GE(outline(frame, [&](QPainter* painter) { style.drawPrimitive(QStyle::PE_Frame, &frame, painter, &memo); }), 3) << dark;
    QStyleOptionComboBox combo;
    combo.subControls = QStyle::SC_All;
    combo.editable = true;
    combo.frame = true;
    EXPECT_GE(outline(combo, [&](QPainter* painter) { style.drawComplexControl(QStyle::CC_ComboBox, &combo, painter, nullptr); }), 3)
        << dark;
  }
}

/// On screens scaled by a half a line falls between the dots, and still shows on all sides.
TEST_F(Style, ListsAndLargeBoxesHaveAFrameThatShows) {
  const desktop::OutlineStyle style;
  const QAbstractScrollArea rows;
  const QPlainTextEdit memo;
  for (const QWidget* list : {static_cast<const QWidget*>(&rows), static_cast<const QWidget*>(&memo)})
    for (const bool dark : {false, true}) {
      for (const qreal scale : {1.0, 1.5, 2.0}) {
        QStyleOptionFrame option;
        option.palette = desktop::theme::Colours(dark);
        option.rect = QRect(0, 0, 40, 40);
        option.lineWidth = 1;
        option.state = QStyle::State_Enabled | QStyle::State_Sunken;
        const QColor ground = option.palette.color(QPalette::Window);
        const int side = qRound(44 * scale);
        QImage picture(side, side, QImage::Format_RGB32);
        picture.setDevicePixelRatio(scale);
        picture.fill(ground);
        QPainter painter(&picture);
        painter.translate(1, 1);
        painter.setClipRect(option.rect);
        style.drawPrimitive(QStyle::PE_Frame, &option, &painter, list);
        painter.end();
        const auto most = [&](bool across, int from) {
          double found = 1;
          for (int at = from; at < from + side / 4; ++at)
            found = std::max(found, Contrast(across ? picture.pixelColor(at, side / 2) : picture.pixelColor(side / 2, at), ground));
          return found;
        };
        for (const bool across : {true, false})
          for (const int from : {0, side - side / 4})
            EXPECT_GE(most(across, from), 1.3) << dark << " " << scale << " " << across << " " << from;
      }
    }
}

TEST_F(Style, TheArrowOfAFullToolbarShows) {
  const desktop::OutlineStyle style;
  for (const bool dark : {false, true}) {
    desktop::theme::Install(dark);
    const QColor ground = QGuiApplication::palette().color(QPalette::Window);
    const QImage picture = style.standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton, nullptr, nullptr).pixmap(16, 16).toImage();
    ASSERT_FALSE(picture.isNull());
    double most = 1;
    for (int x = 0; x < 16; ++x)
      for (int y = 0; y < 16; ++y)
        if (picture.pixelColor(x, y).alpha() > 200) most = std::max(most, Contrast(picture.pixelColor(x, y), ground));
    EXPECT_GE(most, 4.5) << dark;
  }
  desktop::theme::Install(false);
}

TEST_F(Style, BoxesBearOurDrawingsAndPlainButtons) {
  const desktop::OutlineStyle style;
  EXPECT_EQ(style.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons, nullptr, nullptr, nullptr), 0);
  std::vector<QImage> seen;
  for (const auto which :
       {QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxQuestion, QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical}) {
    const QImage picture = style.standardIcon(which, nullptr, nullptr).pixmap(48, 48).toImage();
    ASSERT_FALSE(picture.isNull());
    EXPECT_GT(picture.pixelColor(24, 40).alpha(), 200);
    for (const QImage& other : seen) EXPECT_NE(picture, other);
    seen.push_back(picture);
  }
}

}  // namespace
}  // namespace desktop_test
