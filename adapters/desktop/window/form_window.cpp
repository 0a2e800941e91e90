#include "desktop/window/form_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QStatusBar>

#include "desktop/binding/binder.h"
#include "desktop/controls/text_edit.h"
#include "desktop/look/marks.h"
#include "desktop/look/mnemonics.h"
#include "desktop/look/theme.h"
#include "desktop/toolkit/key_event.h"
#include "platform/controls/buttons.h"
#include "platform/controls/form/card_screen.h"
#include "platform/controls/grid.h"
#include "platform/keys/control_keys.h"
#include "platform/keys/screen_keys.h"

namespace desktop {

using platform::Aspect;

namespace {

/// Counts the time in which the models' changes are shown.
class Showing {
 public:
  explicit Showing(int& depth) : depth_(depth) { ++depth_; }
  ~Showing() { --depth_; }
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;

 private:
  int& depth_;
};

void SelectWhole(QWidget* widget) {
  auto* combo = qobject_cast<QComboBox*>(widget);
  auto* edit = combo ? combo->lineEdit() : qobject_cast<TextEdit*>(widget);
  if (edit) edit->selectAll();
}

QString WithoutMnemonic(QString text) {
  text.remove('&');
  text = text.trimmed();
  while (text.endsWith(':')) text.chop(1);
  return text;
}

}  // namespace

FormWindow::FormWindow(platform::Form& form, const FormDesign* design, Services& services)
    : form_(&form), host_(form.Host()), services_(services), name_(ToShown(form.Name())) {
  setAttribute(Qt::WA_QuitOnClose, false);
  if (design) design->setUp(*this);
  for (QLabel* label : findChildren<QLabel*>()) {
    if (!label->buddy()) continue;
    label->setText(WithMnemonic(label->text(), *label));
    label->installEventFilter(this);
  }
  setWindowIcon(QIcon(QStringLiteral(":/desktop/icons/window.svg")));
  setMouseTracking(true);
  if (centralWidget()) centralWidget()->setMouseTracking(true);
  setObjectName(name_);
  setStyleSheet(theme::WindowRules(palette()));
  // The rules make captions bold only when they are first shown, and the layouts would have been measured before.
  for (QWidget* widget : findChildren<QWidget*>()) widget->ensurePolished();
}

FormWindow::~FormWindow() = default;

void FormWindow::Bind() {
  const Showing showing(showing_);
  for (platform::Control* control : form_->Controls()) {
    std::unique_ptr<Binding> binding = MakeBinding(*this, services_, *control);
    if (!binding) continue;
    byControl_[control] = binding.get();
    if (QWidget* widget = binding->Widget()) {
      byWidget_[widget] = binding.get();
      widget->installEventFilter(this);
      if (control->MouseMove.HasHandler()) widget->setMouseTracking(true);
    }
    bindings_.push_back(std::move(binding));
  }
  for (const auto& binding : bindings_) binding->ShowAll();
  KeepRoomForTitles(*this);
  NameForAccessibility();
  ShowCaption();
  extras_.emplace(*this, *form_, services_);
}

void FormWindow::Drop() {
  form_ = nullptr;
  extras_.reset();
  for (const auto& binding : bindings_) binding->Drop();
  byControl_.clear();
  byWidget_.clear();
}

void FormWindow::ShowCaption() {
  if (form_) setWindowTitle(ToShown(form_->Caption()));
}

/// An edit without a name of its own bears the text of the label that leads to it, or of the frame that holds it.
void FormWindow::NameForAccessibility() {
  for (const QLabel* label : findChildren<QLabel*>()) {
    QWidget* edit = label->buddy();
    if (!edit) continue;
    if (edit->accessibleName().isEmpty()) edit->setAccessibleName(WithoutMnemonic(label->text()));
    if (label->property("required").toBool()) edit->setAccessibleDescription(tr("required"));
  }
}

void FormWindow::Changed(platform::Control* control, Aspect aspect) {
  if (!form_) return;
  const Showing showing(showing_);
  if (!control) {
    ShowCaption();
    return;
  }
  if (aspect == Aspect::Focus) {
    const QWidget* before = focusWidget();
    SyncFocus();
    // Code that leads the user to a box, as after a refused entry, wants it typed anew.
    if (focusWidget() == before && !takingFocus_) SelectWhole(focusWidget());
    return;
  }
  if (Binding* binding = BindingOf(*control)) Safely(host_, [&] { binding->Show(aspect); });
  if (extras_) Safely(host_, [&] { extras_->Changed(*control, aspect); });
}

Binding* FormWindow::BindingOf(const platform::Control& control) const {
  const auto found = byControl_.find(&control);
  return found == byControl_.end() ? nullptr : found->second;
}

Binding* FormWindow::BindingAround(const QWidget* widget) const {
  for (; widget && widget != this; widget = widget->parentWidget())
    if (const auto found = byWidget_.find(widget); found != byWidget_.end()) return found->second;
  return nullptr;
}

void FormWindow::SyncFocus() {
  if (!form_ || !form_->Focus()) return;
  const Binding* binding = BindingOf(*form_->Focus());
  if (!binding || !binding->Widget()) return;
  QWidget* widget = binding->Widget();
  const QWidget* now = focusWidget();
  if (now && (now == widget || widget->isAncestorOf(now))) return;
  const Showing showing(showing_);
  widget->setFocus(Qt::TabFocusReason);
  for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget())
    if (auto* area = qobject_cast<QScrollArea*>(parent)) area->ensureWidgetVisible(widget);
}

bool FormWindow::IdleSlice() {
  bool left = false;
  for (const auto& binding : bindings_)
    if (!binding->Dropped() && binding->IdleSlice()) left = true;
  if (!left && extras_) extras_->Settled();
  return left;
}

void FormWindow::ShowAsScreen(bool modal) {
  setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  if (!placed_) RestorePosition();
  show();
  raise();
  activateWindow();
  // A window that hid while it had the keyboard keeps it in the eyes of a display without a window manager, which then tells of no change.
  if (!isActiveWindow() && QGuiApplication::focusWindow() == windowHandle()) QApplication::setActiveWindow(this);
  SyncFocus();
}

void FormWindow::HideScreen() {
  KeepPosition();
  hide();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!form_) return;
  const QPointer<FormWindow> alive(this);
  Safely(host_, [&] {
    if (MayClose() && alive && form_) form_->UserClose();
  });
}

/// What stands on an open card would be lost: the user is asked once. A close by code does not come here.
bool FormWindow::MayClose() {
  const auto* cards = dynamic_cast<const platform::CardScreen*>(form_);
  if (!cards) return true;
  if (asking_) return false;
  constexpr int kQuestion = platform::box::Question + platform::box::YesNo + platform::box::SecondButtonDefault;
  bool may = true;
  asking_ = true;
  const QPointer<FormWindow> alive(this);
  form_->Act([&] {
    if (cards->HasUnsavedEntries())
      may = host_.MsgBox("Close without saving the changes?", kQuestion, form_->Caption()) == platform::box::Yes;
  });
  if (alive) asking_ = false;
  return may;
}

void FormWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  services_.WakeIdle();
}

void FormWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && form_ && !styleSheet().isEmpty()) {
    const QString rules = theme::WindowRules(palette());
    if (rules != styleSheet()) setStyleSheet(rules);
  }
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  event->ignore();
  if (!form_ || services_.PaintingOnly()) return;
  const Binding* here = BindingAround(focusWidget());
  bool taken = false;
  Safely(host_, [&] { taken = platform::PressKeyOnScreen(*form_, here ? &here->Model() : nullptr, KeyName(*event)); });
  if (taken) event->accept();
}

bool FormWindow::focusNextPrevChild(bool next) {
  if (!form_) return QMainWindow::focusNextPrevChild(next);
  Safely(host_, [&] {
    const Binding* here = BindingAround(focusWidget());
    platform::Control* to = form_->NextInTabOrder(here ? &here->Model() : form_->Focus(), !next);
    if (to) form_->UserFocus(*to);
  });
  if (form_) SyncFocus();
  return true;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!form_) return false;
  if (event->type() == QEvent::Shortcut) {
    // Its letter pressed again in the box itself moves nothing, and selects the box as coming to it does.
    const auto* label = qobject_cast<QLabel*>(watched);
    if (label && label->buddy() && label->buddy() == focusWidget()) SelectWhole(label->buddy());
    // The toolkit would show a button pressed for a while first, and what is typed next would come before its command.
    auto* button = qobject_cast<QPushButton*>(watched);
    if (button && !static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
      button->click();
      return true;
    }
  } else if (event->type() == QEvent::FocusIn) {
    if (const auto found = byWidget_.find(watched); found != byWidget_.end())
      TookFocus(*found->second, static_cast<QFocusEvent*>(event)->reason());
  } else if (event->type() == QEvent::MouseMove) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    const auto found = byWidget_.find(watched);
    if (!widget || found == byWidget_.end()) return false;
    const QWidget* under = widget->childAt(static_cast<QMouseEvent*>(event)->position().toPoint());
    Binding* inner = BindingAround(under);
    if (!inner || inner == found->second) Hovered(*found->second);
  } else if (event->type() == QEvent::KeyPress) {
    // The toolkit's buttons know Space and not Enter, and its choices take an arrow only when the next one stands that way.
    const auto found = byWidget_.find(watched);
    if (found == byWidget_.end()) return false;
    platform::Control& control = found->second->Model();
    const std::string key = KeyName(*static_cast<QKeyEvent*>(event));
    const bool arrow = key == "Up" || key == "Down" || key == "Left" || key == "Right";
    if (key != "Enter" && !(arrow && dynamic_cast<platform::OptionButton*>(&control))) return false;
    bool taken = false;
    if (control.EffectivelyEnabled()) Safely(host_, [&] { taken = platform::PressKeyOnButton(control, key); });
    return taken;
  }
  return false;
}

void FormWindow::TookFocus(Binding& binding, Qt::FocusReason reason) {
  if (showing_ > 0) return;
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason) return;
  if (!binding.Model().TakesFocus() || form_->Focus() == &binding.Model()) return;
  platform::Form& form = *form_;
  takingFocus_ = true;
  Safely(host_, [&] { form.UserFocus(binding.Model()); });
  takingFocus_ = false;
  if (form_) SyncFocus();
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
  QMainWindow::mouseMoveEvent(event);
  if (!form_) return;
  // Buttons pass the movement on: what they have said stays.
  const Binding* under = BindingAround(childAt(event->position().toPoint()));
  if (under && under->Model().MouseMove.HasHandler()) return;
  platform::Form& form = *form_;
  Safely(host_, [&] { form.Act([&form] { form.Form_MouseMove(); }); });
}

void FormWindow::Hovered(Binding& binding) {
  if (!binding.Model().MouseMove.HasHandler()) return;
  Safely(host_, [&] { binding.Model().UserHover(); });
}

}  // namespace desktop
