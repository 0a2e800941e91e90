#include "desktop/controls/memo_edit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <algorithm>

#include "desktop/toolkit/key_event.h"
#include "platform/keys/control_keys.h"
#include "platform/keys/key.h"
#include "platform/values/text.h"

namespace desktop {

namespace {

bool EndsLine(char32_t character) { return character == U'\r' || character == U'\n'; }

/// Characters that one shown position takes at `at` of the model's text: two for "\r\n".
std::size_t StepAt(const std::u32string& text, std::size_t at) {
  return text[at] == U'\r' && at + 1 < text.size() && text[at + 1] == U'\n' ? 2 : 1;
}

int ShownSize(char32_t character) { return character > 0xFFFF ? 2 : 1; }

}  // namespace

MemoEdit::MemoEdit(QWidget* parent) : QPlainTextEdit(parent) {
  setTabChangesFocus(true);
  setLineWrapMode(QPlainTextEdit::WidgetWidth);
}

void MemoEdit::Attach(platform::TextBox& model) {
  model_ = &model;
  connect(document(), &QTextDocument::contentsChange, this, [this] {
    if (!showing_ && model_) Changed();
  });
}

std::size_t MemoEdit::ModelPlace(int at) const {
  const std::u32string text = platform::ToCodePoints(model_->Text());
  std::size_t place = 0;
  for (int shown = 0; place < text.size() && shown < at; place += StepAt(text, place))
    shown += EndsLine(text[place]) ? 1 : ShownSize(text[place]);
  return place;
}

int MemoEdit::ShownPlace(std::size_t wanted) const {
  const std::u32string text = platform::ToCodePoints(model_->Text());
  int shown = 0;
  for (std::size_t place = 0; place < text.size() && place < wanted; place += StepAt(text, place))
    shown += EndsLine(text[place]) ? 1 : ShownSize(text[place]);
  return shown;
}

void MemoEdit::TellSelection() {
  const QTextCursor cursor = textCursor();
  const std::size_t from = ModelPlace(cursor.selectionStart());
  const std::size_t to = cursor.hasSelection() ? ModelPlace(cursor.selectionEnd()) : from;
  model_->Select(from, to - from);
}

template <class Body>
void MemoEdit::Edit(Body&& act) {
  TellSelection();
  Safely(model_->Owner().Host(), act);
  if (model_) ShowModel();
}

void MemoEdit::ShowModel() {
  if (!model_) return;
  setReadOnly(model_->Locked());
  ShowText(WithLineBreaks(ToShown(model_->Text())));
  QTextCursor cursor = textCursor();
  cursor.setPosition(std::min(ShownPlace(model_->Caret()), document()->characterCount() - 1));
  setTextCursor(cursor);
}

void MemoEdit::ShowText(const QString& text) {
  const QString now = toPlainText();
  known_ = text;
  if (now == text) return;
  const qsizetype shorter = std::min(now.size(), text.size());
  qsizetype same = 0;
  while (same < shorter && now[same] == text[same]) ++same;
  qsizetype tail = 0;
  while (tail < shorter - same && now[now.size() - 1 - tail] == text[text.size() - 1 - tail]) ++tail;
  showing_ = true;
  QTextCursor cursor(document());
  cursor.setPosition(static_cast<int>(same));
  cursor.setPosition(static_cast<int>(now.size() - tail), QTextCursor::KeepAnchor);
  cursor.insertText(text.mid(same, text.size() - tail - same));
  showing_ = false;
}

/// The widget has changed its document by itself: the model is asked to do the same. The document's notice may name more than
/// really changed, so the place is found by comparing.
void MemoEdit::Changed() {
  const QString now = toPlainText();
  if (now == known_) return;
  const qsizetype shorter = std::min(now.size(), known_.size());
  qsizetype same = 0;
  while (same < shorter && now[same] == known_[same]) ++same;
  qsizetype tail = 0;
  while (tail < shorter - same && now[now.size() - 1 - tail] == known_[known_.size() - 1 - tail]) ++tail;
  const std::size_t from = ModelPlace(static_cast<int>(same));
  const std::size_t to = ModelPlace(static_cast<int>(known_.size() - tail));
  const QString added = now.mid(same, now.size() - tail - same);
  model_->Select(from, to - from);
  Safely(model_->Owner().Host(), [&] {
    if (added.isEmpty()) {
      model_->UserDelete();
    } else {
      model_->UserPaste(ToUtf8(WithLineBreaks(added)));
    }
  });
  if (!model_) return;
  // The document must not be written inside its own notice.
  QMetaObject::invokeMethod(
      this, [this] { ShowModel(); }, Qt::QueuedConnection);
  known_ = now;
}

void MemoEdit::keyPressEvent(QKeyEvent* event) {
  if (!model_) return event->ignore();
  const std::string key = platform::WithoutShift(KeyName(*event));
  if (!isReadOnly() && (key == "Enter" || key == "Backspace" || key == "Delete")) {
    Edit([&] { platform::PressKeyInEdit(*model_, key); });
    return event->accept();
  }
  if (!isReadOnly() && TypesCharacter(*event)) {
    for (const char32_t character : platform::ToCodePoints(ToUtf8(event->text()))) {
      if (!model_) break;
      Edit([&] { model_->UserKey(character); });
    }
    return event->accept();
  }
  if (IsStrayLetter(*event)) return event->ignore();
  QPlainTextEdit::keyPressEvent(event);
}

void MemoEdit::inputMethodEvent(QInputMethodEvent* event) {
  const QString commit = event->commitString();
  if (!model_ || isReadOnly() || commit.isEmpty()) return QPlainTextEdit::inputMethodEvent(event);
  QInputMethodEvent nothing;
  QPlainTextEdit::inputMethodEvent(&nothing);
  Edit([&] { model_->UserPaste(ToUtf8(WithLineBreaks(commit))); });
  if (!model_) return;
  QInputMethodEvent preedit(event->preeditString(), event->attributes());
  QPlainTextEdit::inputMethodEvent(&preedit);
  event->accept();
}

bool MemoEdit::canInsertFromMimeData(const QMimeData* source) const { return source->hasText(); }

void MemoEdit::insertFromMimeData(const QMimeData* source) {
  if (!model_ || isReadOnly() || !source->hasText()) return;
  const std::string text = ToUtf8(WithLineBreaks(source->text()));
  Edit([&] { model_->UserPaste(text); });
}

}  // namespace desktop
