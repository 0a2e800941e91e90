#pragma once

#include <QApplication>
#include <QPointer>
#include <memory>
#include <string>
#include <vector>

namespace desktop {

/// The toolkit's one application object: the host's, or one of our own while the host has none.
class ToolkitApplication {
 public:
  /// Error 5 when this is not the main thread, when the host's application object can't show windows, when there is no display
  /// (unless `offscreenIfNoDisplay`), or when the one that the environment names can't be opened.
  explicit ToolkitApplication(bool offscreenIfNoDisplay);
  ~ToolkitApplication();
  ToolkitApplication(const ToolkitApplication&) = delete;
  ToolkitApplication& operator=(const ToolkitApplication&) = delete;

  /// Whether we made it, so that style and colours are ours to choose.
  bool Own() const noexcept { return own_ != nullptr; }
  /// Whether the one that was there at the beginning is there still.
  bool Lives() const noexcept { return !used_.isNull() && used_ == QCoreApplication::instance(); }

 private:
  std::vector<std::string> words_;
  std::vector<char*> arguments_;
  int argumentCount_ = 0;
  std::unique_ptr<QApplication> own_;
  QPointer<QCoreApplication> used_;
};

}  // namespace desktop
