#include "suitefiles/program/command_line.h"

#include <algorithm>
#include <charconv>

namespace suitefiles {

CommandLine::CommandLine(const std::vector<std::string>& arguments, std::initializer_list<OptionRule> rules) {
  bool optionsOver = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& word = arguments[i];
    if (optionsOver || word.size() < 2 || word[0] != '-') {
      operands_.push_back(word);
      continue;
    }
    if (word == "--") {
      optionsOver = true;
      continue;
    }
    const auto sign = word.find('=');
    const std::string name = word.substr(0, sign);
    const auto rule = std::find_if(rules.begin(), rules.end(), [&](const OptionRule& each) { return each.name == name; });
    if (rule == rules.end()) throw UsageError("unknown option " + name);
    std::string value;
    if (rule->takesValue && sign != std::string::npos) {
      value = word.substr(sign + 1);
    } else if (rule->takesValue) {
      if (i + 1 == arguments.size()) throw UsageError("option " + name + " needs a value");
      value = arguments[++i];
    } else if (sign != std::string::npos) {
      throw UsageError("option " + name + " takes no value");
    }
    if (!options_.emplace(name, value).second) throw UsageError("option " + name + " is given twice");
  }
}

std::optional<std::string> CommandLine::Value(std::string_view option) const {
  const auto found = options_.find(option);
  if (found == options_.end()) return std::nullopt;
  return found->second;
}

std::optional<long long> CommandLine::Number(std::string_view option, long long lowest, long long greatest) const {
  const auto text = Value(option);
  if (!text) return std::nullopt;
  long long number = 0;
  const auto end = text->data() + text->size();
  const auto [stop, problem] = std::from_chars(text->data(), end, number);
  if (problem != std::errc{} || stop != end || number < lowest || number > greatest) {
    throw UsageError("option " + std::string(option) + " needs a whole number from " + std::to_string(lowest) + " to " +
                     std::to_string(greatest) + ", not \"" + *text + "\"");
  }
  return number;
}

long long CommandLine::RequiredNumber(std::string_view option, long long lowest, long long greatest) const {
  const auto number = Number(option, lowest, greatest);
  if (!number) throw UsageError("option " + std::string(option) + " is missing");
  return *number;
}

void CommandLine::ExpectOperands(std::initializer_list<std::string_view> names) const {
  if (operands_.size() < names.size()) throw UsageError(std::string(*(names.begin() + operands_.size())) + " is missing");
  if (operands_.size() > names.size()) throw UsageError("\"" + operands_[names.size()] + "\" is one word too many");
}

}  // namespace suitefiles
