#include "system/c_host_user.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <memory>
#include <stdexcept>

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
      auto* action = window->findChild<QAction*>(task_ == USER_EXITS ? "miExit" : "tb_Select");
      if (action == nullptr || !action->isEnabled()) continue;
      // The window is up before its list is: a user waits until he sees the customer.
      const auto* account = window->findChild<QLabel*>("lblAcctNum");
      if (account == nullptr || account->text().isEmpty()) continue;
      done_ = true;
      if (task_ == USER_THROWS) throw std::runtime_error("raised by the host's timer");
      TryWhatIsRefused();
      action->trigger();
      return;
    }
  }

  void TryWhatIsRefused() {
    orcussch_options options{};
    orcussch_handle* other = handle_;
    int32_t number = 0;
    char text[10];
    refusals_ += orcussch_create(&options, &other) == ORCUSSCH_BUSY && other == nullptr ? 1 : 0;
    refusals_ += orcussch_set_number(handle_, "UserID", 99) == ORCUSSCH_BUSY ? 1 : 0;
    refusals_ += orcussch_get_number(handle_, "UserID", &number) == ORCUSSCH_BUSY ? 1 : 0;
    refusals_ += orcussch_get_text(handle_, "UserID", text, sizeof text, nullptr) == ORCUSSCH_BUSY ? 1 : 0;
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

struct HostApplication {
  int count = 1;
  char name[5] = "host";
  char* words[2] = {name, nullptr};
  QApplication application{count, words};
};
std::unique_ptr<HostApplication> hostApplication;

}  // namespace

void user_begins(orcussch_handle* handle, user_task task) { user = std::make_unique<User>(handle, task); }

int user_ends() {
  const int boxes = user->Boxes();
  refusals = user->Refusals();
  user.reset();
  return boxes;
}

int user_refusals() { return refusals; }

void host_application_begins() { hostApplication = std::make_unique<HostApplication>(); }

void host_application_ends() { hostApplication.reset(); }
