#pragma once

#include <functional>
#include <string>

#include "platform/values/value.h"

namespace platform {

class ToolbarButton;

/// A command for one row of a list, for its menu: a key of the screen's toolbar, which knows whether it is open.
struct RowCommand {
  std::string caption;
  ToolbarButton* key = nullptr;
  bool chosen = false;  ///< Enter and a double click do the first of these that is open
};

/// A row that stands out in its list for what it is to others: the customer's default phone.
struct RowEmphasis {
  std::string text;            ///< "Default Phone Number"
  std::function<Value()> key;  ///< the number of the row now; Null or 0: there is none
};

}  // namespace platform
