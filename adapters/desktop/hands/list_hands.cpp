#include <QLineEdit>

#include "desktop/hands/desktop_hands.h"
#include "desktop/hands/input.h"
#include "desktop/list/cell_editor.h"
#include "desktop/list/list_header.h"
#include "desktop/list/list_view.h"
#include "platform/text.h"

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
  if (grid.OpenCell() != column) input::DoubleClick(*list.viewport(), cell.center());
  Settle();
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
