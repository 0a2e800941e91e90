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
  const std::string Code = platform::UCase(platform::Left(Comparison, 1));
  const bool OpenStart = Code == "C" || Code == "E";
  const bool OpenEnd = Code != "X" && Code != "E";
  Where += std::string("Like '") + (OpenStart ? "*" : "") + Value + (OpenEnd ? "*" : "") + "')";
}

}  // namespace orcussch
