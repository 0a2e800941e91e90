#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/services/error_log.h"

namespace suite {

inline constexpr std::int64_t kGreatestLog = 4LL << 20U;

/// The suite's error log as a text file: a line a record, fields separated by tabs: time, process, then "name=value" for
/// company, terminate, application, module, user, error, description.
std::unique_ptr<platform::ErrorLog> MakeErrorLog(const std::string& hostPath, std::int64_t greatestSize = kGreatestLog);

/// The support log: time, process, level, text; card numbers are masked.
std::unique_ptr<platform::DiagnosticLog> MakeDiagnosticLog(const std::string& hostPath,
                                                           platform::LogLevel lowest = platform::LogLevel::Information,
                                                           std::int64_t greatestSize = kGreatestLog);

}  // namespace suite
