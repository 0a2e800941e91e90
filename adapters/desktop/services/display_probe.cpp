#include "desktop/services/display_probe.h"

#include <sys/resource.h>

#include <QGuiApplication>
#include <cstdio>
#include <string_view>

namespace {

bool said = false;

/// The reason alone: what the toolkit says at its very end is advice for whoever starts a program from a shell, and of use only
/// when nothing was said before.
void Say(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  const bool ofThePlatform = context.category != nullptr && std::string_view(context.category).starts_with("qt.qpa");
  if (!ofThePlatform && type != QtCriticalMsg && type != QtFatalMsg) return;
  if (type == QtFatalMsg && said) return;
  said = true;
  std::fputs((text.section('\n', 0, 0) + '\n').toUtf8().constData(), stdout);
  std::fflush(stdout);
}

}  // namespace

/// Opens the display that the environment and the words name, says so and ends; or says why not and ends somehow.
int main(int count, char** words) {
  const rlimit noDump{0, 0};
  ::setrlimit(RLIMIT_CORE, &noDump);
  qInstallMessageHandler(Say);
  const QGuiApplication opened(count, words);
  // Some platforms go on without the device that they were told of.
  std::fputs(QGuiApplication::primaryScreen() != nullptr ? desktop::kProbeOpened : "it has no screen\n", stdout);
  std::fflush(stdout);
  return 0;
}
