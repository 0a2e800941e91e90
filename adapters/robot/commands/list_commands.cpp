#include "platform/controls/lists.h"
#include "robot/commands/commands.h"
#include "robot/language/arguments.h"
#include "robot/language/failure.h"
#include "robot/runner/runner.h"
#include "robot/stage/lists.h"

namespace robot {
namespace {

using namespace platform;

Grid& UsableGrid(const Runner& run, const std::string& name) {
  Grid& grid = GridOf(run.ControlNamed(name));
  DemandUsable(run.App(), grid);
  return grid;
}

Outcome ChooseLine(Runner& run, ListBox& list, const Arguments& words) {
  DemandUsable(run.App(), list);
  const int line = words.Number(1);
  if (line < 0 || line >= static_cast<int>(list.Items().size())) throw Refused("no line " + words.Text(1));
  run.Hands().Choose(list, line);
  return Outcome::Done;
}

Outcome Row(Runner& run, const Arguments& words) {
  Control& control = run.ControlNamed(words.Text(0));
  if (auto* list = dynamic_cast<ListBox*>(&control)) return ChooseLine(run, *list, words);
  Grid& grid = UsableGrid(run, words.Text(0));
  DataControl& data = DataOf(grid);
  ListRow row;
  if (words.Count() == 2) {
    row = RowAt(RowsOf(data), words.Number(1));
  } else {
    if (words.Count() != 4 || !words.Is(1, "where")) throw ActionFailed("no N or where FIELD VALUE");
    row = FirstRowWith(data, words.Text(2), words.At(3));
  }
  run.Hands().Row(grid, row.bookmark);
  const bool there = data.OnRecord() && data.Recordset()->Bookmark() == row.bookmark;
  return there ? Outcome::Done : Outcome::StayedAsItWas;
}

Grid& MarkedGrid(const Runner& run, const std::string& name) {
  Grid& grid = UsableGrid(run, name);
  if (!grid.MarksRows()) throw Refused(name + " a list that marks no rows");
  return grid;
}

Outcome Mark(Runner& run, const Arguments& words) {
  Grid& grid = MarkedGrid(run, words.Text(0));
  std::vector<Bookmark> rows;
  for (std::size_t i = 1; i < words.Count(); ++i) rows.push_back(RowAt(RowsOf(DataOf(grid)), words.Number(i)).bookmark);
  run.Hands().Mark(grid, rows);
  return Outcome::Done;
}

Outcome Unmark(Runner& run, const Arguments& words) {
  run.Hands().Mark(MarkedGrid(run, words.Text(0)), {});
  return Outcome::Done;
}

Outcome Head(Runner& run, const Arguments& words) {
  Grid& grid = UsableGrid(run, words.Text(0));
  run.Hands().HeadClick(grid, ColumnWith(grid, words.Text(1)));
  return Outcome::Done;
}

Outcome Column(Runner& run, const Arguments& words) {
  Grid& grid = UsableGrid(run, words.Text(0));
  if (!words.Is(2, "to")) throw ActionFailed("no CAPTION to N");
  const int place = words.Number(3);
  if (place < 0 || place >= grid.ColumnCount()) throw ActionFailed("no place " + words.Text(3));
  run.Hands().MoveColumn(grid, ColumnWith(grid, words.Text(1)), place);
  return Outcome::Done;
}

Outcome Cell(Runner& run, const Arguments& words) {
  Grid& grid = UsableGrid(run, words.Text(0));
  const int column = ColumnWith(grid, words.Text(1));
  if (!grid.Column(column).open) throw Refused("the column " + words.Text(1) + " closed");
  if (!DataOf(grid).OnRecord()) throw Refused(words.Text(0) + " on no row");
  run.Hands().Cell(grid, column, words.Text(2));
  return grid.OpenCell() ? Outcome::StayedAsItWas : Outcome::Done;
}

Outcome Leave(Runner& run, const Arguments& words) {
  Grid& grid = UsableGrid(run, words.Text(0));
  run.Hands().LeaveRow(grid);
  return grid.OpenCell() || grid.DataChanged() ? Outcome::StayedAsItWas : Outcome::Done;
}

/// A column by its caption, else by its design index.
int ColumnNamedOrNumbered(const Grid& grid, const Arguments& words, std::size_t index) {
  for (int column = 0; column < grid.ColumnCount(); ++column)
    if (grid.Column(column).caption == words.Text(index)) return column;
  const int column = words.Number(index);
  if (column < 0 || column >= grid.ColumnCount()) throw ActionFailed("no column " + words.Text(index));
  return column;
}

Outcome Scroll(Runner& run, const Arguments& words) {
  Grid& grid = UsableGrid(run, words.Text(0));
  const int split = words.Number(1);
  if (split < 0 || split >= grid.SplitCount()) throw ActionFailed("no split " + words.Text(1));
  run.Hands().Scroll(grid, split, ColumnNamedOrNumbered(grid, words, 2));
  return Outcome::Done;
}

}  // namespace

CommandList ListCommands() {
  constexpr auto kAct = CommandKind::Act;
  return {
      {"row", 2, 4, kAct, Row},       {"mark", 2, kAnyNumber, kAct, Mark}, {"unmark", 1, 1, kAct, Unmark}, {"head", 2, 2, kAct, Head},
      {"column", 4, 4, kAct, Column}, {"cell", 3, 3, kAct, Cell},          {"leave", 1, 1, kAct, Leave},   {"scroll", 3, 3, kAct, Scroll},
  };
}

}  // namespace robot
