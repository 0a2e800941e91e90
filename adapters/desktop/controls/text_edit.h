#pragma once

#include <QLineEdit>
#include <string>
#include <vector>

#include "desktop/toolkit/toolkit.h"
#include "platform/controls/text_box.h"

namespace desktop {

/// A one-line edit of a text model. Every key, paste and deletion goes to the model, whose answer is shown; moving,
/// selecting and copying are the widget's own. Text in composition stays alone until it is committed.
///
/// Properties of the layout: "preferredWidth" (pixels), and for a number that is kept in two edits "pasteGoesOnIn" (name of
/// the second, on the first) and "pasteStartsIn" (name of the first, on the second): a whole number that is pasted into
/// either fills both.
class TextEdit final : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextEdit(QWidget* parent = nullptr);
  void Attach(platform::TextBox& model);
  void Detach() { model_ = nullptr; }
  bool Attached() const noexcept { return model_ != nullptr; }
  /// Shows the model's text, with the caret where the model has it.
  void ShowModel();

  void PutIn(const QString& text);
  void PutInAt(QPoint point, const QString& text);

  /// As wide as the layout's property "preferredWidth" says, where it says something.
  QSize sizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Step {
    std::string text;
    std::size_t caret = 0;
  };
  bool HasWindowsFocus() const;
  bool ShowsRaw() const;
  QString ShownText() const;
  /// Between positions in the shown text and characters of the model's text.
  std::size_t ModelPlace(int at) const;
  int ShownPlace(std::size_t place) const;
  /// Tells the model the selection, keeps a step for undo, runs `act`.
  template <class Body>
  void Edit(Body&& act);
  bool EditKey(const QKeyEvent& event);
  bool ControlKey(const QKeyEvent& event);
  bool PutInPair(const QString& text);
  void ReplaceAll(const QString& text);
  void Erase();
  void Cut();
  void Undo();
  void Redo();
  void GoTo(std::vector<Step>& from, std::vector<Step>& to);

  platform::TextBox* model_ = nullptr;
  std::vector<Step> undo_;
  std::vector<Step> redo_;
  bool composing_ = false;
};

}  // namespace desktop
