#pragma once

#include <functional>
#include <vector>

#include "platform/data/data.h"
#include "session/failures.h"

namespace orcussch {

using Keys = std::vector<platform::Value>;
enum class Search { Found, Missing, Failed };

/// Looks a row up by its keys in the table itself, apart from any list. A search that fails has been reported: nothing is known
/// of the row then, so nothing is written and nobody is told that it is gone.
Search Find(ResumeNext& on, const platform::RecordsetRef& Table, const char* Index, const std::function<Keys()>& keys);

}  // namespace orcussch
