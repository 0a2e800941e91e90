#include "desktop/window/front_end.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "desktop/look/theme.h"
#include "desktop/window/form_designs.h"
#include "desktop/window/message_box.h"

static void LoadResources() { Q_INIT_RESOURCE(desktop); }

namespace desktop {

namespace {
constexpr int kPaintingPauseMs = 16;

/// What is chosen is for the reports to come: nothing is printed when the dialog closes, and it doesn't say so.
void SayThatItSetsUp(QPrintDialog& dialog) {
  dialog.setWindowTitle(QObject::tr("Printer Setup"));
  for (const QDialogButtonBox* box : dialog.findChildren<QDialogButtonBox*>())
    for (QAbstractButton* button : box->buttons())
      if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) button->setText(QObject::tr("OK"));
}

}  // namespace

DesktopFrontEnd::DesktopFrontEnd(const DesktopOptions& options)
    : toolkit_(options.offscreenIfNoDisplay),
      settingsFolder_(options.settingsFolder),
      services_(std::make_unique<Services>(options.settingsFolder, options.user)) {
  LoadResources();
  if (toolkit_.Own()) theme::Install(theme::WantsDark(options.colorScheme));
  designs_ = LibraryDesigns();
  services_->OnIdle(
      [this] {
        bool left = false;
        for (const auto& [form, window] : windows_)
          if (window->IdleSlice()) left = true;
        return left;
      },
      [this] { return AnyScreenBusy(); });
  lastPainting_.start();
}

DesktopFrontEnd::~DesktopFrontEnd() {
  Pointer(platform::pointer::Default);
  for (const auto& [form, window] : windows_) window->Drop();
  windows_.clear();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DesktopFrontEnd::KeepSettingsOf(const std::string& user) {
  if (windows_.empty()) services_->Kept() = Settings(settingsFolder_, user);
}

void DesktopFrontEnd::AddDesign(FormDesign design) { designs_.push_back(std::move(design)); }

const FormDesign* DesktopFrontEnd::DesignOf(const std::string& screen) const {
  const auto found = std::find_if(designs_.begin(), designs_.end(), [&](const FormDesign& design) { return design.screen == screen; });
  return found == designs_.end() ? nullptr : &*found;
}

FormWindow* DesktopFrontEnd::WindowOf(const platform::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

bool DesktopFrontEnd::AnyScreenBusy() const {
  return std::any_of(windows_.begin(), windows_.end(), [](const auto& entry) {
    const platform::Form* form = entry.second->Model();
    return form && form->Busy();
  });
}

void DesktopFrontEnd::Loaded(platform::Form& form) {
  const FormDesign* design = DesignOf(form.Name());
  if (!design) form.Host().Log(platform::LogLevel::Warning, "window: no layout for screen " + form.Name());
  WindowPointer window(std::make_unique<FormWindow>(form, design, *services_).release());
  FormWindow& made = *window;
  windows_[&form] = std::move(window);
  made.Bind();
}

void DesktopFrontEnd::Shown(platform::Form& form) {
  FormWindow* window = WindowOf(form);
  if (!window) return;
  const auto all = QApplication::topLevelWidgets();
  const bool others = std::any_of(all.begin(), all.end(), [&](const QWidget* widget) { return widget != window && widget->isVisible(); });
  window->ShowAsScreen(others);
}

void DesktopFrontEnd::Hidden(platform::Form& form) {
  if (FormWindow* window = WindowOf(form)) window->HideScreen();
}

void DesktopFrontEnd::Unloaded(platform::Form& form) {
  FormWindow* window = WindowOf(form);
  if (!window) return;
  window->Drop();
  window->HideScreen();
  windows_.erase(&form);
}

void DesktopFrontEnd::RunModal(platform::Form&, const std::function<bool()>& done) {
  if (done()) return;
  QEventLoop loop;
  // Just before the loop would sleep every handler has ended, so this sees each change of `done`.
  const auto watch = QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &loop, [&] {
    if (done()) loop.quit();
  });
  loop.exec(QEventLoop::DialogExec);
  QObject::disconnect(watch);
}

void DesktopFrontEnd::DoEvents() {
  if (services_->PaintingOnly() || !CanShow()) return;
  // What the user does before a run shows itself must not start anything either: it waits, and meets a window that takes it.
  const bool hidden = run_ && !run_->Up();
  QCoreApplication::processEvents(hidden ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents);
}

void DesktopFrontEnd::ServePainting() {
  if (services_->PaintingOnly() || !CanShow() || lastPainting_.elapsed() < kPaintingPauseMs) return;
  const Services::Painting painting(*services_);
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
  lastPainting_.restart();
}

QWidget* DesktopFrontEnd::BoxParent() const {
  QWidget* parent = run_ ? run_->Up() : nullptr;
  if (parent) return parent;
  for (const auto& [form, window] : windows_)
    if (window->isVisible() && (!parent || window->isActiveWindow())) parent = window.get();
  return parent;
}

int DesktopFrontEnd::MessageBox(const std::string& text, int style, const std::string& title) {
  if (!CanShow()) return (style & 0xF) == platform::box::YesNo ? platform::box::No : platform::box::Ok;
  const bool wait = hourglass_;
  if (wait) QApplication::setOverrideCursor(Qt::ArrowCursor);
  const int answer = RunMessageBox(text, style, title, BoxParent());
  if (wait) QApplication::restoreOverrideCursor();
  return answer;
}

void DesktopFrontEnd::Pointer(int pointer) {
  const bool wait = pointer == platform::pointer::Hourglass;
  if (wait == hourglass_) return;
  hourglass_ = wait;
  if (wait) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

bool DesktopFrontEnd::Progress(const platform::ProgressState& state) {
  if (!CanShow()) return true;
  if (!run_) run_.emplace();
  return run_->Show(state, BoxParent());
}

void DesktopFrontEnd::ProgressEnds() { run_.reset(); }

void DesktopFrontEnd::Serve() {
  constexpr int kBetweenMs = 30;
  if (lastServed_.isValid() && lastServed_.elapsed() < kBetweenMs) return;
  DoEvents();
  lastServed_.restart();
}

std::optional<platform::PrinterChoice> DesktopFrontEnd::PrinterDialog(platform::Form& form) {
  QPrinter printer;
  QPrintDialog dialog(&printer, WindowOf(form));
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setOption(QAbstractPrintDialog::PrintCollateCopies, false);
  SayThatItSetsUp(dialog);
  if (dialog.exec() != QDialog::Accepted) return {};
  return platform::PrinterChoice{printer.fromPage(), printer.toPage(), printer.copyCount()};
}

std::string DesktopFrontEnd::DefaultPrinter() { return ToUtf8(QPrinterInfo::defaultPrinterName()); }

void DesktopFrontEnd::Changed(platform::Form& form, platform::Control* control, platform::Aspect aspect) {
  if (FormWindow* window = WindowOf(form)) window->Changed(control, aspect);
}

std::unique_ptr<platform::FrontEnd> MakeFrontEnd(const DesktopOptions& options) { return std::make_unique<DesktopFrontEnd>(options); }

void KeepSettingsOf(platform::FrontEnd& frontEnd, const std::string& user) {
  if (auto* windows = dynamic_cast<DesktopFrontEnd*>(&frontEnd)) windows->KeepSettingsOf(user);
}

PrinterAlignment AlignmentOf(platform::FrontEnd& frontEnd, const std::string& printer) {
  auto* windows = dynamic_cast<DesktopFrontEnd*>(&frontEnd);
  return windows ? windows->Shared().Kept().AlignmentOf(ToShown(printer)) : PrinterAlignment{};
}

void KeepAlignment(platform::FrontEnd& frontEnd, const std::string& printer, const PrinterAlignment& alignment) {
  if (auto* windows = dynamic_cast<DesktopFrontEnd*>(&frontEnd)) windows->Shared().Kept().KeepAlignment(ToShown(printer), alignment);
}

bool CanShow(const platform::FrontEnd& frontEnd) {
  const auto* windows = dynamic_cast<const DesktopFrontEnd*>(&frontEnd);
  return windows == nullptr || windows->CanShow();
}

}  // namespace desktop
