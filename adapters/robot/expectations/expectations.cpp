#include "robot/expectations/expectations.h"

#include <algorithm>

#include "platform/values/text.h"

namespace robot {
namespace {

const ExpectationList& All() {
  static const ExpectationList all = [] {
    ExpectationList list;
    for (const ExpectationList& part :
         {ValueExpectations(), ScreenExpectations(), ListExpectations(), RecordExpectations(), ReportExpectations(), DoubleExpectations()})
      list.insert(list.end(), part.begin(), part.end());
    return list;
  }();
  return all;
}

const ExpectationDefinition* Named(std::string_view name) {
  const auto found = std::find_if(All().begin(), All().end(), [&](const auto& one) { return platform::EqualsNoCase(one.name, name); });
  return found == All().end() ? nullptr : &*found;
}

}  // namespace

const ExpectationDefinition& FindExpectation(const Arguments& words, std::size_t& taken) {
  taken = 0;
  if (words.Count() == 0 || words.At(0).quoted || words.Text(0).empty()) return *Named("");
  if (words.Count() > 1) {
    if (const auto* two = Named(words.Text(0) + " " + words.Text(1))) {
      taken = 2;
      return *two;
    }
  }
  if (const auto* one = Named(words.Text(0))) {
    taken = 1;
    return *one;
  }
  return *Named("");
}

}  // namespace robot
