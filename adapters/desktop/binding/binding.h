#pragma once

#include <QWidget>
#include <memory>

#include "desktop/toolkit/toolkit.h"
#include "platform/controls/form/control.h"

namespace desktop {

/// Joins one control of a screen with its widget: shows the control's changes, hands the user's acts to it. After Drop the
/// control is not touched any more.
class Binding : public QObject {
  Q_OBJECT

 public:
  Binding(platform::Control& control, QWidget* widget);

  platform::Control& Model() const { return model_; }
  QWidget* Widget() const { return widget_; }

  /// Shows everything, once, before the window is seen.
  virtual void ShowAll();
  /// Shows what has changed.
  virtual void Show(platform::Aspect aspect);
  /// The screen is gone.
  virtual void Drop();
  bool Dropped() const noexcept { return dropped_; }
  /// Idle work of the control; false when nothing is left.
  virtual bool IdleSlice() { return false; }

 protected:
  platform::FormHost& Host() const { return host_; }
  /// Runs an act of the user unless the screen is gone.
  template <class Body>
  void Act(Body&& body) {
    if (dropped_) return;
    Safely(host_, std::forward<Body>(body));
  }

 private:
  platform::FormHost& host_;
  platform::Control& model_;
  QWidget* widget_;
  bool dropped_ = false;
};

/// A binding whose model and widget have known types.
template <class Model_, class Widget_>
class TypedBinding : public Binding {
 public:
  TypedBinding(Model_& control, Widget_* widget) : Binding(control, widget), control_(control), shown_(widget) {}

 protected:
  Model_& control() const { return control_; }
  Widget_& shown() const { return *shown_; }

 private:
  Model_& control_;
  Widget_* shown_;
};

}  // namespace desktop
