#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data/data.h"
#include "platform/services/accounts_lookup.h"
#include "platform/services/readable_reports.h"
#include "platform/values/value.h"

namespace robot {

/// The object that a host program works with: the session's public class.
class HostObject {
 public:
  virtual ~HostObject() = default;
  /// nothing for a property that the object does not have.
  virtual std::optional<platform::Value> Get(std::string_view property) const = 0;
  /// false for a property that the object does not have.
  virtual bool Let(std::string_view property, const platform::Value& value) = 0;
  virtual void ShowUser() = 0;
};

/// What a scenario reaches beyond the screens. Whoever runs scenarios fills it in; a part that stays empty makes the commands
/// that need it fail.
struct Surroundings {
  std::string directory;     ///< the data folder, {DIR}
  std::string companies;     ///< where "{DIR}/data/" and data files beside it lie instead, with a separator at its end; "" for there
  std::string localRoot;     ///< the local root, {LOCAL}
  std::int32_t company = 1;  ///< for `other` and `expect value` before a `host CompanyID`
  std::int32_t user = 0;     ///< the same for `temp`

  std::function<std::unique_ptr<HostObject>()> makeHost;
  std::function<std::optional<platform::Value>(std::string_view)> sessionValue;
  std::function<std::optional<bool>()> toolbarReady;

  /// Where the program finds that file of a company; the temporary file of a user.
  std::function<std::string(std::int32_t company, std::string_view file)> dataPath;
  std::function<std::string(std::int32_t user)> tempPath;
  /// The program's own list of accounts.
  std::function<platform::ChosenAccount(const platform::AccountsLookupInput&)> accounts;
  /// The real reports, and what they show.
  std::function<std::unique_ptr<platform::ReadableReports>()> makeReports;
  /// Another program's look at the files.
  std::function<std::unique_ptr<platform::DataEngine>()> makeEngine;
  std::function<void(const std::string& path, const std::string& table)> dropTable;
  /// Runs a program of the suite and returns its exit status; nothing when there is no such program.
  std::function<std::optional<int>(const std::vector<std::string>& words)> runProgram;
};

}  // namespace robot
