#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

#include "desktop/list/list_act.h"
#include "desktop/list/list_copy.h"

// What leaves a list by the clipboard.
namespace desktop {

bool ListView::CopyKey(const QKeyEvent& event) {
  if (!event.matches(QKeySequence::Copy)) return false;
  CopyRows();
  return true;
}

void ListView::CopyCell(int column) {
  Sync();
  const ShownRow* row = grid_ && currentOrdinal_ ? rows_.At(*currentOrdinal_) : nullptr;
  if (!row || column < 0) return;
  Safely(Host(), [&] { QApplication::clipboard()->setText(CopiedCell(*grid_, column, row->row)); });
}

/// Marked rows in the order of their marking; with the window painted between them, since they may be many.
void ListView::CopyRows() {
  if (!grid_) return;
  Sync();
  const std::vector<int> shown = ShownColumns();
  Act([&](platform::Grid& grid) {
    std::vector<platform::Bookmark> rows = Marked();
    if (rows.empty() && grid.Data() && grid.Data()->OnRecord()) rows.push_back(grid.CurrentBookmark());
    if (rows.empty()) return;
    QString text = CopiedHeadings(grid, shown);
    constexpr int kRowsBetweenPaints = 256;
    int copied = 0;
    for (const platform::Bookmark& bookmark : rows) {
      platform::RowWindow* window = grid.Data()->Window();
      const auto row = window ? window->RowOf(bookmark) : std::nullopt;
      if (row) text += CopiedRow(grid, shown, *row);
      if (++copied % kRowsBetweenPaints == 0) Host().ServePainting();
    }
    QApplication::clipboard()->setText(text);
  });
}

}  // namespace desktop
