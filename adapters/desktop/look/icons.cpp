#include "desktop/look/icons.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <memory>

namespace desktop {

namespace {

class DrawnIconEngine final : public QIconEngine {
 public:
  explicit DrawnIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  QIconEngine* clone() const override { return std::make_unique<DrawnIconEngine>(drawing_).release(); }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const auto role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
    QByteArray coloured = drawing_;
    coloured.replace("currentColor", QGuiApplication::palette().color(group, role).name().toLatin1());
    QSvgRenderer renderer(coloured);
    painter->save();
    if (mode == QIcon::Disabled) painter->setOpacity(0.55);
    renderer.render(painter, rect);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override { return scaledPixmap(size, mode, state, 1.0); }

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

QIcon DrawnIcon(const QString& name) {
  QFile file(":/desktop/icons/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QIcon(std::make_unique<DrawnIconEngine>(file.readAll()).release());
}

}  // namespace desktop
