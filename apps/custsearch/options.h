#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/values/value.h"

namespace custsearch {

/// The command line was written wrongly: exit status 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class Task { Work, Scenario, Report, Help, Version };
enum class Front { Robot, Desktop };

/// What the command line says.
struct Options {
  Task task = Task::Work;
  std::string data = ".";            ///< the library's folder, a folder of the host
  std::optional<std::string> local;  ///< the local root, likewise
  std::int32_t company = 1;
  std::int32_t user = 1;
  std::optional<std::int32_t> customer;  ///< the account on which the list opens
  std::string billing;                   ///< "B", "N" or ""
  bool maintenanceOnly = false;
  bool json = false;
  bool windowsPaths = false;
  std::vector<std::string> drives;        ///< "C=DIR"
  std::string scenario;                   ///< a file, "-" for standard input
  std::string companies;                  ///< for scenarios: where "{DIR}/data/" lies instead, on a server
  Front front = Front::Robot;             ///< for scenarios
  std::string report;                     ///< place, file or name in the catalogue
  std::string to;                         ///< the file that the report goes into
  std::string customers = "all";          ///< "all", an account number or a condition
  std::vector<std::string> formulas;      ///< "Name=value"
  std::optional<platform::Date> date;     ///< what a report takes for today
  std::optional<std::int64_t> threshold;  ///< results up to this many rows are read at once; for tests
};

/// Reads the words behind the program's name. Raises UsageError.
Options ParseOptions(const std::vector<std::string>& words);

std::string HelpText();

}  // namespace custsearch
