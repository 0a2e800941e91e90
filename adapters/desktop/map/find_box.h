#pragma once

#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <functional>

namespace desktop {

/// A small box in the corner of the map into which an address is typed. Enter looks for it, Escape closes the box.
class FindBox final : public QFrame {
  Q_OBJECT

 public:
  explicit FindBox(QWidget* map);

  void Open();
  void Close();
  /// What came of it, under the line; "" for nothing.
  void Say(const QString& text);
  QString Answer() const { return answer_->text(); }

  std::function<void(const QString& address)> OnFind;
  std::function<void()> OnClosed;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* line_;
  QLabel* answer_;
};

}  // namespace desktop
