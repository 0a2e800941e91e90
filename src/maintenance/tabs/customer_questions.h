#pragma once

#include <cstdint>
#include <string>

#include "platform/data/data.h"
#include "session/failures.h"

namespace platform {
class Application;
}

namespace orcussch {

/// An address as it was typed.
struct TypedAddress {
  std::string Addr1, Addr2, City, State;
};

/// The question about the customers that have the address already, and how many they are; "" and 0 for none. The address goes into
/// the statement as it was typed: one with an apostrophe makes it fail, which is reported, and the save goes on without the question.
std::string CountDuplicates(platform::Application& App, ResumeNext& on, const TypedAddress& Address, std::int16_t& Count);

/// A customer's departmental rates, while he is asked about and given up.
platform::RecordsetRef OpenLaborRates(std::int32_t Acct);
/// Deletes them, one by one.
void DeleteRates(platform::Application& App, ResumeNext& on, const platform::RecordsetRef& Rates);

/// How many transactions of the customer's there are; 0 where they can't be read, which is reported.
std::int32_t CountTransactions(platform::Application& App, ResumeNext& on, const std::string& Acct);

}  // namespace orcussch
