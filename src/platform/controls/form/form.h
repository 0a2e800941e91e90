#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/form/control.h"
#include "platform/controls/form/shortcut.h"

namespace platform {

class FormHost;

/// A screen. The derived class bears the screen's name, owns its controls as public members and attaches its handlers in its
/// constructor. Where its life stands is the application's matter (Application::Load, Show, Hide, Unload).
class Form {
 public:
  Form(FormHost& host, std::string name, std::string caption);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const noexcept { return name_; }
  const std::string& Caption() const noexcept { return caption_; }
  void Caption(std::string caption);
  const std::string& Tag() const noexcept { return tag_; }
  void Tag(std::string tag) { tag_ = std::move(tag); }
  FormHost& Host() const noexcept { return host_; }
  /// The keys of the screen's commands. The table stands as long as the screen.
  std::span<const Shortcut> Shortcuts() const noexcept { return shortcuts_; }
  void Shortcuts(std::span<const Shortcut> table) noexcept { shortcuts_ = table; }

  /// Whether Escape leaves the screen as its frame does: for screens that only look and have no command for it.
  bool LeavesByEscape() const noexcept { return leavesByEscape_; }
  void LeavesByEscape(bool leaves) noexcept { leavesByEscape_ = leaves; }

  /// The life's events, in the order in which they can come.
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Unload() {}
  virtual void Form_MouseMove() {}

  bool Loaded() const noexcept { return loaded_; }
  bool Visible() const noexcept { return visible_; }
  /// True while an act of this form is on the stack.
  bool Busy() const noexcept { return handlers_ > 0; }
  /// Whether the user has closed it while an act of it runs: it goes when the act has ended, and a long one should end soon.
  bool ClosePending() const noexcept { return closePending_; }

  /// All controls in tab order, which is the order of their making where TabOrder says no other.
  const std::vector<Control*>& Controls() const noexcept { return controls_; }
  /// Puts these controls in this order, at the place of the first of them that was made: rows of control arrays, say.
  void TabOrder(const std::vector<Control*>& order);
  /// By name without regard to case; `index` -1 outside an array; nullptr if there is none.
  Control* Find(std::string_view name, int index = -1) const;

  Control* Focus() const noexcept { return focus_; }
  /// Moves the focus: LostFocus of the old control, GotFocus of the new one. A move asked for inside one of the two waits
  /// until both are done. nullptr takes the focus away.
  void MoveFocus(Control* to);
  /// The next (previous) control in the tab order that can take the focus.
  Control* NextInTabOrder(const Control* from, bool backwards = false) const;

  /// The user moves the focus (click or Tab key). A cell that is left open is taken first; a refused one keeps the focus.
  void UserFocus(Control& control);
  /// Takes every open cell and writes every pending row of the screen's lists. False when one is refused or can't be written,
  /// which the user has been told: what he wanted to do then does not start.
  bool TakeOpenCells();
  /// The user closes the window by its frame.
  void UserClose();

  /// A control was hidden or disabled, or its page turned away: the focus may have to leave.
  void FocusMayHaveGone() { CheckFocus(); }

  /// Runs one act of the user. See FormHost::Act.
  void Act(const std::function<void()>& body);
  /// Runs an act that starts a command: open cells are taken first, and one that is refused keeps the command from starting.
  void UserCommand(const std::function<void()>& body);

 private:
  friend class Application;  // keeps the marks of its life
  friend class Control;
  void Register(Control& control);
  void Unregister(Control& control);
  void CheckFocus();

  FormHost& host_;
  std::string name_;
  std::string caption_;
  std::string tag_;
  std::span<const Shortcut> shortcuts_;
  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
  Control* wantedFocus_ = nullptr;
  bool focusMoving_ = false;
  bool focusWanted_ = false;
  bool leavesByEscape_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  bool loading_ = false;
  bool unloading_ = false;
  bool destroying_ = false;
  bool closePending_ = false;
  int handlers_ = 0;
};

}  // namespace platform
