#include "library/host_accounts.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "platform/values/convert.h"
#include "platform/values/error.h"
#include "platform/values/text.h"

namespace library {
namespace {

using platform::AccountsLookupInput;
using platform::CLng;

/// The places of the named values; what follows goes into `more`.
enum Place : std::size_t { CompanyName, User, Company, Year, Kind, First };

template <std::size_t Size>
std::string Text(const char (&text)[Size], const char* what) {
  const char* const end = std::find(std::begin(text), std::end(text), '\0');
  const auto whole = end == std::end(text) ? std::nullopt : platform::Normalise({text, static_cast<std::size_t>(end - text)});
  if (!whole)
    throw platform::Error(platform::error::number::InvalidCall, std::string("The accounts look-up gave no valid text for ") + what + ".");
  return *whole;
}

orcussch_accounts_request RequestOf(const AccountsLookupInput& input, const std::string& companyName) {
  orcussch_accounts_request request{};
  request.company_name = companyName.c_str();
  request.user = CLng(input[User]);
  request.company = CLng(input[Company]);
  request.year = CLng(input[Year]);
  request.kind = CLng(input[Kind]);
  for (std::size_t i = First; i < input.size(); ++i) request.more[i - First] = CLng(input[i]);
  return request;
}

}  // namespace

AccountsCall HostAccounts(orcussch_accounts_lookup lookup, void* data) {
  if (!lookup) return {};
  return [lookup, data](const AccountsLookupInput& input) -> platform::ChosenAccount {
    const std::string companyName = platform::CStr(input[CompanyName]);
    const orcussch_accounts_request request = RequestOf(input, companyName);
    orcussch_account account{};
    if (lookup(data, &request, &account) == 0) return {};
    return {true, Text(account.account, "the account"), Text(account.department, "the department"),
            Text(account.account_text, "the account's description"), Text(account.department_text, "the department's description")};
  };
}

}  // namespace library
