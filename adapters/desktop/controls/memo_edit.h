#pragma once

#include <QPlainTextEdit>
#include <string>

#include "desktop/toolkit/toolkit.h"
#include "platform/controls/text_box.h"

namespace desktop {

/// An edit of several lines. Typed keys and pastes go to the model first; what the widget does by itself (cut, undo, drop) is
/// told to the model as the same change of the same place. The model's line ends ("\r\n", "\r") show as line breaks.
class MemoEdit final : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit MemoEdit(QWidget* parent = nullptr);
  void Attach(platform::TextBox& model);
  void Detach() { model_ = nullptr; }
  void ShowModel();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  bool canInsertFromMimeData(const QMimeData* source) const override;

 private:
  std::size_t ModelPlace(int at) const;
  int ShownPlace(std::size_t place) const;
  void TellSelection();
  void Changed();
  template <class Body>
  void Edit(Body&& act);
  /// Makes the document hold `text` by one edit of the part that differs.
  void ShowText(const QString& text);

  platform::TextBox* model_ = nullptr;
  bool showing_ = false;
  QString known_;  ///< what the document held when model and widget last agreed
};

}  // namespace desktop
