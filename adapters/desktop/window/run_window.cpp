#include "desktop/window/run_window.h"

#include <QDialog>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {

constexpr qint64 kPatienceMs = 500;
constexpr qint64 kBetweenMs = 100;
constexpr int kBarSteps = 1000;

QString Count(std::int64_t number) { return QLocale(QLocale::English, QLocale::UnitedStates).toString(qlonglong{number}); }

}  // namespace

/// Escape and the frame mean Stop too; the run itself takes the window away.
class RunDialog final : public QDialog {
 public:
  RunDialog(const QString& title, QWidget* parent)
      : QDialog(parent),
        text_(NewWidget<QLabel>(this)),
        bar_(NewWidget<QProgressBar>(this)),
        stop_(NewWidget<QPushButton>(this, tr("Stop"))) {
    setObjectName("runProgress");
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    setAttribute(Qt::WA_QuitOnClose, false);
    text_->setObjectName("runProgressText");
    bar_->setTextVisible(false);
    bar_->setAccessibleName(title);
    stop_->setObjectName("runProgressStop");
    connect(stop_, &QPushButton::clicked, this, [this] { reject(); });
    auto* layout = NewWidget<QVBoxLayout>(this);
    layout->addWidget(text_);
    layout->addWidget(bar_);
    layout->addWidget(stop_, 0, Qt::AlignRight);
    setMinimumWidth(fontMetrics().averageCharWidth() * 48);
  }

  void Show(const platform::ProgressState& state) {
    const bool known = state.total > 0;
    const std::int64_t total = std::max(state.done, state.total);
    text_->setText(known ? tr("%1 of %2").arg(Count(state.done), Count(total)) : Count(state.done));
    bar_->setRange(0, known ? kBarSteps : 0);
    if (known) bar_->setValue(static_cast<int>(state.done * kBarSteps / total));
  }

  bool Stopped() const noexcept { return stopped_; }
  void reject() override {
    stopped_ = true;
    stop_->setEnabled(false);
  }

 private:
  QLabel* text_;
  QProgressBar* bar_;
  QPushButton* stop_;
  bool stopped_ = false;
};

RunWindow::RunWindow() { since_.start(); }

RunWindow::~RunWindow() {
  const std::unique_ptr<RunDialog> done(dialog_.data());
  if (dialog_) dialog_->hide();
  if (below_) below_->activateWindow();
}

QWidget* RunWindow::Up() const { return dialog_; }

bool RunWindow::Show(const platform::ProgressState& state, QWidget* parent) {
  const qint64 now = since_.elapsed();
  if (!opened_) {
    if (now >= kPatienceMs) Open(state, parent);
    return true;
  }
  if (!dialog_) return false;  // the window below took it along: nobody is there to wait for the rest
  if (now - shownAt_ >= kBetweenMs) {
    dialog_->Show(state);
    shownAt_ = now;
  }
  return !dialog_->Stopped();
}

void RunWindow::Open(const platform::ProgressState& state, QWidget* parent) {
  opened_ = true;
  shownAt_ = since_.elapsed();
  below_ = parent;
  dialog_ = NewWidget<RunDialog>(parent, ToShown(state.title));
  dialog_->Show(state);
  dialog_->show();
  dialog_->activateWindow();
}

}  // namespace desktop
