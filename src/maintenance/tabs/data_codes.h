#pragma once

#include <cstdint>

namespace orcussch {

/// The code of the next customer type. Codes count from 1; the highest one plus one, gaps are not used again. 0 after a failure,
/// which is reported.
std::int16_t NextDataCode();

}  // namespace orcussch
