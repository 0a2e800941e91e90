#pragma once

#include <QToolButton>
#include <QWidget>
#include <functional>

namespace desktop {

/// A pair of arrows, one above the other.
class SpinPair final : public QWidget {
  Q_OBJECT

 public:
  explicit SpinPair(QWidget* parent = nullptr);
  /// Called with true for the upper arrow.
  void OnSpin(std::function<void(bool up)> handler) { spin_ = std::move(handler); }
  QToolButton* Arrow(bool up) const { return up ? up_ : down_; }

 private:
  QToolButton* up_;
  QToolButton* down_;
  std::function<void(bool)> spin_;
};

}  // namespace desktop
