#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace printing {

/// Keeps a window usable while modal screens and boxes are up: it stands by the topmost of them as its companion, and goes over to the
/// next one when that goes. Dialogs of another such window block it as they block everything.
class ModalEscape final : public QObject {
  Q_OBJECT

 public:
  explicit ModalEscape(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Anchor();

  QWidget& window_;
  QPointer<QWindow> handle_;
  QPointer<QWindow> anchor_;
};

}  // namespace printing
