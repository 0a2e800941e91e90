#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace suitefiles {

/// The command was written wrongly: exit status 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The command could not be carried out: exit status 1.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An option that a command takes.
struct OptionRule {
  std::string_view name;    ///< with its dashes
  bool takesValue = false;  ///< "--name VALUE" or "--name=VALUE"
};

/// A command's operands and options. "--" ends the options; "-" alone is an operand.
class CommandLine {
 public:
  /// Raises UsageError for an unknown option, a missing value and an option given twice.
  CommandLine(const std::vector<std::string>& arguments, std::initializer_list<OptionRule> rules);

  bool Has(std::string_view option) const { return options_.find(option) != options_.end(); }
  /// The value of an option, nothing when it was not given.
  std::optional<std::string> Value(std::string_view option) const;
  /// A whole number; UsageError when it is no number or out of range.
  std::optional<long long> Number(std::string_view option, long long lowest, long long greatest) const;
  /// As Number; UsageError when the option was not given.
  long long RequiredNumber(std::string_view option, long long lowest, long long greatest) const;

  const std::vector<std::string>& Operands() const { return operands_; }
  /// Exactly these operands; UsageError naming what is missing or too many.
  void ExpectOperands(std::initializer_list<std::string_view> names) const;

 private:
  std::vector<std::string> operands_;
  std::map<std::string, std::string, std::less<>> options_;
};

}  // namespace suitefiles
