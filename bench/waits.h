#pragma once

#include <cstddef>
#include <string>

#include "company.h"

namespace bench {

/// Runs the jobs that look at every row `rounds` times each and tells, as a Markdown table, how long the windows have to
/// wait in them until they can paint: the longest stretch without painting served.
std::string WaitTable(Company& company, std::size_t rounds);

}  // namespace bench
