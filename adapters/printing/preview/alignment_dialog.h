#pragma once

#include <QDialog>
#include <QDoubleSpinBox>
#include <functional>
#include <string>

#include "printing/output/page_painter.h"

namespace printing {

/// How a printer's pages are moved, and a sheet to measure it by.
class AlignmentDialog final : public QDialog {
  Q_OBJECT

 public:
  /// `printSheet` prints it with the settings that the dialog shows; empty where there is nothing to print on.
  AlignmentDialog(QWidget* parent, const std::string& printer, const PaintSettings& settings,
                  std::function<void(const PaintSettings&)> printSheet);

  PaintSettings Chosen() const;

 private:
  QDoubleSpinBox* right_ = nullptr;
  QDoubleSpinBox* down_ = nullptr;
  QDoubleSpinBox* percent_ = nullptr;
};

}  // namespace printing
