#pragma once

#include <memory>

#include "engine/lists/row_list.h"

namespace engine {

/// The strategy for a dynaset's rows, chosen once at opening: all keys read, or pages in index order.
std::shared_ptr<RowList> ChooseList(const std::shared_ptr<RowSource>& source);

}  // namespace engine
