#pragma once

#include <string>

namespace orcussch {

/// The criterion for what a user types to find an account, in words that must all fit: figures begin the account's number ("220",
/// "22000-1" and "220001" with the department behind it) or stand in its description, letters stand in the account's or the
/// department's description. "" for nothing typed. It is about the ledger's tables GL, Accounts and Departments.
std::string AccountCriterion(const std::string& typed);

}  // namespace orcussch
