#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>

#include "desktop/list/column_chooser.h"
#include "desktop/list/list_act.h"
#include "desktop/list/list_header.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/toolkit.h"
#include "platform/controls/toolbar.h"
#include "platform/keys/shortcuts.h"

// The menus of a row and of a heading, and the columns that the user chooses.
namespace desktop {

namespace {

/// A menu that goes with its list, whichever of the two is closed first.
QMenu* NewMenu(QWidget& list) {
  auto* menu = NewWidget<QMenu>(&list);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  return menu;
}

/// With the key beside it, which is the list's own and no shortcut of the menu.
QString Entry(const QString& caption, std::string_view key) { return key.empty() ? caption : caption + "\t" + ToShown(key); }

}  // namespace

void ListView::contextMenuEvent(QContextMenuEvent* event) {
  event->accept();
  if (!grid_ || services_->PaintingOnly()) return;
  Sync();
  if (event->reason() == QContextMenuEvent::Mouse) {
    const QPoint at = viewport()->mapFromGlobal(event->globalPos());
    const auto place = columns_.PlaceAt(at.x() - MarkerWidth(), HorizontalOffset());
    const bool onRow = currentOrdinal_ && OrdinalAt(at.y()) == currentOrdinal_;
    return onRow ? RowMenu(event->globalPos(), place ? columns_.ColumnAt(*place) : -1) : HeadMenu(event->globalPos());
  }
  const QRect cell = currentOrdinal_ ? CellRect(*currentOrdinal_, CursorColumn()) : QRect();
  if (!currentOrdinal_) return HeadMenu(viewport()->mapToGlobal(QPoint(0, 0)));
  RowMenu(viewport()->mapToGlobal(cell.isEmpty() ? QPoint(0, 0) : cell.bottomLeft()), CursorColumn());
}

/// What each entry does is a key of the toolbar or of the list, and comes after the menu has closed, as any command does.
void ListView::RowMenu(const QPoint& global, int column) {
  if (!grid_) return;
  QMenu* menu = NewMenu(*this);
  for (const platform::RowCommand& command : grid_->RowCommands()) {
    if (!command.key->EffectivelyVisible()) continue;
    QAction* action = menu->addAction(Entry(ToShown(command.caption), platform::ShortcutKeyFor(*command.key)));
    action->setEnabled(command.key->EffectivelyEnabled());
    connect(action, &QAction::triggered, this, [this, key = command.key] {
      Later([key](platform::Grid&) {
        if (key->OpenToUser()) key->UserClick();
      });
    });
  }
  if (!menu->isEmpty()) menu->addSeparator();
  const bool cell = IsOpen(column) && !grid_->Column(column).checkBox;
  menu->addAction(Entry(tr("Edit Cell"), "Ctrl+E"), this, [this, column] { EditCell(column); })->setEnabled(cell);
  menu->addSeparator();
  menu->addAction(tr("Copy Cell"), this, [this, column] { CopyCell(column); })->setEnabled(column >= 0);
  menu->addAction(Entry(tr("Copy Rows with Headings"), "Ctrl+C"), this, [this] { CopyRows(); });
  menu->addAction(tr("Export List..."), this, [this] { ExportList(); })->setEnabled(CanExport());
  menu->addSeparator();
  menu->addAction(tr("Columns..."), this, [this] { ChooseColumns(); });
  menu->popup(global);
}

void ListView::HeadMenu(const QPoint& global, int column) {
  if (!grid_) return;
  QMenu* menu = NewMenu(*this);
  if (column >= 0) {
    const auto sort = [this, column](bool descending) {
      Later([column, descending](platform::Grid& grid) { grid.UserSort(column, descending); });
    };
    const bool both = grid_->Sort.HasHandler();
    if (both || grid_->HeadClick.HasHandler()) menu->addAction(tr("Sort Up"), this, [sort] { sort(false); });
    if (both) menu->addAction(tr("Sort Down"), this, [sort] { sort(true); });
    menu->addSeparator();
    const std::string field = FieldOf(column);
    menu->addAction(tr("Hide Column"), this,
                    [this, field] {
                      std::vector<std::string> hidden = columns_.HiddenFields();
                      hidden.push_back(field);
                      ArrangeColumns(columns_.FieldsInOrder(), hidden);
                    })
        ->setEnabled(columns_.PlaceCount() > 1);
  }
  menu->addAction(tr("Columns..."), this, [this] { ChooseColumns(); });
  menu->addAction(tr("Reset Columns"), this, [this] { ResetColumns(); });
  menu->popup(global);
}

void ListView::ChooseColumns() {
  if (!grid_) return;
  std::vector<ColumnChoice> columns;
  for (const int column : columns_.All()) columns.push_back({FieldOf(column), CaptionOf(column), !columns_.IsHidden(column)});
  auto* chooser = NewWidget<ColumnChooser>(static_cast<QWidget*>(this), columns, columns_.FixedOfAll());
  chooser->setAttribute(Qt::WA_DeleteOnClose);
  connect(chooser, &QDialog::accepted, this, [this, chooser] { ArrangeColumns(chooser->Order(), chooser->Hidden()); });
  chooser->open();
}

bool ListView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip && grid_) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const auto ordinal = OrdinalAt(help->pos().y());
    const ShownRow* row = ordinal ? rows_.At(*ordinal) : nullptr;
    const QString text = row ? EmphasisOf(*row) : QString();
    if (!text.isEmpty()) {
      QToolTip::showText(help->globalPos(), text, this);
      return true;
    }
    QToolTip::hideText();
  }
  return QAbstractScrollArea::viewportEvent(event);
}

}  // namespace desktop
