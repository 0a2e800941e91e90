#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/controls/text_edit.h"
#include "desktop/list/list_act.h"
#include "desktop/services/services.h"
#include "desktop/toolkit/key_event.h"
#include "desktop/toolkit/toolkit.h"
#include "platform/keys/list_keys.h"
#include "platform/values/text.h"

// What keys and clicks in a list ask of its model.
namespace desktop {

void ListView::Later(std::function<void(platform::Grid&)> act) {
  if (!grid_) return;
  services_->Later(this, [this, act = std::move(act)] { Act(act); });
}

bool ListView::IsOpen(int column) const { return grid_ && column >= 0 && column < grid_->ColumnCount() && grid_->Column(column).open; }

void ListView::HeadClicked(int column) {
  Act([&](platform::Grid& grid) { grid.UserHeadClick(column); });
}

void ListView::keyPressEvent(QKeyEvent* event) {
  event->accept();
  if (!grid_) return;
  Sync();
  if (!grid_ || TakeKey(*event) || CopyKey(*event)) return;
  event->ignore();
}

std::vector<int> ListView::ShownColumns() const {
  std::vector<int> shown;
  for (int place = 0; place < columns_.PlaceCount(); ++place) shown.push_back(columns_.ColumnAt(place));
  return shown;
}

platform::ListShown ListView::Shown() const {
  const bool first = currentOrdinal_.value_or(0) == 0 && !currentChanged_ && !listChanged_;
  return {ShownColumns(), std::max(1, WholeRowsShown() - 1), first};
}

/// Moves go at once; what opens or leaves a cell, or starts a command, comes from the event loop.
bool ListView::TakeKey(const QKeyEvent& event) {
  using platform::ListAct;
  const platform::ListKey key = platform::ListKeyOf(*grid_, KeyName(event), ShownColumns());
  switch (key.act) {
    case ListAct::None:
      return false;
    case ListAct::Search:
      return TypeIntoSearchBox(event), true;
    case ListAct::CellLeft:
    case ListAct::CellRight:
      return MoveCellCursor(key.act == ListAct::CellLeft ? -1 : 1), true;
    case ListAct::Mark:
    case ListAct::MarkAndGoOn:
      Sync();
      if (currentOrdinal_) Mark(*currentOrdinal_, Qt::ControlModifier, false);
      if (key.act == ListAct::MarkAndGoOn) Act([](platform::Grid& grid) { grid.UserMove(1); });
      return true;
    case ListAct::RowUp:
    case ListAct::RowDown:
    case ListAct::PageUp:
    case ListAct::PageDown:
    case ListAct::FirstRow:
    case ListAct::LastRow:
    case ListAct::MarkUp:
    case ListAct::MarkDown:
    case ListAct::MarkToFirst:
    case ListAct::MarkToLast:
      Act([this, &key](platform::Grid& grid) { platform::PerformListKey(grid, key, Shown()); });
      return true;
    default:
      Later([this, key](platform::Grid& grid) {
        platform::PerformListKey(grid, key, Shown());
        if (grid_ && key.act == ListAct::TakeCellAndGoOn) ScrollToColumn(CursorColumn());
      });
      return true;
  }
}

/// With open columns the cursor goes from cell to cell; without, the list scrolls by a column.
void ListView::MoveCellCursor(int step) {
  if (platform::HasOpenColumns(*grid_)) {
    grid_->CursorColumn(platform::ColumnBesideCursor(*grid_, ShownColumns(), step));
    ScrollToColumn(CursorColumn());
  } else if (horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOn) {
    const int offset = HorizontalOffset();
    int place = columns_.ScrolledPlaceAt(offset);
    const bool cut = place >= 0 && columns_.LeftInGroup(place) < offset;
    place += step < 0 && cut ? 0 : step;
    if (place >= columns_.FixedCount() && place < columns_.PlaceCount()) horizontalScrollBar()->setValue(columns_.LeftInGroup(place));
  }
  viewport()->update();
}

/// The cell of the current row at that column, or the next one behind it that can be changed by typing.
void ListView::EditCell(int column) {
  if (!grid_) return;
  grid_->CursorColumn(column);
  if (const auto cell = grid_->CellToEdit(ShownColumns())) Later([cell = *cell](platform::Grid& grid) { grid.UserOpenCell(cell); });
}

TextEdit* ListView::SearchBox() const {
  const platform::TextBox* box = grid_ ? grid_->SearchBox() : nullptr;
  return box ? window()->findChild<TextEdit*>(WidgetName(*box)) : nullptr;
}

/// A letter typed in a list never changes what stands there: it begins a search.
void ListView::TypeIntoSearchBox(const QKeyEvent& event) {
  TextEdit* box = SearchBox();
  if (!box) return;
  box->setFocus(Qt::ShortcutFocusReason);
  if (!box->hasFocus()) return;
  box->selectAll();
  const std::unique_ptr<QKeyEvent> copy(event.clone());
  QApplication::sendEvent(box, copy.get());
}

std::optional<std::int64_t> ListView::OrdinalAt(int y) const {
  const std::int64_t ordinal = (TopPixel() + y) / rowHeight_;
  if (y < 0 || !rows_.At(ordinal)) return {};
  return ordinal;
}

void ListView::mousePressEvent(QMouseEvent* event) {
  if (!grid_ || (event->button() != Qt::LeftButton && event->button() != Qt::RightButton)) return;
  Sync();
  const auto ordinal = OrdinalAt(event->position().toPoint().y());
  if (!ordinal) {
    Act([](platform::Grid& grid) { grid.Owner().UserFocus(grid); });
    return;
  }
  const int x = event->position().toPoint().x();
  if (event->button() == Qt::LeftButton) {
    ClickRow(*ordinal, x, event->modifiers());
  } else {
    ClickForMenu(*ordinal, x);
  }
}

/// The row becomes the current one, whatever the pointer stands on; marks and checks stay.
void ListView::ClickForMenu(std::int64_t ordinal, int x) {
  const ShownRow* row = rows_.At(ordinal);
  if (!row) return;
  const auto place = columns_.PlaceAt(x - MarkerWidth(), HorizontalOffset());
  if (place && platform::HasOpenColumns(*grid_)) grid_->CursorColumn(columns_.ColumnAt(*place));
  const platform::Bookmark bookmark = row->row.bookmark;
  Act([&](platform::Grid& grid) {
    if (current_ == bookmark && !currentChanged_) return grid.Owner().UserFocus(grid);
    grid.UserRow(bookmark);
  });
  if (grid_) Sync();
}

bool ListView::ClickRow(std::int64_t ordinal, int x, Qt::KeyboardModifiers modifiers) {
  const ShownRow* row = rows_.At(ordinal);
  if (!row) return false;
  const platform::Bookmark bookmark = row->row.bookmark;
  const bool marks = MarksRows() && (x < MarkerWidth() || (modifiers & (Qt::ControlModifier | Qt::ShiftModifier)) != 0);
  if (marks) {
    Mark(ordinal, modifiers, x < MarkerWidth());
    return false;
  }
  const auto place = columns_.PlaceAt(x - MarkerWidth(), HorizontalOffset());
  const int column = place ? columns_.ColumnAt(*place) : -1;
  if (column >= 0 && platform::HasOpenColumns(*grid_)) grid_->CursorColumn(column);
  const auto onBox = [&](std::int64_t at) {
    const bool box = column >= 0 && grid_->Column(column).checkBox && IsOpen(column);
    const QRect cell = box ? CellRect(at, column) : QRect();
    return box && CheckRect(cell).adjusted(-3, -3, 3, 3).contains(QPoint(x, cell.center().y()));
  };
  bool moved = false;
  if (current_ == bookmark && !currentChanged_ && IsOpen(column) && (!grid_->Column(column).checkBox || onBox(ordinal))) {
    // A cell that can be changed, of the row on which the user stands: the row does not become current once more.
    Act([&](platform::Grid& grid) {
      grid.Owner().UserFocus(grid);
      moved = !grid.OpenCell() || grid.UserCloseCell();
    });
  } else {
    Act([&](platform::Grid& grid) { moved = grid.UserRow(bookmark); });
  }
  if (!grid_) return false;
  Sync();
  if (moved && currentOrdinal_ && grid_->MarksByClick()) Mark(*currentOrdinal_, Qt::NoModifier, true);
  if (!grid_) return false;
  if (moved && currentOrdinal_ && onBox(*currentOrdinal_)) ToggleCheck(column);
  return moved;
}

void ListView::ToggleCheck(int column) {
  Later([this, column](platform::Grid& grid) { platform::PerformListKey(grid, {platform::ListAct::TurnCheck, column}, Shown()); });
}

/// The bar's range reaches beyond what a narrow list needs, so a sideways wheel counts only where the bar is shown.
void ListView::wheelEvent(QWheelEvent* event) {
  const QPoint delta = event->angleDelta();
  const bool sideways = std::abs(delta.x()) > std::abs(delta.y());
  if (sideways && horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff) return event->ignore();
  QAbstractScrollArea::wheelEvent(event);
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (!grid_ || event->button() != Qt::LeftButton) return;
  const QPoint at = event->position().toPoint();
  const auto place = columns_.PlaceAt(at.x() - MarkerWidth(), HorizontalOffset());
  const int column = place ? columns_.ColumnAt(*place) : -1;
  const bool check = IsOpen(column) && grid_->Column(column).checkBox;
  if (at.x() < MarkerWidth() || check || (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier))) return mousePressEvent(event);
  Sync();
  const auto ordinal = OrdinalAt(at.y());
  // The first click has made the row current, or has told why not.
  if (!ordinal || ordinal != currentOrdinal_) return;
  Later([column](platform::Grid& grid) { grid.UserEnter(column); });
}

}  // namespace desktop
