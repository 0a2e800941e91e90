#include "desktop/controls/date_popup.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFrame>
#include <QPointer>
#include <QVBoxLayout>

#include "desktop/icons.h"
#include "platform/convert.h"

namespace desktop {

namespace {

QDate DayOf(const platform::DateEdit& model) {
  const auto value = model.Value();
  if (!value) return QDate::currentDate();
  const platform::CalendarDay day = platform::CalendarOf(*value);
  return QDate(day.year, day.month, day.day);
}

std::string ShortDate(const QDate& day) { return QString("%1/%2/%3").arg(day.month()).arg(day.day()).arg(day.year()).toStdString(); }

void OpenCalendar(TextEdit& edit, platform::DateEdit& model) {
  auto* popup = NewWidget<QFrame>(static_cast<QWidget*>(&edit));
  popup->setWindowFlags(Qt::Popup);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  popup->setFrameShape(QFrame::StyledPanel);
  auto* layout = NewWidget<QVBoxLayout>(static_cast<QWidget*>(popup));
  layout->setContentsMargins(1, 1, 1, 1);
  auto* calendar = NewWidget<QCalendarWidget>(static_cast<QWidget*>(popup));
  calendar->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar->setSelectedDate(DayOf(model));
  layout->addWidget(calendar);
  const auto take = [&edit, &model, popup](const QDate& day) {
    popup->close();
    if (edit.isReadOnly() || !edit.Attached()) return;
    const std::string text = ShortDate(day);
    Safely(model.Owner().App(), [&] { model.UserReplaceAll(text, text.size()); });
  };
  QObject::connect(calendar, &QCalendarWidget::clicked, popup, take);
  QObject::connect(calendar, &QCalendarWidget::activated, popup, take);
  popup->adjustSize();
  popup->move(edit.mapToGlobal(QPoint(edit.width() - popup->sizeHint().width(), edit.height())));
  popup->show();
  calendar->setFocus();
}

}  // namespace

void AddCalendar(TextEdit& edit, platform::DateEdit& model) {
  QAction* open = edit.addAction(DrawnIcon("calendar"), QLineEdit::TrailingPosition);
  open->setToolTip(QObject::tr("Choose a date"));
  QObject::connect(open, &QAction::triggered, &edit, [&edit, &model] {
    if (!edit.Attached() || edit.isReadOnly()) return;
    edit.setFocus(Qt::MouseFocusReason);
    OpenCalendar(edit, model);
  });
}

}  // namespace desktop
