#pragma once

#include <string_view>
#include <vector>

#include "robot/language/arguments.h"
#include "robot/language/vocabulary.h"

namespace robot {

class Runner;

/// What may stand behind `expect`: a word (or two: "not said"), how many words follow, and what it demands. The one without a
/// name is a control's value.
struct ExpectationDefinition {
  std::string_view name;
  int least = 0;
  int most = 0;
  void (*handler)(Runner&, const Arguments&) = nullptr;
};
using ExpectationList = std::vector<ExpectationDefinition>;

/// The definition for the words behind "expect"; `taken` becomes the number of words that name it (0: a control's value).
const ExpectationDefinition& FindExpectation(const Arguments& words, std::size_t& taken);

ExpectationList ValueExpectations();
ExpectationList ScreenExpectations();
ExpectationList ListExpectations();
ExpectationList RecordExpectations();
ExpectationList ReportExpectations();
ExpectationList DoubleExpectations();

}  // namespace robot
