#pragma once

#include <QString>
#include <vector>

#include "platform/controls/grid.h"

namespace desktop {

/// One cell as it is seen, without line ends and tabs. Of a card number only the last four digits.
QString CopiedCell(const platform::Grid& grid, int column, const platform::ListRow& row);
/// The headings of these columns and the cells of a row, with a tab between them and a line end behind, as spreadsheets take them.
QString CopiedHeadings(const platform::Grid& grid, const std::vector<int>& columns);
QString CopiedRow(const platform::Grid& grid, const std::vector<int>& columns, const platform::ListRow& row);

}  // namespace desktop
