#pragma once

#include <string>

namespace orcussch {

/// The next number for a code: one more than the number in the greatest code of `statement`'s one field, "1" when there is none.
/// The greatest is that of the texts, so that "9" stands above "10". A failure is reported under the literal and gives "".
std::string NextCode(const char* literal, const char* statement, const char* field);

}  // namespace orcussch
