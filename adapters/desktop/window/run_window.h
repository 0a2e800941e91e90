#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <memory>

#include "platform/host/run_watcher.h"

namespace desktop {

class RunDialog;

/// How far a long run is, with a way to stop it. It comes up when the run has taken half a second; nothing else takes input then.
class RunWindow {
 public:
  RunWindow();
  ~RunWindow();

  /// False when the user has said stop.
  bool Show(const platform::ProgressState& state, QWidget* parent);
  /// nullptr while it is not to be seen.
  QWidget* Up() const;

 private:
  void Open(const platform::ProgressState& state, QWidget* parent);

  QElapsedTimer since_;
  qint64 shownAt_ = 0;
  QPointer<QWidget> below_;
  QPointer<RunDialog> dialog_;  ///< the window below owns it too, and may go first
  bool opened_ = false;
};

}  // namespace desktop
