#include "desktop/controls/combo_edit.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QWheelEvent>

#include "desktop/toolkit/key_event.h"

namespace desktop {

namespace {
constexpr int kColumnGap = 16;
constexpr int kShownRows = 14;
constexpr int kRowGap = 8;

/// Rows with room to be read and hit.
class ListRowDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    return {hint.width(), hint.height() + kRowGap};
  }
};
}  // namespace

ComboEdit::ComboEdit(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  setMaxVisibleItems(kShownRows);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  auto* list = NewWidget<QTreeView>(static_cast<QWidget*>(this));
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAllColumnsShowFocus(true);
  list->setSelectionBehavior(QAbstractItemView::SelectRows);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  setModel(NewWidget<QStandardItemModel>(static_cast<QObject*>(this)));
  setView(list);
  list->setItemDelegate(NewWidget<ListRowDelegate>(static_cast<QObject*>(this)));
}

void ComboEdit::Attach(platform::ComboBox& model) {
  model_ = &model;
  connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { Typed(text); });
  connect(this, &QComboBox::activated, this, [this](int row) { Picked(row); });
}

const std::vector<platform::ComboRow>& ComboEdit::Rows() {
  if (!rowsKnown_) ReadRows();
  return rows_;
}

void ComboEdit::ReadRows() {
  rows_.clear();
  rowsKnown_ = true;
  if (!model_) return;
  Safely(model_->Owner().Host(), [this] { rows_ = model_->Rows(); });
  FillList();
}

void ComboEdit::FillList() {
  const QSignalBlocker quiet(this);
  auto* list = static_cast<QStandardItemModel*>(QComboBox::model());
  const auto& columns = model_->Columns();
  const int columnCount = std::max(1, static_cast<int>(columns.size()));
  list->clear();
  list->setColumnCount(columnCount);
  QStringList captions;
  for (const auto& column : columns) captions << ToShown(column.caption);
  list->setHorizontalHeaderLabels(captions);
  for (const auto& row : rows_) {
    QList<QStandardItem*> items;
    for (int column = 0; column < columnCount; ++column) {
      const auto at = static_cast<std::size_t>(column);
      items << std::make_unique<QStandardItem>(ToShown(at < row.cells.size() ? row.cells[at] : row.shown)).release();
    }
    list->appendRow(items);
  }
  auto* view = static_cast<QTreeView*>(QComboBox::view());
  view->setHeaderHidden(!std::any_of(captions.begin(), captions.end(), [](const QString& caption) { return !caption.isEmpty(); }));
  ShowModel();
}

void ComboEdit::ShowModel() {
  if (!model_) return;
  const QSignalBlocker quiet(this);
  int row = -1;
  for (std::size_t i = 0; i < rows_.size() && row < 0; ++i)
    if (rows_[i].key == model_->BoundValue() && rows_[i].shown == model_->Text()) row = static_cast<int>(i);
  setCurrentIndex(row);
  const QString text = ToShown(model_->Text());
  if (lineEdit()->text() != text) {
    lineEdit()->setText(text);
    lineEdit()->setCursorPosition(0);
  }
}

void ComboEdit::Typed(const QString& text) {
  if (!model_) return;
  QString whole = text;
  if (!erasing_ && !text.isEmpty() && lineEdit()->cursorPosition() == text.size()) {
    for (const auto& row : Rows()) {
      const QString shown = ToShown(row.shown);
      if (!shown.startsWith(text, Qt::CaseInsensitive)) continue;
      whole = shown;
      break;
    }
  }
  Safely(model_->Owner().Host(), [&] { model_->UserType(ToUtf8(whole)); });
  if (!model_) return;
  lineEdit()->setText(ToShown(model_->Text()));
  const auto typed = static_cast<int>(text.size());
  const auto rest = static_cast<int>(lineEdit()->text().size()) - typed;
  // What was completed is selected, so that typing on replaces it.
  if (rest > 0) {
    lineEdit()->setSelection(typed + rest, -rest);
  } else {
    lineEdit()->setCursorPosition(typed);
  }
}

void ComboEdit::Picked(int row) {
  if (!model_ || row < 0 || row >= static_cast<int>(rows_.size())) return;
  const platform::ComboRow chosen = rows_[static_cast<std::size_t>(row)];
  Safely(model_->Owner().Host(), [&] { model_->UserPick(chosen); });
  ShowModel();
  lineEdit()->selectAll();
}

void ComboEdit::showPopup() {
  ReadRows();
  auto* list = static_cast<QTreeView*>(view());
  int width = 0;
  for (int column = 0; column < list->model()->columnCount(); ++column) {
    list->resizeColumnToContents(column);
    list->setColumnWidth(column, list->columnWidth(column) + kColumnGap);
    width += list->columnWidth(column);
  }
  list->setMinimumWidth(std::max(this->width(), width + kColumnGap * 2));
  QComboBox::showPopup();
}

void ComboEdit::keyPressEvent(QKeyEvent* event) {
  if (!model_) return event->ignore();
  const bool commands = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != Qt::NoModifier;
  const bool opens = event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
  if (opens) {
    showPopup();
    return event->accept();
  }
  if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter ||
      (commands && event->key() == Qt::Key_Tab) || IsStrayLetter(*event))
    return event->ignore();
  Rows();
  erasing_ = event->key() == Qt::Key_Backspace || event->key() == Qt::Key_Delete;
  QComboBox::keyPressEvent(event);
  erasing_ = false;
}

/// A wheel over the page must not change what is chosen.
void ComboEdit::wheelEvent(QWheelEvent* event) { event->ignore(); }

void ComboEdit::focusInEvent(QFocusEvent* event) {
  QComboBox::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) lineEdit()->selectAll();
}

}  // namespace desktop
