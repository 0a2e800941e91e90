#pragma once

#include <functional>
#include <string>
#include <vector>

namespace suitefiles {

/// The files of a company that is looked through.
struct CheckedCompany {
  std::string customer;
  std::string ledger;
  std::string transactions;
  std::string flatRate;
};

/// What rows refer to and does not exist, in sentences, and values outside their range. `working` is called with the name of the
/// table that is looked through next.
std::vector<std::string> CheckReferences(const CheckedCompany& files, const std::function<void(const std::string&)>& working);

}  // namespace suitefiles
