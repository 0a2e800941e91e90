#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/controls/form/event.h"

namespace platform {

class Form;
class TabControl;

/// What of a control has changed, for whoever shows it.
enum class Aspect {
  Text,  ///< text, caption or value
  Enabled,
  Visible,
  ToolTip,
  Mask,        ///< mask or length
  Tab,         ///< a tab control's tab or page, a tab's state or caption
  List,        ///< a list was opened anew, or a combo's rows
  CurrentRow,  ///< a list's current row
  RowContent,  ///< cells of the current row
  Selection,   ///< a list's multiple selection, or a text's
  Columns,     ///< headings, formats, scroll position
  OpenCell,    ///< the cell that is being edited
  Focus,
};

/// A control as the screens' logic knows it: a model without a toolkit. Front ends show it and hand it the user's acts by
/// the `User...` calls; assignments in code use the plain setters. Which act fires which event stands at each class.
class Control {
 public:
  Control(Form& form, std::string name, int index = -1);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const noexcept { return name_; }
  /// Place in its control array, -1 outside of one.
  int Index() const noexcept { return index_; }
  /// "txtSearch(0)", or the bare name outside of an array.
  std::string FullName() const;
  Form& Owner() const noexcept { return form_; }

  bool Enabled() const noexcept { return enabled_; }
  void Enabled(bool enabled);
  bool Visible() const noexcept { return visible_; }
  void Visible(bool visible);
  const std::string& ToolTipText() const noexcept { return toolTip_; }
  void ToolTipText(std::string text);
  const std::string& Tag() const noexcept { return tag_; }
  void Tag(std::string text) { tag_ = std::move(text); }

  /// The frame or panel that holds the control; hiding or disabling it does the same to the control's effect.
  void Container(Control& container) noexcept { container_ = &container; }
  Control* Container() const noexcept { return container_; }
  /// Puts the control on one page of one tab; `page` -1 is every page.
  void PutOnTab(TabControl& tabs, int tab, int page) noexcept;

  /// What the user can see and use: the control itself, its containers and its tab's page.
  bool EffectivelyVisible() const;
  bool EffectivelyEnabled() const;
  /// Both.
  bool OpenToUser() const { return EffectivelyVisible() && EffectivelyEnabled(); }
  /// Whether the control takes the keyboard focus at all.
  virtual bool TakesFocus() const { return false; }
  /// Whether the Tab key stops here now.
  virtual bool IsTabStop() const { return true; }
  /// Whether it is enabled again when the act of the user that disabled it fails.
  virtual bool ReopensAfterFailure() const { return false; }

  /// Takes what the user has typed into a list and not given over yet. False when it was refused, which he has been told.
  virtual bool TakeOpenCell() { return true; }
  /// Drops it.
  virtual void DropPending() {}

  /// Sets the focus to this control; without effect while it is hidden or disabled.
  void SetFocus();

  Event<> GotFocus;
  Event<> LostFocus;
  Event<> MouseMove;

  /// The mouse moves over the control.
  void UserHover();

 protected:
  void Changed(Aspect aspect);
  /// Runs what a user's act does: whatever no handler caught ends here, the screen stays usable.
  void Act(const std::function<void()>& body);
  /// The same for an act that starts a command. See Form::UserCommand.
  void UserCommand(const std::function<void()>& body);

 private:
  Form& form_;
  std::string name_;
  int index_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string toolTip_;
  std::string tag_;
  Control* container_ = nullptr;
  TabControl* tabs_ = nullptr;
  int tab_ = -1;
  int page_ = -1;
};

/// Like controls under one name, reached by index as in `txtSearch[Tab]`.
template <class T, std::size_t N>
class ControlArray {
 public:
  template <class... Args>
  explicit ControlArray(Form& form, const std::string& name, const Args&... args) {
    for (std::size_t i = 0; i < N; ++i) items_[i] = std::make_unique<T>(form, name, static_cast<int>(i), args...);
  }
  T& operator[](int index) const { return *items_.at(static_cast<std::size_t>(index)); }
  static constexpr int size() { return static_cast<int>(N); }
  /// Calls `body(control, index)` for each.
  template <class Body>
  void Each(Body&& body) const {
    for (std::size_t i = 0; i < N; ++i) body(*items_[i], static_cast<int>(i));
  }

 private:
  std::array<std::unique_ptr<T>, N> items_;
};

}  // namespace platform
