#include "desktop/list/cell_editor.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QPainter>

#include "desktop/toolkit/key_event.h"
#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {
constexpr int kPadding = 4;  ///< with the edit's own, the text stands where the list has it
}

CellEditor::CellEditor(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  setTextMargins(kPadding, 0, kPadding, 0);
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (onText) onText(text);
  });
}

void CellEditor::Offer(const QStringList& texts) {
  auto* completer = NewChild<QCompleter>(this, texts);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->setCompletionMode(QCompleter::PopupCompletion);
  connect(completer, qOverload<const QString&>(&QCompleter::activated), this, [this](const QString& text) {
    if (onText) onText(text);
  });
  setCompleter(completer);
}

void CellEditor::Close() {
  if (completer()) completer()->popup()->hide();
  deleteLater();  // hidden it would hand the focus to whatever comes next
}

bool CellEditor::ListTakes(const QKeyEvent& key) const { return onKey && onKey(key); }

/// Tab is the list's before it is the toolkit's.
bool CellEditor::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if ((key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) && ListTakes(*key)) return true;
  }
  return QLineEdit::event(event);
}

/// The row below it is in the colour of the current row, whose text colour sets the cell off from it.
void CellEditor::paintEvent(QPaintEvent* event) {
  QLineEdit::paintEvent(event);
  QPainter painter(this);
  const auto frame = [&](int inset, QPalette::ColorRole role) {
    painter.setPen(palette().color(QPalette::Active, role));
    painter.drawRect(rect().adjusted(inset, inset, -inset - 1, -inset - 1));
  };
  frame(0, QPalette::HighlightedText);
  frame(1, QPalette::Highlight);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
      if (ListTakes(*event)) return event->accept();
      return event->ignore();
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return event->ignore();
    default:
      break;
  }
  if (IsStrayLetter(*event)) return event->ignore();
  QLineEdit::keyPressEvent(event);
  // Nothing typed here is a command of the screen.
  if (!event->text().isEmpty()) event->accept();
}

}  // namespace desktop
