#include <QLineEdit>

#include "desktop/hands/desktop_hands.h"
#include "desktop/hands/input.h"
#include "desktop/list/cell_editor.h"
#include "desktop/list/list_header.h"
#include "desktop/list/list_view.h"
#include "platform/controls/data_control.h"
#include "platform/values/text.h"

// Headings and cells.
namespace desktop {

using namespace platform;

void DesktopHands::HeadClick(Grid& grid, int column) {
  ListView& list = ListOf(grid);
  list.ScrollToColumn(column);
  const QRect heading = list.Header().HeadingRect(column);
  if (heading.isEmpty()) throw std::logic_error(grid.FullName() + " does not show the heading");
  input::Click(list.Header(), heading.center());
  Settle();
}

void DesktopHands::MoveColumn(Grid& grid, int column, int place) {
  ListView& list = ListOf(grid);
  list.ScrollToColumn(column);
  const QRect from = list.Header().HeadingRect(column);
  const QRect to = list.Header().HeadingRect(list.Columns().ColumnAt(place));
  if (from.isEmpty() || to.isEmpty()) throw std::logic_error(grid.FullName() + " does not show both places");
  input::Drag(list.Header(), from.center(), to.center());
  Settle();
}

/// Where a double click chooses the row, the key for editing opens the cell.
void DesktopHands::OpenCell(Grid& grid, ListView& list, int column, const QRect& cell) {
  if (grid.OpenCell() == column) return Settle();
  if (!grid.ChoosesRows()) {
    input::DoubleClick(*list.viewport(), cell.center());
    return Settle();
  }
  input::Click(*list.viewport(), cell.center());
  Settle();
  // A click that was refused, by a cell that stays open or a row that has gone, has left the cursor there, and the row elsewhere.
  if (grid.CursorColumn() == column && !grid.OpenCell()) Key(grid, "Ctrl+E");
}

void DesktopHands::DoubleClickCell(Grid& grid) {
  ListView& list = ListOf(grid);
  // Where no column is open the first one that is shown.
  const int column = grid.CursorColumn() >= 0 ? grid.CursorColumn() : grid.ColumnCount() > 0 ? list.Columns().ColumnAt(0) : -1;
  if (!grid.Data() || !grid.Data()->OnRecord() || column < 0) return Focus(grid);
  const std::int64_t ordinal = ScrollTo(list, grid, grid.CurrentBookmark());
  list.ScrollToColumn(column);
  const QRect cell = list.CellRect(ordinal, column);
  if (cell.isEmpty()) throw std::logic_error(grid.FullName() + " does not show the cell");
  // Beside the box of a check.
  input::DoubleClick(*list.viewport(), grid.Column(column).checkBox ? QPoint(cell.left() + 3, cell.center().y()) : cell.center());
  Settle();
}

void DesktopHands::Cell(Grid& grid, int column, std::string_view text) {
  ListView& list = ListOf(grid);
  const std::int64_t ordinal = ScrollTo(list, grid, grid.CurrentBookmark());
  list.ScrollToColumn(column);
  const QRect cell = list.CellRect(ordinal, column);
  if (cell.isEmpty()) throw std::logic_error(grid.FullName() + " does not show the cell");
  if (grid.Column(column).checkBox) {
    const bool on = grid.ShownText(column, grid.ColumnValue(column)) == "True";
    if (on != EqualsNoCase(text, "True")) input::Click(*list.viewport(), cell.center());
    return Settle();
  }
  OpenCell(grid, list, column, cell);
  list.Sync();
  CellEditor* editor = list.Editor();
  if (!editor) return;
  FormWindow& window = WindowOf(grid);
  input::Key(window, Qt::Key_A, Qt::ControlModifier);
  if (text.empty()) input::Key(window, Qt::Key_Delete, Qt::NoModifier, "\x7f");
  input::Type(window, ToShown(text));
  input::Key(window, Qt::Key_Return, Qt::NoModifier, "\r");
  Settle();
}

void DesktopHands::LeaveRow(Grid& grid) {
  Key(grid, "Shift+Enter");
  Settle();
}

}  // namespace desktop
