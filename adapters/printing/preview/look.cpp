#include "printing/preview/look.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

static void LoadResources() { Q_INIT_RESOURCE(preview); }

namespace printing::look {

namespace {

bool IsDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < 128; }

class IconEngine final : public QIconEngine {
 public:
  explicit IconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  QIconEngine* clone() const override { return std::make_unique<IconEngine>(drawing_).release(); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    QByteArray coloured = drawing_;
    coloured.replace("currentColor", QGuiApplication::palette().color(group, QPalette::ButtonText).name().toLatin1());
    QSvgRenderer renderer(coloured);
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(0.55);
    renderer.render(painter, rect);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override { return scaledPixmap(size, mode, state, 1); }

  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state, qreal) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

 private:
  QByteArray drawing_;
};

}  // namespace

QIcon Icon(const QString& name) {
  LoadResources();
  QFile file(QStringLiteral(":/printing/icons/%1.svg").arg(name));
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(std::make_unique<IconEngine>(file.readAll()).release());
}

QString WindowRules(const QPalette& palette) {
  return QStringLiteral(
             "QToolBar { border: 0; border-bottom: 1px solid %1; padding: 3px 6px; spacing: 1px; }"
             "QToolBar::separator { background: %1; width: 1px; margin: 5px 5px; }"
             "QToolButton { padding: 4px; border: 1px solid transparent; border-radius: 4px; }"
             "QToolButton:hover:enabled { background: %4; border-color: %1; }"
             "QToolButton:pressed:enabled, QToolButton:checked { background: %1; }"
             "QToolButton::menu-indicator { width: 0; image: none; }"
             "QMenuBar { background: %2; padding: 1px 4px; } QMenuBar::item { padding: 4px 9px; border-radius: 4px; }"
             "QMenuBar::item:selected { background: %3; color: %5; }"
             "QStatusBar { border-top: 1px solid %1; } QStatusBar::item { border: 0; }"
             "QListView#previewThumbnails { background: %6; border: 0; border-right: 1px solid %1; }"
             "QScrollBar { background: %2; border: 0; } QScrollBar:vertical { width: 14px; } QScrollBar:horizontal { height: 14px; }"
             "QScrollBar::handle { background: %7; border-radius: 4px; margin: 3px; }"
             "QScrollBar::handle:vertical { min-height: 32px; } QScrollBar::handle:horizontal { min-width: 32px; }"
             "QScrollBar::handle:hover, QScrollBar::handle:pressed { background: %3; }"
             "QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
             "QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }"
             "QAbstractScrollArea::corner { background: %2; border: 0; }")
      .arg(palette.color(QPalette::Mid).name(), palette.color(QPalette::Window).name(), palette.color(QPalette::Highlight).name(),
           palette.color(QPalette::Base).name(), palette.color(QPalette::HighlightedText).name(), Desk(palette).name(),
           IsDark(palette) ? QStringLiteral("#80868f") : QStringLiteral("#898d93"));
}

QColor Desk(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Window);
  return IsDark(palette) ? window.darker(135) : window.darker(112);
}

QColor PaperEdge(const QPalette& palette) { return IsDark(palette) ? QColor(0, 0, 0) : QColor(0, 0, 0, 70); }

QColor Hit() { return {255, 226, 110}; }
QColor PresentHit() { return {255, 165, 60}; }

QColor Chosen(const QPalette& palette) {
  const QColor accent = palette.color(QPalette::Active, QPalette::Highlight);
  return QColor::fromHsv(accent.hsvHue() < 0 ? 210 : accent.hsvHue(), 75, 255);
}

}  // namespace printing::look
