#pragma once

#include <vector>

#include "company.h"
#include "main_screen.h"
#include "measure.h"
#include "raw/records.h"

namespace bench {

/// The two sides of the jobs on the main screen.
struct ScreenSides {
  Company& company;
  raw::Records& bare;
  orcussch::frmCustMain& screen;
  WatchedFrontEnd& windows;
};

/// Saving an edited customer: from the key on the card to the list on the row again.
std::vector<Job> SaveJobs(const ScreenSides& sides);
/// Opening the map codes' screen, and a save there.
std::vector<Job> SetupJobs(const ScreenSides& sides);
/// Opening the tax setup on large tables, and saves there.
std::vector<Job> TaxJobs(const ScreenSides& sides);
/// Entering the tabs of types and key words, selecting and assigning all their rows.
std::vector<Job> AssignmentJobs(const ScreenSides& sides);

/// How long the user waits for a yield while a bulk command runs.
struct YieldRow {
  std::string command;
  int yields = 0;
  double worstGap = 0, rareGap = 0, worstWork = 0;  ///< milliseconds; the last by processor time
};
std::vector<YieldRow> YieldsOfBulkCommands(const ScreenSides& sides);

}  // namespace bench
