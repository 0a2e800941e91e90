#include "platform/keys/list_keys.h"

#include <algorithm>

#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/text_box.h"
#include "platform/keys/key.h"

namespace platform {
namespace {

struct NamedAct {
  std::string_view key;
  ListAct act;
};

constexpr NamedAct kRowKeys[] = {
    {"Up", ListAct::RowUp},           {"Down", ListAct::RowDown},     {"PageUp", ListAct::PageUp},      {"PageDown", ListAct::PageDown},
    {"Home", ListAct::FirstRow},      {"End", ListAct::LastRow},      {"Left", ListAct::CellLeft},      {"Right", ListAct::CellRight},
    {"Ctrl+Home", ListAct::FirstRow}, {"Ctrl+End", ListAct::LastRow}, {"Ctrl+Left", ListAct::CellLeft}, {"Ctrl+Right", ListAct::CellRight},
};

constexpr NamedAct kRangeKeys[] = {
    {"Shift+Up", ListAct::MarkUp},
    {"Shift+Down", ListAct::MarkDown},
    {"Shift+Home", ListAct::MarkToFirst},
    {"Shift+End", ListAct::MarkToLast},
};

constexpr NamedAct kOpenCellKeys[] = {
    {"Enter", ListAct::TakeCell},       {"Tab", ListAct::TakeCellAndGoOn}, {"Shift+Tab", ListAct::TakeCellAndGoOn},
    {"Shift+Enter", ListAct::WriteRow}, {"Escape", ListAct::GiveUp},       {"Left", ListAct::InCell},
    {"Right", ListAct::InCell},         {"Home", ListAct::InCell},         {"End", ListAct::InCell},
    {"Backspace", ListAct::InCell},     {"Delete", ListAct::InCell},       {"Insert", ListAct::InCell},
};

ListAct ActOf(std::span<const NamedAct> keys, std::string_view key) {
  const auto found = std::find_if(keys.begin(), keys.end(), [&](const NamedAct& named) { return named.key == key; });
  return found == keys.end() ? ListAct::None : found->act;
}

bool IsMarkKey(std::string_view key, std::string_view plain) { return key.ends_with(plain) && key != "Alt+Space"; }

bool IsOpenCheck(const Grid& list, int column) {
  return column >= 0 && column < list.ColumnCount() && list.Column(column).open && list.Column(column).checkBox;
}

void TurnCheck(Grid& list, int column) {
  if (!list.UserOpenCell(column)) return;
  list.UserCellText(list.OpenText() == "True" ? "False" : "True");
  list.UserCloseCell();
}

/// One row's mark is turned over, the others stay.
void TurnMark(Grid& list) {
  if (list.Data() == nullptr || !list.Data()->OnRecord()) return;
  const Bookmark row = list.CurrentBookmark();
  std::vector<Bookmark> marked = list.SelBookmarks.All();
  const auto found = std::find(marked.begin(), marked.end(), row);
  if (found == marked.end()) {
    marked.push_back(row);
    list.MarkAnchor(row);
  } else {
    marked.erase(found);
  }
  list.UserMark(std::move(marked));
}

/// Moves, and marks from the row marked last to the one that is current then.
template <class Move>
void MarkOn(Grid& list, Move&& move) {
  list.Owner().Act([&] {
    if (list.Data() == nullptr || !list.Data()->OnRecord()) return;
    const Bookmark from = list.CurrentBookmark();
    move();
    list.UserMarkRange(from);
  });
}

void GoToCellBeside(Grid& list, std::span<const int> columns, int step) {
  if (HasOpenColumns(list) && !columns.empty()) list.CursorColumn(ColumnBesideCursor(list, columns, step));
}

/// The box above the list is the way back from its first row.
void GoUp(Grid& list, bool onFirstRow) {
  if (!onFirstRow) return list.UserMove(-1);
  if (TextBox* box = OpenSearchBox(list)) list.Owner().UserFocus(*box);
}

}  // namespace

ListKey ListKeyOf(const Grid& list, std::string_view key, std::span<const int> columns) {
  if (list.OpenCell()) {
    if (const ListAct act = ActOf(kOpenCellKeys, key); act != ListAct::None) return {act};
    if (!TypedBy(key).empty()) return {ListAct::InCell};
  }
  if (const ListAct act = ActOf(kRangeKeys, key); act != ListAct::None && list.MarksByClick()) return {act};
  if (const ListAct act = ActOf(kRowKeys, WithoutShift(key)); act != ListAct::None) return {act};
  if (key == "Enter") return {ListAct::Enter, list.CursorColumn()};
  if (key == "Shift+Enter") return {ListAct::WriteRow};
  if (key == "Escape") return {list.DataChanged() ? ListAct::GiveUp : ListAct::None};
  if (key == "Ctrl+E") return {ListAct::EditCell, list.CellToEdit(columns).value_or(-1)};
  if (key == "Space" && IsOpenCheck(list, list.CursorColumn())) return {ListAct::TurnCheck, list.CursorColumn()};
  if (list.MarksRows() && IsMarkKey(key, "Space")) return {ListAct::Mark};
  if (list.MarksRows() && IsMarkKey(key, "Insert")) return {ListAct::MarkAndGoOn};
  const std::string typed = TypedBy(key);
  const bool begins = !typed.empty() && typed != " " && typed != "/" && OpenSearchBox(list) != nullptr;
  return {begins ? ListAct::Search : ListAct::None};
}

void PerformListKey(Grid& list, const ListKey& key, const ListShown& shown) {
  switch (key.act) {
    case ListAct::RowUp:
      return GoUp(list, shown.onFirstRow);
    case ListAct::RowDown:
      return list.UserMove(1);
    case ListAct::PageUp:
      return list.UserMove(-shown.pageRows);
    case ListAct::PageDown:
      return list.UserMove(shown.pageRows);
    case ListAct::FirstRow:
      return list.UserFirst();
    case ListAct::LastRow:
      return list.UserLast();
    case ListAct::CellLeft:
    case ListAct::CellRight:
      return GoToCellBeside(list, shown.columns, key.act == ListAct::CellLeft ? -1 : 1);
    case ListAct::Enter:
      // The cell may have been opened by a key that came before.
      if (list.OpenCell()) {
        list.UserCloseCell();
      } else {
        list.UserEnter(key.column);
      }
      return;
    case ListAct::EditCell:
      if (key.column >= 0) list.UserOpenCell(key.column);
      return;
    case ListAct::TurnCheck:
      return TurnCheck(list, key.column);
    case ListAct::TakeCell:
      list.UserCloseCell();
      return;
    case ListAct::TakeCellAndGoOn:
      return list.Owner().Act([&] {
        if (list.UserCloseCell()) GoToCellBeside(list, shown.columns, 1);
      });
    case ListAct::WriteRow:
      return list.UserLeaveRow();
    case ListAct::GiveUp:
      return list.UserEscape();
    case ListAct::Mark:
      return TurnMark(list);
    case ListAct::MarkAndGoOn:
      return list.Owner().Act([&] {
        TurnMark(list);
        list.UserMove(1);
      });
    case ListAct::MarkUp:
      return MarkOn(list, [&] { list.UserMove(-1); });
    case ListAct::MarkDown:
      return MarkOn(list, [&] { list.UserMove(1); });
    case ListAct::MarkToFirst:
      return MarkOn(list, [&] { list.UserFirst(); });
    case ListAct::MarkToLast:
      return MarkOn(list, [&] { list.UserLast(); });
    case ListAct::None:
    case ListAct::InCell:
    case ListAct::Search:
      return;
  }
}

bool HasOpenColumns(const Grid& list) {
  for (int column = 0; column < list.ColumnCount(); ++column)
    if (list.Column(column).open) return true;
  return false;
}

int ColumnBesideCursor(const Grid& list, std::span<const int> columns, int step) {
  const auto at = std::find(columns.begin(), columns.end(), list.CursorColumn());
  const auto place = at == columns.end() ? 0 : static_cast<int>(at - columns.begin());
  return columns[static_cast<std::size_t>(std::clamp(place + step, 0, static_cast<int>(columns.size()) - 1))];
}

TextBox* OpenSearchBox(const Grid& list) {
  TextBox* box = list.SearchBox();
  return box != nullptr && box->OpenToUser() ? box : nullptr;
}

}  // namespace platform
