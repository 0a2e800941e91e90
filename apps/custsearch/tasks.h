#pragma once

#include <string>

#include "custsearch/options.h"

namespace custsearch {

/// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;
inline constexpr int kNoneSelected = 3;

/// The screens for a user at the keyboard; prints the answer.
int Work(const Options& options);
/// A report of the catalogue into a file.
int RunReport(const Options& options);
/// A scripted user. `program` is this program's own file, beside which the other programs of the suite lie.
int RunScenario(const Options& options, const std::string& program);

}  // namespace custsearch
