#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/data_control.h"
#include "platform/controls/grid.h"
#include "robot/language/words.h"

namespace robot {

/// The grid itself, or the one that is bound to a data control; raises ActionFailed for anything else.
platform::Grid& GridOf(platform::Control& control);
/// The data control itself, or the grid's.
platform::DataControl& DataOf(platform::Control& control);
/// The list's rows; raises Refused when it has none to show because it was never opened.
platform::RowWindow& RowsOf(platform::DataControl& data);

/// How many rows the list holds, counted to the end; the current row stays.
std::int64_t CountRows(platform::RowWindow& rows);
/// Row `ordinal` from 0; raises Refused when the list is shorter.
platform::ListRow RowAt(platform::RowWindow& rows, int ordinal);
/// The first row whose field has that value; raises Refused when there is none, ActionFailed for an unknown field.
platform::ListRow FirstRowWith(platform::DataControl& data, const std::string& field, const Word& value);

/// The column with that caption, by its design index; raises ActionFailed when there is none.
int ColumnWith(const platform::Grid& grid, const std::string& caption);
/// The shown text of a cell of that row; the current row shows what is not yet written.
std::string CellText(platform::Grid& grid, int column, const platform::ListRow& row);

}  // namespace robot
