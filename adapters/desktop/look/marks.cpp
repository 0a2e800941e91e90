#include "desktop/look/marks.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QIcon>
#include <QPainter>
#include <QStackedWidget>
#include <QStyle>
#include <QTabBar>
#include <algorithm>

namespace desktop {

namespace {

constexpr int kDot = 16;

QIcon Dot(const QPalette& palette) {
  QPixmap picture(kDot, kDot);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.color(QPalette::Active, QPalette::Highlight));
  painter.drawEllipse(QRectF(4, 4, kDot - 8, kDot - 8));
  return QIcon(picture);
}

bool IsOn(const QGroupBox& group) {
  const auto boxes = group.findChildren<QCheckBox*>();
  return std::any_of(boxes.begin(), boxes.end(), [](const QCheckBox* box) { return box->isChecked(); });
}

void MarkGroup(QGroupBox& group) {
  const bool on = IsOn(group);
  if (group.property("on").toBool() == on) return;
  group.setProperty("on", on);
  group.style()->unpolish(&group);
  group.style()->polish(&group);
}

/// The page's tab has its place in the page's name: "tab_2_page_0" of "SSTab1_pages".
void MarkTab(const QWidget& page, const QStackedWidget& pages) {
  const QString bar = pages.objectName().section('_', 0, 0);
  auto* tabs = pages.window()->findChild<QTabBar*>(bar);
  bool known = false;
  const int tab = page.objectName().section('_', 1, 1).toInt(&known);
  if (!tabs || !tabs->property("marksOn").toBool() || !known) return;
  const auto groups = page.findChildren<QGroupBox*>();
  const auto on = std::count_if(groups.begin(), groups.end(), [](const QGroupBox* group) { return group->property("on").toBool(); });
  while (tabs->count() <= tab) tabs->addTab(QString());
  tabs->setTabIcon(tab, on > 0 ? Dot(tabs->palette()) : QIcon());
  tabs->setTabToolTip(tab, on > 0 ? QObject::tr("%n on", nullptr, static_cast<int>(on)) : QString());
}

}  // namespace

void ShowOn(const QCheckBox& box) {
  const QWidget* inside = &box;
  for (QWidget* around = box.parentWidget(); around; inside = around, around = around->parentWidget()) {
    auto* group = qobject_cast<QGroupBox*>(around);
    if (group && group->property("marksOn").toBool()) MarkGroup(*group);
    if (const auto* pages = qobject_cast<QStackedWidget*>(around)) return MarkTab(*inside, *pages);
  }
}

void KeepRoomForTitles(const QWidget& window) {
  constexpr int kBeside = 28;
  for (QGroupBox* group : window.findChildren<QGroupBox*>()) {
    if (!group->property("marksOn").toBool()) continue;
    QFont bold = group->font();
    bold.setWeight(QFont::DemiBold);
    const int needed = QFontMetrics(bold).horizontalAdvance(group->title()) + kBeside;
    // A least width of its own takes the place of what the contents need.
    if (needed > group->minimumSizeHint().width()) group->setMinimumWidth(needed);
  }
}

}  // namespace desktop
