#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "printing/preview/preview_dialogs.h"
#include "printing/preview/preview_run.h"

namespace printing {

class PreviewWindow;

/// The previews that are open. Needs the toolkit's application object.
class Previews {
 public:
  /// `busy`: see PreviewWindow; it may be asked as long as a preview is open.
  explicit Previews(std::function<bool()> busy);
  ~Previews();
  Previews(const Previews&) = delete;
  Previews& operator=(const Previews&) = delete;

  /// Opens one more and comes back with its first page on the screen.
  PreviewWindow& Open(std::unique_ptr<PreviewRun> run, PreviewSettings settings);
  /// All of them go, with what their runs hold: at the release of the library, and with another company.
  void CloseAll();
  std::size_t Count() const;
  /// Of those that are open, the oldest first; none behind the last.
  PreviewWindow* At(std::size_t place) const;
  /// The reports' font; made when it is first asked for.
  const std::shared_ptr<const FontSet>& Fonts();

  PreviewDialogs dialogs;  ///< of those that are opened from now on

 private:
  struct Windows;
  std::function<bool()> busy_;
  std::shared_ptr<const FontSet> fonts_;
  std::unique_ptr<Windows> open_;
};

}  // namespace printing
