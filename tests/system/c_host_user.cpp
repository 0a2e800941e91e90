#include "system/c_host_user.h"

#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <memory>

namespace {

class User {
 public:
  User(orcussch_handle* handle, user_task task) : handle_(handle), task_(task) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Act(); });
    timer_.start(30);
  }
  int Boxes() const { return boxes_; }
  int Refusals() const { return refusals_; }

 private:
  void Act() {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      ++boxes_;
      box->accept();
      return;
    }
    if (task_ == USER_READS_BOXES || done_) return;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (!window->isVisible()) continue;
      auto* action = window->findChild<QAction*>(task_ == USER_SELECTS ? "tb_Select" : "miExit");
      if (action == nullptr || !action->isEnabled()) continue;
      done_ = true;
      TryWhatIsRefused();
      action->trigger();
      return;
    }
  }

  void TryWhatIsRefused() {
    refusals_ += orcussch_set_number(handle_, "UserID", 99) == ORCUSSCH_BUSY ? 1 : 0;
    refusals_ += orcussch_show_user(handle_) == ORCUSSCH_BUSY ? 1 : 0;
    refusals_ += orcussch_release(handle_) == ORCUSSCH_BUSY ? 1 : 0;
  }

  orcussch_handle* handle_;
  user_task task_;
  QTimer timer_;
  int boxes_ = 0;
  int refusals_ = 0;
  bool done_ = false;
};

std::unique_ptr<User> user;
int refusals = 0;

}  // namespace

void user_begins(orcussch_handle* handle, user_task task) { user = std::make_unique<User>(handle, task); }

int user_ends() {
  const int boxes = user->Boxes();
  refusals = user->Refusals();
  user.reset();
  return boxes;
}

int user_refusals() { return refusals; }
