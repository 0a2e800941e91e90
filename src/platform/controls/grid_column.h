#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/values/value.h"

namespace platform {

/// One column of a grid, in its design order.
struct GridColumn {
  std::string caption;
  std::string dataField;
  std::string numberFormat;                               ///< display only
  std::vector<std::pair<Value, std::string>> valueItems;  ///< stored code and shown text
  bool checkBox = false;
  bool open = false;  ///< the user may edit its cells
  bool visible = true;
  int width = 0;          ///< first width in characters, 0: from the field
  bool percent = false;   ///< the number is a percentage, and is seen as one
  bool lastFour = false;  ///< of this number only the last four digits leave the list by copying
  int entryLimit = 0;     ///< characters that can be typed into a cell; 0: the field alone sets a limit
};

}  // namespace platform
