#pragma once

#include <ostream>

#include "session/CustSearch.h"

namespace custsearch {

/// The answer's nine properties, "Customer=17" a line; control characters in a text become blanks.
void PrintAnswer(const orcussch::CustSearch& host, std::ostream& out);
/// The same as one JSON object on one line.
void PrintAnswerAsJson(const orcussch::CustSearch& host, std::ostream& out);

}  // namespace custsearch
