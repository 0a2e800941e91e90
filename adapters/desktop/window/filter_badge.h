#pragma once

#include <QLabel>
#include <QObject>

namespace desktop {

/// A label that says what a list is narrowed to. It gives way to whatever stands beside it: what does not fit is left out with an
/// ellipsis, and the tool tip holds the whole text.
class FilterBadge final : public QObject {
  Q_OBJECT

 public:
  explicit FilterBadge(QLabel& label);

  /// "" takes the label away.
  void Show(const QString& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int Room() const;
  void Fit();

  QLabel& label_;
  QString text_;
  int around_ = 0;  ///< what the label takes beside its text
};

}  // namespace desktop
