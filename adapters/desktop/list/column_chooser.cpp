#include "desktop/list/column_chooser.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "desktop/toolkit/toolkit.h"

namespace desktop {

namespace {
constexpr QSize kFirstSize(400, 480);
constexpr int kRowGap = 8;
}  // namespace

ColumnChooser::ColumnChooser(const std::vector<ColumnChoice>& columns, int fixed, QWidget* parent)
    : QDialog(parent),
      list_(NewWidget<QListWidget>(static_cast<QWidget*>(this))),
      up_(NewWidget<QPushButton>(static_cast<QWidget*>(this), tr("Move &Up"))),
      down_(NewWidget<QPushButton>(static_cast<QWidget*>(this), tr("Move &Down"))),
      fixed_(fixed) {
  setWindowTitle(tr("Columns"));
  list_->setAccessibleName(tr("Columns"));
  for (const ColumnChoice& column : columns) {
    auto item = std::make_unique<QListWidgetItem>(column.caption);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(column.shown ? Qt::Checked : Qt::Unchecked);
    item->setSizeHint(QSize(0, fontMetrics().height() + kRowGap));
    item->setData(Qt::UserRole, ToShown(column.field));
    list_->addItem(item.release());
  }
  auto* buttons = NewWidget<QDialogButtonBox>(static_cast<QWidget*>(this), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* moves = std::make_unique<QVBoxLayout>().release();
  moves->addWidget(up_);
  moves->addWidget(down_);
  moves->addStretch();
  auto* above = std::make_unique<QHBoxLayout>().release();
  above->addWidget(list_);
  above->addLayout(moves);
  auto* layout = NewWidget<QVBoxLayout>(static_cast<QWidget*>(this));
  layout->addLayout(above);
  layout->addWidget(buttons);
  for (QPushButton* button : {up_, down_}) button->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(up_, &QPushButton::clicked, this, [this] { MoveBy(-1); });
  connect(down_, &QPushButton::clicked, this, [this] { MoveBy(1); });
  connect(list_, &QListWidget::currentRowChanged, this, [this] { ShowButtons(); });
  connect(list_, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { KeepOne(item); });
  list_->setCurrentRow(0);
  list_->setFocus();
  ShowButtons();
  resize(kFirstSize);
}

bool ColumnChooser::CanMove(int step) const {
  const int from = list_->currentRow();
  const int to = from + step;
  return from >= 0 && to >= 0 && to < list_->count() && (from < fixed_) == (to < fixed_);
}

void ColumnChooser::MoveBy(int step) {
  if (!CanMove(step)) return;
  const int from = list_->currentRow();
  std::unique_ptr<QListWidgetItem> item(list_->takeItem(from));
  list_->insertItem(from + step, item.release());
  list_->setCurrentRow(from + step);
}

void ColumnChooser::ShowButtons() {
  up_->setEnabled(CanMove(-1));
  down_->setEnabled(CanMove(1));
}

void ColumnChooser::KeepOne(QListWidgetItem* changed) {
  if (Hidden().size() == static_cast<std::size_t>(list_->count())) changed->setCheckState(Qt::Checked);
}

std::vector<std::string> ColumnChooser::Order() const {
  std::vector<std::string> fields;
  for (int row = 0; row < list_->count(); ++row) fields.push_back(ToUtf8(list_->item(row)->data(Qt::UserRole).toString()));
  return fields;
}

std::vector<std::string> ColumnChooser::Hidden() const {
  std::vector<std::string> fields;
  for (int row = 0; row < list_->count(); ++row)
    if (list_->item(row)->checkState() == Qt::Unchecked) fields.push_back(ToUtf8(list_->item(row)->data(Qt::UserRole).toString()));
  return fields;
}

}  // namespace desktop
