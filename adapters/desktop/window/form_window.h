#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "desktop/binding/binding.h"
#include "desktop/services/services.h"
#include "desktop/window/window_extras.h"
#include "platform/controls/form/form.h"

namespace desktop {

/// How a screen's window is laid out: what the form file's generated code does.
struct FormDesign {
  std::string screen;
  std::function<void(QMainWindow&)> setUp;
};

/// One screen as a window.
class FormWindow final : public QMainWindow {
  Q_OBJECT

 public:
  FormWindow(platform::Form& form, const FormDesign* design, Services& services);
  ~FormWindow() override;

  /// Makes the bindings and shows what the models hold.
  void Bind();
  /// The screen is gone: no model is touched from here on.
  void Drop();
  bool Dropped() const noexcept { return form_ == nullptr; }
  platform::Form* Model() const noexcept { return form_; }
  Services& Shared() const noexcept { return services_; }

  void Changed(platform::Control* control, platform::Aspect aspect);
  Binding* BindingOf(const platform::Control& control) const;
  /// The binding whose widget is (or holds) `widget`.
  Binding* BindingAround(const QWidget* widget) const;
  const std::vector<std::unique_ptr<Binding>>& Bindings() const noexcept { return bindings_; }

  /// Brings the toolkit's focus to where the screen's is.
  void SyncFocus();
  bool IdleSlice();

  /// How large a window that needs `needed` opens on a screen with `room` while nobody has placed it.
  static QSize FirstSize(const QSize& needed, const QSize& room);
  /// Where a window goes that stood at `was`, on the screen of that room: no larger than it and all of it in it.
  static QRect OnScreen(const QRect& was, const QRect& room);

  void ShowAsScreen(bool modal);
  void HideScreen();

 protected:
  void mouseMoveEvent(QMouseEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  bool MayClose();
  void ShowCaption();
  void NameForAccessibility();
  void TookFocus(Binding& binding, Qt::FocusReason reason);
  void Hovered(Binding& binding);
  void KeepPosition();
  void RestorePosition();
  void FitInto(const QSize& room);

  platform::Form* form_;
  platform::FormHost& host_;
  Services& services_;
  QString name_;
  std::vector<std::unique_ptr<Binding>> bindings_;
  std::unordered_map<const platform::Control*, Binding*> byControl_;
  std::unordered_map<const QObject*, Binding*> byWidget_;
  std::optional<WindowExtras> extras_;
  int showing_ = 0;  ///< changes of the models are being shown: focus moves of the toolkit are not the user's
  bool placed_ = false;
  bool asking_ = false;       ///< whether to close; a second wish to close asks nothing
  bool takingFocus_ = false;  ///< the user has put the keyboard there: what he selected stays
};

}  // namespace desktop
