#pragma once

namespace orcussch {

/// Tells the session and the main screen which screens there are: both show screens that stand above them, and know of them only
/// an opener. Called before the first CustSearch; once more does no harm.
void ConnectScreens();

}  // namespace orcussch
