#include "desktop/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>

#include "desktop/binding/binder.h"
#include "desktop/mnemonics.h"
#include "desktop/theme.h"
#include "platform/controls/buttons.h"
#include "platform/controls/grid.h"

namespace desktop {

using platform::Aspect;

namespace {

constexpr double kFirstShare = 0.8;
constexpr QSize kFirstMost(1600, 1000);

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

QString WithoutMnemonic(QString text) {
  text.remove('&');
  text = text.trimmed();
  while (text.endsWith(':')) text.chop(1);
  return text;
}

}  // namespace

FormWindow::FormWindow(platform::Form& form, const FormDesign* design, Services& services)
    : form_(&form), app_(form.App()), services_(services), name_(ToShown(form.Name())) {
  setAttribute(Qt::WA_QuitOnClose, false);
  if (design) design->setUp(*this);
  for (QLabel* label : findChildren<QLabel*>())
    if (label->buddy()) label->setText(WithMnemonic(label->text(), *label));
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
    std::unique_ptr<Binding> binding = MakeBinding(*this, *control);
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
  NameForAccessibility();
  ShowCaption();
}

void FormWindow::Drop() {
  form_ = nullptr;
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
    SyncFocus();
    return;
  }
  if (Binding* binding = BindingOf(*control)) Safely(app_, [&] { binding->Show(aspect); });
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
  return left;
}

void FormWindow::ShowAsScreen(bool modal) {
  setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  if (!placed_) RestorePlace();
  show();
  raise();
  activateWindow();
  SyncFocus();
}

void FormWindow::HideScreen() {
  KeepPlace();
  hide();
}

void FormWindow::RestorePlace() {
  placed_ = true;
  const QSize room = screen()->availableGeometry().size();
  // The first time most of a large screen, so that the lists show much, and never more than there is.
  resize(size().expandedTo((room * kFirstShare).boundedTo(kFirstMost)).boundedTo(room));
  if (const auto place = services_.Kept().WindowPlace(name_)) restoreGeometry(*place);
}

void FormWindow::KeepPlace() {
  if (isVisible()) services_.Kept().KeepWindowPlace(name_, saveGeometry());
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!form_) return;
  Safely(app_, [this] { form_->UserClose(); });
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

bool FormWindow::focusNextPrevChild(bool next) {
  if (!form_) return QMainWindow::focusNextPrevChild(next);
  Safely(app_, [&] {
    const Binding* here = BindingAround(focusWidget());
    platform::Control* to = form_->NextInTabOrder(here ? &here->Model() : form_->Focus(), !next);
    if (to) form_->UserFocus(*to);
  });
  if (form_) SyncFocus();
  return true;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!form_) return false;
  if (event->type() == QEvent::FocusIn) {
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
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter) return false;
    const auto found = byWidget_.find(watched);
    if (found == byWidget_.end()) return false;
    auto* button = dynamic_cast<platform::CommandButton*>(&found->second->Model());
    if (!button || !button->EffectivelyEnabled() || key->modifiers() != Qt::NoModifier) return false;
    Safely(app_, [&] { button->UserClick(); });
    return true;
  }
  return false;
}

void FormWindow::TookFocus(Binding& binding, Qt::FocusReason reason) {
  if (showing_ > 0) return;
  if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason) return;
  if (!binding.Model().TakesFocus() || form_->Focus() == &binding.Model()) return;
  platform::Form& form = *form_;
  Safely(app_, [&] { form.UserFocus(binding.Model()); });
  if (form_) SyncFocus();
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
  QMainWindow::mouseMoveEvent(event);
  if (!form_) return;
  platform::Form& form = *form_;
  Safely(app_, [&] { form.Act([&form] { form.Form_MouseMove(); }); });
}

void FormWindow::Hovered(Binding& binding) {
  if (!binding.Model().MouseMove.HasHandler()) return;
  Safely(app_, [&] { binding.Model().UserHover(); });
}

}  // namespace desktop
