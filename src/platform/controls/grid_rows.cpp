#include <algorithm>

#include "platform/controls/data_control.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/controls/grid.h"
#include "platform/controls/toolbar.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/format.h"

// What the user does with a row as a whole, and what of it stands out.
namespace platform {

std::string Grid::SeenText(int column, const Value& value) const {
  if (!Column(column).percent || value.IsNull() || value.IsEmpty()) return ShownText(column, value);
  return Format(value, "0.00##\\%", Owner().Host().ThisYear());
}

void Grid::Emphasize(std::string keyField, std::vector<RowEmphasis> rows) {
  emphasisField_ = std::move(keyField);
  emphasis_ = std::move(rows);
}

std::vector<std::pair<std::int32_t, std::string>> Grid::Emphasized() const {
  std::vector<std::pair<std::int32_t, std::string>> found;
  for (const RowEmphasis& emphasis : emphasis_) {
    try {
      const Value key = emphasis.key();
      if (!key.IsNull() && !key.IsEmpty() && CLng(key) != 0) found.emplace_back(CLng(key), emphasis.text);
    } catch (const Error&) {
      // The row that would tell can't be read, or lacks the field: nothing stands out.
    }
  }
  return found;
}

void Grid::UserSort(int column, bool descending) {
  if (!Sort.HasHandler()) return UserHeadClick(column);
  Act([&] {
    if (!TakeOpenCell()) return;
    SetFocus();
    Sort.Fire(column, descending);
  });
}

bool Grid::UserEnter(int column) {
  const bool cell = column >= 0 && column < ColumnCount() && Column(column).open && !Column(column).checkBox;
  return cell && !choosesRows_ ? UserOpenCell(column) : UserChooseRow();
}

bool Grid::UserChooseRow() {
  const auto open = std::find_if(rowCommands_.begin(), rowCommands_.end(),
                                 [](const RowCommand& command) { return command.chosen && command.key->OpenToUser(); });
  if (open == rowCommands_.end() || !data_ || !data_->OnRecord()) return false;
  open->key->UserClick();  // the screen may be gone now
  return true;
}

int Grid::CursorColumn() const {
  if (cursor_ >= 0) return cursor_;
  for (int column = 0; column < ColumnCount(); ++column)
    if (Column(column).open) return column;
  return -1;
}

std::optional<int> Grid::CellToEdit(std::span<const int> columns) const {
  const auto typed = [this](int column) { return Column(column).open && !Column(column).checkBox; };
  const auto at = std::find(columns.begin(), columns.end(), CursorColumn());
  auto found = std::find_if(at, columns.end(), typed);
  if (found == columns.end()) found = std::find_if(columns.begin(), at, typed);
  return found == columns.end() || !typed(*found) ? std::nullopt : std::optional(*found);
}

}  // namespace platform
