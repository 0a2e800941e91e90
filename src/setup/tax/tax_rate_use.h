#pragma once

#include <cstdint>

namespace orcussch {

/// Whether a customer is taxed at that rate. Raises what the file raises.
bool CustomersHaveTax(std::int32_t TaxID);

/// Whether the company's price book uses the rate. Raises also when there is no price book.
bool FlatRateHasTax(std::int32_t TaxID);

}  // namespace orcussch
