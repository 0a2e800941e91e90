#include "desktop/controls/date_popup.h"

#include <QAction>
#include <QCalendarWidget>
#include <QFrame>
#include <QScreen>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/icons.h"
#include "platform/values/calendar.h"

namespace desktop {

namespace {

QDate DayOf(const platform::DateEdit& model) {
  const platform::CalendarDay day = platform::CalendarOf(model.Value().value_or(model.Owner().Host().Today()));
  return QDate(day.year, day.month, day.day);
}

std::string ShortDate(const QDate& day) { return QString("%1/%2/%3").arg(day.month()).arg(day.day()).arg(day.year()).toStdString(); }

/// Below the edit, flush with its right end; above it, or further to the side, where the screen ends.
QPoint PlaceBelow(const TextEdit& edit, const QSize& size) {
  const QRect room = edit.screen()->availableGeometry();
  QPoint at = edit.mapToGlobal(QPoint(edit.width() - size.width(), edit.height()));
  if (at.y() + size.height() > room.bottom()) at.setY(edit.mapToGlobal(QPoint()).y() - size.height());
  at.setX(std::clamp(at.x(), room.left(), std::max(room.left(), room.right() - size.width())));
  return at;
}

/// In our colours: plain arrows, and no red days, which dark colours swallow.
void Plain(QCalendarWidget& calendar) {
  QTextCharFormat weekend;
  weekend.setForeground(calendar.palette().color(QPalette::Active, QPalette::Text));
  for (const auto day : {Qt::Saturday, Qt::Sunday}) calendar.setWeekdayTextFormat(day, weekend);
  const auto arrow = [&](const char* name, Qt::ArrowType type) {
    if (auto* button = calendar.findChild<QToolButton*>(name)) {
      button->setIcon({});
      button->setArrowType(type);
    }
  };
  arrow("qt_calendar_prevmonth", Qt::LeftArrow);
  arrow("qt_calendar_nextmonth", Qt::RightArrow);
}

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
  Plain(*calendar);
  layout->addWidget(calendar);
  const auto take = [&edit, &model, popup](const QDate& day) {
    popup->close();
    if (edit.isReadOnly() || !edit.Attached()) return;
    const std::string text = ShortDate(day);
    Safely(model.Owner().Host(), [&] { model.UserReplaceAll(text, text.size()); });
  };
  QObject::connect(calendar, &QCalendarWidget::clicked, popup, take);
  QObject::connect(calendar, &QCalendarWidget::activated, popup, take);
  popup->adjustSize();
  popup->move(PlaceBelow(edit, popup->sizeHint()));
  popup->show();
  calendar->setFocus();
}

}  // namespace

void AddCalendar(TextEdit& edit, platform::DateEdit& model) {
  QAction* open = edit.addAction(DrawnIcon("calendar"), QLineEdit::TrailingPosition);
  open->setToolTip(QObject::tr("Choose a date (F4)"));
  open->setShortcuts({QKeySequence(Qt::Key_F4), QKeySequence(Qt::ALT | Qt::Key_Down)});
  open->setShortcutContext(Qt::WidgetShortcut);
  QObject::connect(open, &QAction::triggered, &edit, [&edit, &model] {
    if (!edit.Attached() || edit.isReadOnly()) return;
    edit.setFocus(Qt::MouseFocusReason);
    OpenCalendar(edit, model);
  });
}

}  // namespace desktop
