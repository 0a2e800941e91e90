#pragma once

#include <string>
#include <vector>

#include "platform/controls/form/control.h"

namespace platform {

/// Tabs, each with pages of which `Page` shows one. A user's click asks BeforeTabClick (which may cancel), then fires Click;
/// setting Tab in code fires Click alone when it really changes, and may land on a disabled tab. Nothing else fires.
class TabControl final : public Control {
 public:
  TabControl(Form& form, std::string name, std::vector<std::string> captions);

  int Tab() const noexcept { return tab_; }
  void Tab(int tab);
  int Page() const noexcept { return page_; }
  void Page(int page);
  int TabCount() const noexcept { return static_cast<int>(tabs_.size()); }
  bool TabEnabled(int tab) const;
  void TabEnabled(int tab, bool enabled);
  const std::string& TabCaption(int tab) const;
  void TabCaption(int tab, std::string caption);
  void Redraw() { Changed(Aspect::Tab); }

  Event<int, bool&> BeforeTabClick;  ///< (new tab, cancel)
  Event<int> Click;                  ///< (previous tab)

  /// Returns whether the tab was changed.
  bool UserClick(int tab);

 private:
  struct One {
    std::string caption;
    bool enabled = true;
  };
  void Switch(int tab);
  std::vector<One> tabs_;
  int tab_ = 0;
  int page_ = 0;
};

}  // namespace platform
