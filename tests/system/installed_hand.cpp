// Loaded beside a host that knows nothing of windows: a hand that selects the first customer as soon as the screen lets it.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <memory>

namespace {

void Act() {
  if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
    box->accept();
    return;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* action = window->isVisible() ? window->findChild<QAction*>("tb_Select") : nullptr;
    // The window is up before its list is: a user waits until he sees the customer.
    const auto* account = action != nullptr ? window->findChild<QLabel*>("lblAcctNum") : nullptr;
    if (account == nullptr || account->text().isEmpty() || !action->isEnabled()) continue;
    action->trigger();
    return;
  }
}

/// Its parent is the application object, with which it goes.
void Begin() {
  auto timer = std::make_unique<QTimer>();
  timer->setParent(QCoreApplication::instance());
  QObject::connect(timer.get(), &QTimer::timeout, Act);
  timer.release()->start(30);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Begin)
