#pragma once

namespace orcussch {

/// How many failures have been reported since the program began: whoever started something sees by it whether all went well.
inline int gFailuresReported = 0;

}  // namespace orcussch
