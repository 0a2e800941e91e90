#include "desktop/message_box.h"

#include <QAbstractButton>

#include "desktop/toolkit.h"
#include "platform/front_end.h"

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

}  // namespace

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

int AnswerOf(const QMessageBox& shown, int style) {
  if (!IsYesNo(style)) return box::Ok;
  return shown.standardButton(shown.clickedButton()) == QMessageBox::Yes ? box::Yes : box::No;
}

QAbstractButton* ButtonFor(const QMessageBox& shown, int answer) { return shown.button(StandardOf(answer)); }

}  // namespace desktop
