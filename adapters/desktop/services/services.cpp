#include "desktop/services/services.h"

#include <utility>

namespace desktop {

namespace {
constexpr int kBusyPauseMs = 30;
}

Services::Services(const std::string& settingsFolder, const std::string& user) : settings_(settingsFolder, user) {
  idle_.setSingleShot(true);
  connect(&idle_, &QTimer::timeout, this, [this] { Idle(); });
}

Services::~Services() = default;

Services::Painting::~Painting() {
  --services_.painting_;
  if (services_.painting_ == 0 && !services_.commands_.empty()) services_.Post();
}

void Services::Later(QObject* owner, std::function<void()> command) {
  commands_.push_back({owner, std::move(command)});
  Post();
}

void Services::Post() {
  if (posted_) return;
  posted_ = true;
  QMetaObject::invokeMethod(
      this,
      [this] {
        posted_ = false;
        RunCommands();
      },
      Qt::QueuedConnection);
}

void Services::RunCommands() {
  while (!PaintingOnly() && !commands_.empty()) {
    const Command command = std::exchange(commands_.front(), {});
    commands_.pop_front();
    if (command.owner) command.run();
  }
}

void Services::OnIdle(std::function<bool()> work, std::function<bool()> busy) {
  idleWork_ = std::move(work);
  busy_ = std::move(busy);
}

void Services::WakeIdle() {
  if (!idle_.isActive()) idle_.start(0);
}

void Services::Idle() {
  if (!idleWork_) return;
  if (PaintingOnly() || busy_()) {
    idle_.start(kBusyPauseMs);
  } else if (idleWork_()) {
    idle_.start(0);
  }
}

}  // namespace desktop
