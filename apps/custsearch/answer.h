#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace custsearch {

/// What the host reads when the screen is closed.
struct Answer {
  std::int32_t customer = 0;                               ///< the account number, 0 when nobody was chosen
  std::vector<std::pair<std::string, std::string>> texts;  ///< the customer's, by property, in their order
};

/// The properties of the texts: CustomerLastName to CustomerZip.
const std::vector<std::string>& AnswerTexts();

/// "Customer=17" a line; control characters in a text become blanks.
void PrintAnswer(const Answer& answer, std::ostream& out);
/// The same as one JSON object on one line.
void PrintAnswerAsJson(const Answer& answer, std::ostream& out);

}  // namespace custsearch
