#pragma once

#include <QTabBar>
#include <functional>

namespace desktop {

/// A row of tabs that never changes by itself: a click is a wish, told to the handler.
class TabBar final : public QTabBar {
  Q_OBJECT

 public:
  explicit TabBar(QWidget* parent = nullptr);
  void OnClick(std::function<void(int tab)> handler) { click_ = std::move(handler); }

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<void(int)> click_;
};

}  // namespace desktop
