#include "desktop/look/theme.h"

#include <QApplication>
#include <memory>

#include "desktop/look/outline_style.h"

namespace desktop::theme {

namespace {

struct Tones {
  const char* window;
  const char* base;
  const char* alternate;
  const char* text;
  const char* faint;
  const char* button;
  const char* accent;
  const char* accentText;
  const char* line;
  const char* tip;
  const char* link;
};

constexpr Tones kLight{"#f3f4f6", "#ffffff", "#f8f9fb", "#1c2127", "#8a929c", "#fcfcfd",
                       "#2563b0", "#ffffff", "#cfd4da", "#fffbe6", "#1d5fb4"};
constexpr Tones kDark{"#1f2226", "#2a2e34", "#2e3238", "#e3e6ea", "#8b929c", "#363b43",
                      "#3672b8", "#ffffff", "#474d56", "#3a3d42", "#7ab0f0"};

QColor Mixed(const QColor& one, const QColor& other, float share) {
  const auto mix = [share](float a, float b) { return a * share + b * (1 - share); };
  return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()), mix(one.blueF(), other.blueF()));
}

}  // namespace

bool WantsDark(const std::string& scheme) {
  if (scheme == "dark") return true;
  if (scheme == "light") return false;
  const QByteArray wanted = qgetenv("ORCUSSCH_COLOR_SCHEME").toLower();
  if (wanted == "dark") return true;
  if (wanted == "light") return false;
  return IsDark(QGuiApplication::palette());
}

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

QPalette Colours(bool dark) {
  const Tones& tone = dark ? kDark : kLight;
  QPalette palette;
  const auto set = [&](QPalette::ColorRole role, const char* colour) { palette.setColor(role, QColor(colour)); };
  set(QPalette::Window, tone.window);
  set(QPalette::WindowText, tone.text);
  set(QPalette::Base, tone.base);
  set(QPalette::AlternateBase, tone.alternate);
  set(QPalette::Text, tone.text);
  set(QPalette::PlaceholderText, tone.faint);
  set(QPalette::Button, tone.button);
  set(QPalette::ButtonText, tone.text);
  set(QPalette::BrightText, "#d9363e");
  set(QPalette::Highlight, tone.accent);
  set(QPalette::HighlightedText, tone.accentText);
  set(QPalette::Link, tone.link);
  set(QPalette::LinkVisited, tone.link);
  set(QPalette::ToolTipBase, tone.tip);
  set(QPalette::ToolTipText, tone.text);
  set(QPalette::Mid, tone.line);
  const QColor window(tone.window);
  palette.setColor(QPalette::Light, dark ? window.lighter(140) : QColor("#ffffff"));
  palette.setColor(QPalette::Midlight, dark ? window.lighter(120) : window.lighter(103));
  palette.setColor(QPalette::Dark, window.darker(dark ? 160 : 140));
  palette.setColor(QPalette::Shadow, window.darker(dark ? 220 : 200));
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor(tone.faint));
  palette.setColor(QPalette::Disabled, QPalette::Base, window);
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(tone.faint));
  return palette;
}

void Install(bool dark) {
  QApplication::setStyle(std::make_unique<OutlineStyle>().release());
  QApplication::setPalette(Colours(dark));
}

QColor LineColour(const QPalette& palette) {
  QColor line = palette.color(QPalette::WindowText);
  line.setAlphaF(IsDark(palette) ? 0.18F : 0.15F);
  return line;
}

QColor HintColour(const QPalette& palette) {
  constexpr float kTextShare = 0.68F;
  return Mixed(palette.color(QPalette::Active, QPalette::WindowText), palette.color(QPalette::Active, QPalette::Window), kTextShare);
}

QColor ScrollColour(const QPalette& palette) {
  constexpr float kTextShare = 0.5F;
  return Mixed(palette.color(QPalette::Active, QPalette::WindowText), palette.color(QPalette::Active, QPalette::Window), kTextShare);
}

QColor SheetColour(const QPalette& palette) {
  constexpr float kBaseShare = 0.6F;
  return Mixed(palette.color(QPalette::Active, QPalette::Base), palette.color(QPalette::Active, QPalette::Window), kBaseShare);
}

QColor OnColour(const QPalette& palette) {
  const float accentShare = IsDark(palette) ? 0.2F : 0.1F;
  return Mixed(palette.color(QPalette::Active, QPalette::Highlight), palette.color(QPalette::Active, QPalette::Window), accentShare);
}

QString WindowRules(const QPalette& palette) {
  const QString line = palette.color(QPalette::Mid).name();
  const QString window = palette.color(QPalette::Window).name();
  const QString accent = palette.color(QPalette::Highlight).name();
  QString rules = QStringLiteral(
      "QToolBar { border: 0; border-bottom: 1px solid %1; padding: 3px 6px; spacing: 1px; }"
      "QToolBar::separator { background: %1; width: 1px; margin: 5px 5px; }"
      "QToolButton { padding: 4px; border: 1px solid transparent; border-radius: 4px; }"
      "QToolButton#qt_toolbar_ext_button { padding: 0; }"
      "QToolButton[role=\"arrow\"] { border-color: %1; background: %4; }"
      "QToolButton:hover:enabled { background: %4; border-color: %1; }"
      "QToolButton:pressed:enabled { background: %1; }"
      "QMenuBar { background: %2; padding: 1px 4px; } QMenuBar::item { padding: 4px 9px; border-radius: 4px; }"
      "QMenuBar::item:selected { background: %3; color: %5; }"
      "QStatusBar { border-top: 1px solid %1; } QStatusBar::item { border: 0; }"
      "QGroupBox { border: 1px solid %1; border-radius: 5px; margin-top: 9px; padding-top: 5px; }"
      "QGroupBox::title { subcontrol-origin: margin; left: 8px; padding: 0 4px; }"
      "QGroupBox[on=\"true\"] { border-color: %3; background: %9; font-weight: 600; }"
      "QGroupBox[on=\"true\"]::title { color: %10; }"
      "QPushButton[role=\"main\"] { font-weight: 600; }"
      "QScrollArea { border: 0; background: transparent; } QScrollArea > QWidget > QWidget { background: transparent; }"
      "QLabel[required=\"true\"] { font-weight: 600; }"
      "QLabel[role=\"value\"] { font-weight: 600; }"
      "QLabel[role=\"badge\"] { background: %3; color: %5; border-radius: 7px; padding: 0 10px; font-weight: 600; }"
      "QLabel[role=\"filter\"] { border: 1px solid %3; color: %10; border-radius: 7px; padding: 0 9px; font-weight: 600; }"
      "QLabel[role=\"caption\"], QLabel[role=\"hint\"] { color: %6; }"
      "QFrame[role=\"sheet\"] { background: %7; border: 1px solid %1; border-radius: 6px; }"
      "QFrame#SSPanel1 { border: 1px solid %1; border-radius: 5px; }"
      "QScrollBar { background: %2; border: 0; } QScrollBar:vertical { width: 14px; } QScrollBar:horizontal { height: 14px; }"
      "QScrollBar::handle { background: %8; border-radius: 4px; margin: 3px; }"
      "QScrollBar::handle:vertical { min-height: 32px; } QScrollBar::handle:horizontal { min-width: 32px; }"
      "QScrollBar::handle:hover, QScrollBar::handle:pressed { background: %3; } QScrollBar::handle:disabled { background: %1; }"
      "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
      "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }"
      "QAbstractScrollArea::corner { background: %2; border: 0; }");
  return rules
      .arg(line, window, accent, palette.color(QPalette::Base).name(), palette.color(QPalette::HighlightedText).name(),
           HintColour(palette).name(), SheetColour(palette).name(), ScrollColour(palette).name())
      .arg(OnColour(palette).name(), palette.color(QPalette::Active, QPalette::Link).name());
}

}  // namespace desktop::theme
