#pragma once

#include <QLineEdit>
#include <functional>

namespace desktop {

/// The edit that lies over an open cell. It tells what the user does; the list acts.
class CellEditor final : public QLineEdit {
  Q_OBJECT

 public:
  explicit CellEditor(QWidget* parent);
  std::function<void(const QString&)> onText;
  /// Whether a key is the list's; the others are the edit's own.
  std::function<bool(const QKeyEvent&)> onKey;

  /// Offers these texts while typing.
  void Offer(const QStringList& texts);
  /// Goes away with what it offers, which would take the keys that come next.
  void Close();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool ListTakes(const QKeyEvent& key) const;
};

}  // namespace desktop
