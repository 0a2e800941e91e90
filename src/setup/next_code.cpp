#include "setup/next_code.h"

#include "platform/values/convert.h"
#include "session/ModCustSch.h"
#include "session/failures.h"

namespace orcussch {

std::string NextCode(const char* literal, const char* statement, const char* field) {
  std::string next;
  Trap(literal, [&] {
    const platform::RecordsetRef greatest = dbCustomer->OpenRecordset(statement);
    std::int32_t number = 0;
    if (greatest->HasRows()) {
      const platform::Value code = greatest->Field(field);
      if (!code.IsNull()) number = platform::CInt(platform::Val(code));
    }
    greatest->Close();
    next = std::to_string(platform::CInt(platform::Value(number + 1)));
  });
  return next;
}

}  // namespace orcussch
