#pragma once

#include <QLineEdit>
#include <functional>

namespace desktop {

/// The edit that lies over an open cell. It tells what the user does; the list acts.
class CellEditor final : public QLineEdit {
  Q_OBJECT

 public:
  enum class Leave { Take, TakeAndNext, Drop };

  explicit CellEditor(QWidget* parent);
  std::function<void(const QString&)> onText;
  std::function<void(Leave)> onLeave;

  /// Offers these texts while typing.
  void Offer(const QStringList& texts);
  /// Goes away with what it offers, which would take the keys that come next.
  void Close();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace desktop
