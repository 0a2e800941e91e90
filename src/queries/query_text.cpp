#include "queries/query_text.h"

#include "platform/values/convert.h"

namespace orcussch {

void TestWhere(std::string& Where) {
  if (Where.empty()) {
    Where = " WHERE ";
  } else {
    Where += " AND ";
  }
}

void SQLOperator(std::string& Where, const std::string& Value, const std::string& Comparison) {
  const std::string code = platform::UCase(platform::Left(Comparison, 1));
  const bool openStart = code == "C" || code == "E";
  const bool openEnd = code != "X" && code != "E";
  Where += std::string("Like '") + (openStart ? "*" : "") + Value + (openEnd ? "*" : "") + "')";
}

}  // namespace orcussch
