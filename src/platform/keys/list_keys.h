#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/controls/grid.h"

namespace platform {

/// What a key asks of a list.
enum class ListAct {
  None,  ///< the key is not the list's
  RowUp,
  RowDown,
  PageUp,
  PageDown,
  FirstRow,
  LastRow,
  CellLeft,
  CellRight,
  Enter,            ///< opens the cell, or chooses the row
  EditCell,         ///< opens the cell, or the next one that can be changed
  TurnCheck,        ///< turns the check of the cell over
  TakeCell,         ///< leaves the open cell
  TakeCellAndGoOn,  ///< the same, and goes to the next cell
  WriteRow,
  GiveUp,       ///< the open cell, or what is not written of the row
  InCell,       ///< the open cell's own
  Mark,         ///< marks the row, or takes its mark away
  MarkAndGoOn,  ///< the same, and goes to the next row
  MarkUp,       ///< goes there, and marks all from the row marked last
  MarkDown,
  MarkToFirst,
  MarkToLast,
  Search,  ///< begins a search with the character typed
};

struct ListKey {
  ListAct act = ListAct::None;
  int column = -1;  ///< of Enter, EditCell and TurnCheck; -1: there is no such cell
};

/// How a list is shown, for the keys whose effect hangs on it.
struct ListShown {
  std::vector<int> columns;  ///< those to be seen, from left to right
  int pageRows = 1;
  bool onFirstRow = false;  ///< the current row is the list's first
};

/// The meaning of a key in a list now. `columns`: those to be seen, from left to right.
ListKey ListKeyOf(const Grid& list, std::string_view key, std::span<const int> columns);

/// Does on the list's model what the key asks; the character of Search is for the caller to type into the search box.
void PerformListKey(Grid& list, const ListKey& key, const ListShown& shown);

/// Whether the cursor goes from cell to cell.
bool HasOpenColumns(const Grid& list);
/// The column so many places beside the cursor, as far as there are any.
int ColumnBesideCursor(const Grid& list, std::span<const int> columns, int step);
/// The search box, if letters typed in the list can go there now.
TextBox* OpenSearchBox(const Grid& list);

}  // namespace platform
