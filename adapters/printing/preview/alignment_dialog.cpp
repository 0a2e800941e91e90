#include "printing/preview/alignment_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "printing/preview/look.h"

namespace printing {

namespace {

constexpr double kMostInches = 0.5;
constexpr double kInchStep = 0.01;
constexpr double kLeastPercent = 95;
constexpr double kMostPercent = 105;
constexpr double kPercentStep = 0.1;
constexpr double kWhole = 100;

QDoubleSpinBox* Box(QWidget* parent, const char* name, double least, double most, double step, const QString& unit, double value) {
  auto* box = look::New<QDoubleSpinBox>(parent);
  box->setObjectName(QLatin1String(name));
  box->setDecimals(2);
  box->setRange(least, most);
  box->setSingleStep(step);
  box->setSuffix(unit);
  box->setValue(value);
  return box;
}

}  // namespace

AlignmentDialog::AlignmentDialog(QWidget* parent, const std::string& printer, const PaintSettings& settings,
                                 std::function<void(const PaintSettings&)> printSheet)
    : QDialog(parent) {
  setObjectName(QStringLiteral("alignment"));
  setWindowTitle(tr("Printer Alignment"));
  setWindowModality(Qt::ApplicationModal);
  QWidget* self = this;
  right_ = Box(self, "alignmentRight", -kMostInches, kMostInches, kInchStep, tr(" inches"), settings.shiftX);
  down_ = Box(self, "alignmentDown", -kMostInches, kMostInches, kInchStep, tr(" inches"), settings.shiftY);
  percent_ = Box(self, "alignmentScale", kLeastPercent, kMostPercent, kPercentStep, tr(" %"), settings.scale * kWhole);

  auto* form = std::make_unique<QFormLayout>().release();
  auto* name = look::New<QLabel>(self);
  name->setTextFormat(Qt::PlainText);
  name->setText(printer.empty() ? tr("No printer") : QString::fromStdString(printer));
  form->addRow(tr("Printer:"), name);
  form->addRow(tr("Move to the &right:"), right_);
  form->addRow(tr("Move &down:"), down_);
  form->addRow(tr("&Size:"), percent_);

  auto* told = look::New<QLabel>(self);
  told->setWordWrap(true);
  told->setText(tr("Print the sheet on plain paper and hold it with a sheet of labels against the light. Measure from the frames to the "
                   "labels' edges; less than nothing moves to the left, or up."));

  auto* buttons = look::New<QDialogButtonBox>(self);
  buttons->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  QPushButton* sheet = buttons->addButton(tr("&Print Sheet"), QDialogButtonBox::ActionRole);
  sheet->setObjectName(QStringLiteral("alignmentSheet"));
  sheet->setEnabled(!printer.empty() && printSheet);
  buttons->button(QDialogButtonBox::Ok)->setEnabled(!printer.empty());
  connect(sheet, &QPushButton::clicked, this, [this, print = std::move(printSheet)] { print(Chosen()); });
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

  auto* column = look::New<QVBoxLayout>(self);
  column->addLayout(form);
  column->addWidget(told);
  column->addWidget(buttons);
}

PaintSettings AlignmentDialog::Chosen() const { return {right_->value(), down_->value(), percent_->value() / kWhole}; }

}  // namespace printing
