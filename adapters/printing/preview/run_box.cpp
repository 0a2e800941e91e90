#include "printing/preview/run_box.h"

#include <QCoreApplication>

namespace printing {

namespace {

constexpr int kPatienceMs = 400;
constexpr int kEventsEveryMs = 30;

}  // namespace

RunBox::RunBox(const QString& what, QWidget* over) : what_(what), box_(what, QObject::tr("Stop"), 0, 0, over) {
  box_.setObjectName(QStringLiteral("printProgress"));
  if (over) box_.setWindowTitle(over->windowTitle());
  box_.setWindowModality(Qt::ApplicationModal);
  box_.setAutoClose(false);
  box_.setAutoReset(false);
  whole_.start();
  served_.start();
}

bool RunBox::GoOn(std::int64_t done) {
  if (served_.elapsed() < kEventsEveryMs) return true;
  served_.restart();
  box_.setLabelText(QObject::tr("%1 %L2").arg(what_).arg(done));
  if (!box_.isVisible() && whole_.elapsed() > kPatienceMs) box_.show();
  // Without the box in front of them other windows would take input in the middle of the run.
  QCoreApplication::processEvents(box_.isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
  return !box_.wasCanceled();
}

}  // namespace printing
