#include "desktop/window/message_box.h"

#include <QAbstractButton>
#include <QPointer>
#include <QTimer>
#include <memory>

#include "desktop/toolkit/toolkit.h"
#include "platform/host/front_end.h"

namespace desktop {

namespace box = platform::box;

namespace {

constexpr int kButtonBits = 0xF;
constexpr int kIconBits = 0xF0;

QMessageBox::Icon IconOf(int style) {
  switch (style & kIconBits) {
    case box::Stop:
      return QMessageBox::Critical;
    case box::Question:
      return QMessageBox::Question;
    case box::Exclamation:
      return QMessageBox::Warning;
    case box::Information:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

bool IsYesNo(int style) { return (style & kButtonBits) == box::YesNo; }

QMessageBox::StandardButton StandardOf(int answer) {
  switch (answer) {
    case box::Yes:
      return QMessageBox::Yes;
    case box::No:
      return QMessageBox::No;
    case box::Cancel:
      return QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

std::unique_ptr<QMessageBox> MakeMessageBox(const std::string& text, int style, const std::string& title, QWidget* parent) {
  const auto buttons = IsYesNo(style) ? QMessageBox::Yes | QMessageBox::No : QMessageBox::StandardButtons(QMessageBox::Ok);
  auto made = std::make_unique<QMessageBox>(IconOf(style), ToShown(title), QString(), buttons, parent);
  made->setTextFormat(Qt::PlainText);
  made->setText(WithLineBreaks(ToShown(text)));
  made->setTextInteractionFlags(Qt::TextSelectableByMouse);
  made->setAttribute(Qt::WA_QuitOnClose, false);
  if (IsYesNo(style)) {
    const bool second = (style & box::SecondButtonDefault) != 0;
    made->setDefaultButton(second ? QMessageBox::No : QMessageBox::Yes);
    made->setEscapeButton(QMessageBox::No);
  }
  return made;
}

}  // namespace

int RunMessageBox(const std::string& text, int style, const std::string& title, QWidget* parent,
                  const std::function<void(QMessageBox&)>& shown) {
  // The parent owns the box too and may go first.
  const QPointer<QMessageBox> made(MakeMessageBox(text, style, title, parent).release());
  const QPointer<QWidget> below(parent);
  if (shown) QTimer::singleShot(0, made, [&made, &shown] { shown(*made); });
  made->exec();
  // Where no window manager gives the keyboard back, the window takes it back itself.
  if (below) below->activateWindow();
  const int refused = IsYesNo(style) ? box::No : box::Ok;
  if (!made) return refused;
  const bool yes = IsYesNo(style) && made->standardButton(made->clickedButton()) == QMessageBox::Yes;
  const std::unique_ptr<QMessageBox> done(made.data());
  return yes ? box::Yes : refused;
}

QAbstractButton* ButtonFor(const QMessageBox& shown, int answer) { return shown.button(StandardOf(answer)); }

}  // namespace desktop
