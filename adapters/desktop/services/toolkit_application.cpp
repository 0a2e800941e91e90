#include "desktop/services/toolkit_application.h"

#include <QThread>

#include "desktop/services/display.h"
#include "platform/values/error.h"

#ifdef __linux__
#include <sys/syscall.h>
#include <unistd.h>
#endif

namespace desktop {

namespace {

bool OnMainThread() {
  if (const auto* app = QCoreApplication::instance()) return app->thread() == QThread::currentThread();
#ifdef __linux__
  return syscall(SYS_gettid) == getpid();
#else
  return true;
#endif
}

}  // namespace

ToolkitApplication::ToolkitApplication(bool offscreenIfNoDisplay) {
  if (!OnMainThread())
    throw platform::Error(platform::error::number::InvalidCall, "The screens can only be shown on the program's main thread.");
  if (QCoreApplication::instance() != nullptr) {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
      throw platform::Error(platform::error::number::InvalidCall, "The host's application object can't show windows.");
    used_ = QCoreApplication::instance();
    return;
  }
  words_ = {"orcussch"};
  if (!DisplayIsNamed()) {
    if (!offscreenIfNoDisplay) throw platform::Error(platform::error::number::InvalidCall, "There is no display to show the screens on.");
    words_.insert(words_.end(), {"-platform", "offscreen"});
  }
  if (const std::string why = WhyNoDisplay(words_); !why.empty())
    throw platform::Error(platform::error::number::InvalidCall, "The display to show the screens on can't be opened: " + why);
  for (std::string& word : words_) arguments_.push_back(word.data());
  arguments_.push_back(nullptr);
  argumentCount_ = static_cast<int>(words_.size());
  own_ = std::make_unique<QApplication>(argumentCount_, arguments_.data());
  used_ = own_.get();
  QApplication::setQuitOnLastWindowClosed(false);
}

ToolkitApplication::~ToolkitApplication() = default;

}  // namespace desktop
