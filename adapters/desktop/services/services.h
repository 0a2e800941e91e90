#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>

#include "desktop/services/settings.h"

namespace desktop {

/// What all windows of one front end share: the kept settings, the queue of commands, the idle work, and whether only
/// painting is served at the moment.
class Services final : public QObject {
  Q_OBJECT

 public:
  Services(const std::string& settingsFolder, const std::string& user);
  ~Services() override;

  Settings& Kept() { return settings_; }

  /// True inside a call of the data engine: whoever paints uses what it has and asks the engine nothing.
  bool PaintingOnly() const noexcept { return painting_ > 0; }
  /// Painting alone until the object goes.
  class Painting {
   public:
    explicit Painting(Services& services) : services_(services) { ++services_.painting_; }
    ~Painting();
    Painting(const Painting&) = delete;
    Painting& operator=(const Painting&) = delete;

   private:
    Services& services_;
  };

  /// Runs `command` from the event loop, in order, never while only painting is served, and not at all when `owner` is gone.
  void Later(QObject* owner, std::function<void()> command);
  /// Runs what waits.
  void RunCommands();
  bool CommandsWait() const noexcept { return !commands_.empty(); }

  /// Work for idle time: returns false when nothing is left. Runs while no handler is on the stack.
  void OnIdle(std::function<bool()> work, std::function<bool()> busy);
  void WakeIdle();

 private:
  struct Command {
    QPointer<QObject> owner;
    std::function<void()> run;
  };
  void Post();
  void Idle();

  Settings settings_;
  std::deque<Command> commands_;
  QTimer idle_;
  std::function<bool()> idleWork_;
  std::function<bool()> busy_;
  int painting_ = 0;
  bool posted_ = false;
};

}  // namespace desktop
