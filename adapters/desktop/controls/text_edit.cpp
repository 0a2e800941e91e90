#include "desktop/controls/text_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <algorithm>

#include "desktop/toolkit/key_event.h"
#include "platform/keys/control_keys.h"
#include "platform/keys/key.h"
#include "platform/values/mask.h"
#include "platform/values/text.h"

namespace desktop {

namespace {

constexpr int kTextMargin = 2;
constexpr std::size_t kUndoSteps = 100;

qsizetype DigitPlaces(const platform::TextBox& model) {
  const std::string& mask = model.TypingMask();
  return std::count_if(mask.begin(), mask.end(), [](char place) { return place == '%' || place == '_'; });
}

}  // namespace

TextEdit::TextEdit(QWidget* parent) : QLineEdit(parent) {
  setDragEnabled(false);
  setTextMargins(kTextMargin, 0, kTextMargin, 0);
}

QSize TextEdit::sizeHint() const {
  QSize hint = QLineEdit::sizeHint();
  if (const int preferred = property("preferredWidth").toInt(); preferred > 0) hint.setWidth(preferred);
  return hint;
}

void TextEdit::Attach(platform::TextBox& model) {
  model_ = &model;
  if (model.IsNumberEdit()) setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  // What reaches the text past the ways below (an accessibility tool) goes through the model all the same.
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (!model_) return;
    const auto caret = static_cast<std::size_t>(CharactersBefore(text, cursorPosition()));
    Edit([&] { model_->UserReplaceAll(ToUtf8(text), caret); });
  });
}

/// Figures are formatted only while nobody edits them.
bool TextEdit::ShowsRaw() const { return model_->IsNumberEdit() && HasWindowsFocus() && !model_->Locked(); }

/// The window's focus counts, also while another window has the keyboard.
bool TextEdit::HasWindowsFocus() const { return window()->focusWidget() == this; }

QString TextEdit::ShownText() const { return ToShown(ShowsRaw() ? model_->Text() : model_->DisplayText()); }

std::size_t TextEdit::ModelPlace(int at) const {
  const auto characters = static_cast<std::size_t>(CharactersBefore(text(), at));
  return model_->TypingMask().empty() ? characters : platform::MaskRawCaret(model_->TypingMask(), characters);
}

int TextEdit::ShownPlace(std::size_t place) const {
  const std::size_t characters = model_->TypingMask().empty() ? place : platform::MaskDisplayCaret(model_->TypingMask(), place);
  return static_cast<int>(PositionOfCharacter(text(), static_cast<qsizetype>(characters)));
}

void TextEdit::ShowModel() {
  if (!model_) return;
  const QString shown = ShownText();
  if (composing_ && shown == text()) return;
  if (shown != text()) setText(shown);
  setReadOnly(model_->Locked());
  if (!HasWindowsFocus()) {
    // What nobody edits is read from its beginning.
    setCursorPosition(0);
  } else if (model_->SelectionLength() > 0) {
    const int start = ShownPlace(model_->SelectionStart());
    setSelection(start, ShownPlace(model_->SelectionStart() + model_->SelectionLength()) - start);
  } else {
    setCursorPosition(ShownPlace(model_->Caret()));
  }
}

template <class Body>
void TextEdit::Edit(Body&& act) {
  if (!model_) return;
  const Step before{model_->Text(), model_->Caret()};
  const int start = hasSelectedText() ? selectionStart() : cursorPosition();
  const std::size_t from = ModelPlace(start);
  const std::size_t to = hasSelectedText() ? ModelPlace(start + static_cast<int>(selectedText().size())) : from;
  model_->Select(from, to - from);
  Safely(model_->Owner().Host(), act);
  if (!model_) return;
  if (model_->Text() != before.text) {
    undo_.push_back(before);
    if (undo_.size() > kUndoSteps) undo_.erase(undo_.begin());
    redo_.clear();
  }
  ShowModel();
}

void TextEdit::PutIn(const QString& text) {
  if (PutInPair(text)) return;
  if (text.isEmpty() && !hasSelectedText()) return;
  Edit([&] { model_->UserPaste(ToUtf8(text)); });
}

/// A number that is kept in two edits comes from the clipboard in one piece: "(612) 555-1234".
bool TextEdit::PutInPair(const QString& text) {
  const auto partner = [this](const char* name) {
    const QString wanted = property(name).toString();
    return wanted.isEmpty() ? nullptr : window()->findChild<TextEdit*>(wanted);
  };
  TextEdit* first = partner("pasteStartsIn");
  TextEdit* second = first ? this : partner("pasteGoesOnIn");
  if (!first) first = this;
  if (!second || !model_ || !first->model_ || !second->model_ || first->isReadOnly() || second->isReadOnly()) return false;
  const qsizetype whole = DigitPlaces(*first->model_) + DigitPlaces(*second->model_);
  QString digits;
  for (const QChar character : text)
    if (character.isDigit()) digits += character;
  if (digits.size() == whole + 1 && digits[0] == '1') digits.remove(0, 1);
  if (digits.size() != whole) return false;
  const qsizetype ofTheFirst = DigitPlaces(*first->model_);
  first->ReplaceAll(digits.left(ofTheFirst));
  second->ReplaceAll(digits.mid(ofTheFirst));
  return true;
}

void TextEdit::ReplaceAll(const QString& text) {
  Edit([&] { model_->UserReplaceAll(ToUtf8(text), static_cast<std::size_t>(text.size())); });
}

void TextEdit::Erase() {
  Edit([this] { model_->UserDelete(); });
}

void TextEdit::Cut() {
  if (!hasSelectedText()) return;
  copy();
  Erase();
}

void TextEdit::GoTo(std::vector<Step>& from, std::vector<Step>& to) {
  if (!model_ || from.empty() || isReadOnly()) return;
  const Step step = from.back();
  from.pop_back();
  to.push_back({model_->Text(), model_->Caret()});
  Safely(model_->Owner().Host(), [&] { model_->UserReplaceAll(step.text, step.caret); });
  ShowModel();
}

void TextEdit::Undo() { GoTo(undo_, redo_); }

void TextEdit::Redo() { GoTo(redo_, undo_); }

bool TextEdit::EditKey(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Undo)) return Undo(), true;
  if (event.matches(QKeySequence::Redo)) return Redo(), true;
  if (event.matches(QKeySequence::Cut)) return Cut(), true;
  if (event.matches(QKeySequence::Paste)) return PutIn(QApplication::clipboard()->text()), true;
  if (event.matches(QKeySequence::DeleteStartOfWord) || event.matches(QKeySequence::DeleteEndOfWord) ||
      event.matches(QKeySequence::DeleteEndOfLine)) {
    if (!hasSelectedText()) {
      if (event.matches(QKeySequence::DeleteStartOfWord)) {
        cursorWordBackward(true);
      } else if (event.matches(QKeySequence::DeleteEndOfWord)) {
        cursorWordForward(true);
      } else {
        end(true);
      }
    }
    if (hasSelectedText()) Erase();
    return true;
  }
  if (event.matches(QKeySequence::Delete)) return Erase(), true;
  return false;
}

bool TextEdit::ControlKey(const QKeyEvent& event) {
  const std::string key = platform::WithoutShift(KeyName(event));
  if (key != "Enter" && key != "Backspace") return false;
  Edit([&] { platform::PressKeyInEdit(*model_, key); });
  return true;
}

void TextEdit::keyPressEvent(QKeyEvent* event) {
  if (!model_) return event->ignore();
  if (event->key() == Qt::Key_Escape) {
    Edit([this] { platform::PressKeyInEdit(*model_, "Escape"); });
    return event->ignore();
  }
  if (ControlKey(*event)) return event->accept();
  if (!isReadOnly() && EditKey(*event)) return event->accept();
  if (!isReadOnly() && TypesCharacter(*event)) {
    const std::u32string characters = platform::ToCodePoints(ToUtf8(event->text()));
    for (const char32_t character : characters) Edit([&] { model_->UserKey(character); });
    return event->accept();
  }
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down || IsStrayLetter(*event)) return event->ignore();
  QLineEdit::keyPressEvent(event);
}

void TextEdit::inputMethodEvent(QInputMethodEvent* event) {
  if (!model_ || isReadOnly()) return QLineEdit::inputMethodEvent(event);
  const QString commit = event->commitString();
  if (!commit.isEmpty() || event->replacementLength() > 0) {
    QInputMethodEvent nothing;
    QLineEdit::inputMethodEvent(&nothing);
    composing_ = false;
    if (event->replacementLength() > 0) setSelection(cursorPosition() + event->replacementStart(), event->replacementLength());
    PutIn(commit);
    if (!model_) return;
  }
  composing_ = !event->preeditString().isEmpty();
  QInputMethodEvent preedit(event->preeditString(), event->attributes());
  QLineEdit::inputMethodEvent(&preedit);
  event->accept();
}

void TextEdit::contextMenuEvent(QContextMenuEvent* event) {
  if (!model_) return;
  const auto menu = std::make_unique<QMenu>(this);
  const bool writes = !isReadOnly();
  const auto add = [&](const QString& text, bool enabled, auto act) { menu->addAction(text, this, act)->setEnabled(enabled); };
  add(tr("&Undo"), writes && !undo_.empty(), [this] { Undo(); });
  menu->addSeparator();
  add(tr("Cu&t"), writes && hasSelectedText(), [this] { Cut(); });
  add(tr("&Copy"), hasSelectedText(), [this] { copy(); });
  add(tr("&Paste"), writes && !QApplication::clipboard()->text().isEmpty(), [this] { PutIn(QApplication::clipboard()->text()); });
  add(tr("&Delete"), writes && hasSelectedText(), [this] { Erase(); });
  menu->addSeparator();
  add(tr("Select &All"), !text().isEmpty(), [this] { selectAll(); });
  menu->exec(event->globalPos());
}

void TextEdit::mouseReleaseEvent(QMouseEvent* event) {
  const auto* clipboard = QApplication::clipboard();
  if (event->button() == Qt::MiddleButton && clipboard->supportsSelection()) {
    if (model_ && !isReadOnly()) PutInAt(event->position().toPoint(), clipboard->text(QClipboard::Selection));
    event->accept();
    return;
  }
  QLineEdit::mouseReleaseEvent(event);
}

void TextEdit::dragEnterEvent(QDragEnterEvent* event) {
  if (model_ && !isReadOnly() && event->mimeData()->hasText()) event->acceptProposedAction();
}

void TextEdit::dropEvent(QDropEvent* event) {
  if (!model_ || isReadOnly() || !event->mimeData()->hasText()) return;
  event->setDropAction(Qt::CopyAction);
  event->accept();
  PutInAt(event->position().toPoint(), event->mimeData()->text());
}

/// Figures are pointed at as they are typed: the box takes the focus first.
void TextEdit::PutInAt(QPoint point, const QString& text) {
  if (model_->IsNumberEdit() && !HasWindowsFocus()) setFocus(Qt::MouseFocusReason);
  setCursorPosition(cursorPositionAt(point));
  PutIn(text);
}

void TextEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  if (!model_ || !model_->IsNumberEdit()) return;
  const bool all = hasSelectedText();
  ShowModel();
  if (all) selectAll();
}

void TextEdit::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const bool away = event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
  if (away) undo_.clear(), redo_.clear();
  if (model_ && model_->IsNumberEdit()) ShowModel();
  if (away && model_) home(false);
}

}  // namespace desktop
