#include "desktop/window/filter_badge.h"

#include <QEvent>
#include <QLayout>
#include <algorithm>

namespace desktop {

namespace {

constexpr int kFewestLetters = 8;  // "Query: x" and its ellipsis

}  // namespace

FilterBadge::FilterBadge(QLabel& label) : QObject(&label), label_(label) {
  label_.setTextFormat(Qt::PlainText);
  label_.setVisible(false);
  if (QWidget* strip = label_.parentWidget()) strip->installEventFilter(this);
}

void FilterBadge::Show(const QString& text) {
  if (text == text_) return;
  text_ = text;
  // Long questions are read in several lines; nothing of a user's text is taken for markup.
  label_.setToolTip(text.isEmpty() ? QString() : Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
  label_.setAccessibleName(text);
  label_.ensurePolished();
  label_.setText(text);
  around_ = label_.sizeHint().width() - label_.fontMetrics().horizontalAdvance(text);
  // A long text must not keep the window from being made smaller.
  label_.setMinimumWidth(around_ + label_.fontMetrics().averageCharWidth() * kFewestLetters);
  label_.setVisible(!text.isEmpty());
  Fit();
}

/// The width that its neighbours leave.
int FilterBadge::Room() const {
  const QWidget* strip = label_.parentWidget();
  const QLayout* layout = strip ? strip->layout() : nullptr;
  if (!layout) return label_.sizeHint().width();
  const QMargins margins = layout->contentsMargins();
  int room = strip->width() - margins.left() - margins.right();
  for (int i = 0; i < layout->count(); ++i) {
    const QWidget* other = layout->itemAt(i)->widget();
    if (!other || other == &label_ || other->isHidden()) continue;
    room -= other->sizeHint().width() + layout->spacing();
  }
  return room;
}

void FilterBadge::Fit() {
  if (text_.isEmpty()) return;
  const int room = std::max(Room(), label_.minimumWidth()) - around_;
  const QString shown = label_.fontMetrics().elidedText(text_, Qt::ElideRight, room);
  if (shown == label_.text()) return;
  label_.setText(shown);
  // At once: the neighbours have been laid out for the text of before.
  const QWidget* strip = label_.parentWidget();
  if (strip && strip->layout()) strip->layout()->activate();
}

bool FilterBadge::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) Fit();
  return QObject::eventFilter(watched, event);
}

}  // namespace desktop
