#include "printing/preview/previews.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>

#include "printing/preview/preview_window.h"

namespace printing {

struct Previews::Windows {
  QList<QPointer<PreviewWindow>> windows;
};

Previews::Previews(std::function<bool()> busy) : dialogs(ToolkitDialogs()), busy_(std::move(busy)), open_(std::make_unique<Windows>()) {}

Previews::~Previews() { CloseAll(); }

const std::shared_ptr<const FontSet>& Previews::Fonts() {
  if (!fonts_) fonts_ = std::make_shared<const FontSet>();
  return fonts_;
}

PreviewWindow& Previews::Open(std::unique_ptr<PreviewRun> run, PreviewSettings settings) {
  open_->windows.removeIf([](const auto& window) { return window.isNull(); });
  // The toolkit gives it back when it closes.
  PreviewWindow* window = std::make_unique<PreviewWindow>(std::move(run), Fonts(), std::move(settings), busy_, dialogs).release();
  open_->windows.push_back(window);
  window->Open();
  return *window;
}

void Previews::CloseAll() {
  for (const auto& window : open_->windows)
    if (window) window->CloseForGood();
  for (const auto& window : open_->windows)
    if (window) QCoreApplication::sendPostedEvents(window, QEvent::DeferredDelete);
  open_->windows.removeIf([](const auto& window) { return window.isNull(); });
}

std::size_t Previews::Count() const {
  std::size_t count = 0;
  for (const auto& window : open_->windows) count += window && window->isVisible() ? 1 : 0;
  return count;
}

PreviewWindow* Previews::At(std::size_t place) const {
  for (const auto& window : open_->windows)
    if (window && window->isVisible() && place-- == 0) return window;
  return nullptr;
}

}  // namespace printing
