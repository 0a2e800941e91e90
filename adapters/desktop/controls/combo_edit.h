#pragma once

#include <QComboBox>
#include <vector>

#include "desktop/toolkit/toolkit.h"
#include "platform/controls/combo.h"

namespace desktop {

/// A combo with several columns in its list. The list is read when it is needed. Typing finds the first row that begins with
/// the text and completes it; a text that no row has stays as typed, with an empty key.
class ComboEdit final : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboEdit(QWidget* parent = nullptr);
  void Attach(platform::ComboBox& model);
  void Detach() { model_ = nullptr; }
  void ShowModel();
  /// The rows must be read anew before the next use.
  void ForgetRows() { rowsKnown_ = false; }
  const std::vector<platform::ComboRow>& Rows();

  void showPopup() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void ReadRows();
  void FillList();
  void Typed(const QString& text);
  void Picked(int row);

  platform::ComboBox* model_ = nullptr;
  std::vector<platform::ComboRow> rows_;
  bool rowsKnown_ = false;
  bool erasing_ = false;
};

}  // namespace desktop
