#pragma once

#include <QDialog>
#include <QString>
#include <string>
#include <vector>

class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace desktop {

/// One column as the chooser shows it.
struct ColumnChoice {
  std::string field;
  QString caption;
  bool shown = true;
};

/// The box in which the user says which columns of a list are shown, and in which order. The first `fixed` columns, those that do
/// not scroll, keep among themselves. One column stays ticked in any case.
class ColumnChooser final : public QDialog {
  Q_OBJECT

 public:
  ColumnChooser(const std::vector<ColumnChoice>& columns, int fixed, QWidget* parent);

  /// Field names of all columns, and of those without a tick.
  std::vector<std::string> Order() const;
  std::vector<std::string> Hidden() const;

 private:
  void MoveBy(int step);
  bool CanMove(int step) const;
  void ShowButtons();
  void KeepOne(QListWidgetItem* changed);

  QListWidget* list_;
  QPushButton* up_;
  QPushButton* down_;
  int fixed_;
};

}  // namespace desktop
