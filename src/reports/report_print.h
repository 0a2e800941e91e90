#pragma once

namespace orcussch {

class frmCustMain;

/// Prints or previews the report that belongs to the main screen's current tab, for the current customer. A tab without rows has
/// nothing to print, and nothing is said.
void ReportPrint(frmCustMain& screen, int Destination);

}  // namespace orcussch
