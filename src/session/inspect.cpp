#include "session/inspect.h"

#include "platform/values/text.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::Value;

namespace {

struct Known {
  const char* name;
  Value (*read)();
};

#define KNOWN(variable)                       \
  {                                           \
#variable, [] { return Value(variable); } \
  }

const Known kKnown[] = {
    KNOWN(gUserID),           KNOWN(gCompanyID),         KNOWN(gDefaultTerms),
    KNOWN(gAddPhone),         KNOWN(gRightsMask),        KNOWN(gBillingStatus),
    KNOWN(gNonSelection),     KNOWN(gHostAcctNum),       KNOWN(gSelAcctNum),
    KNOWN(gCustomerLastName), KNOWN(gCustomerFirstName), KNOWN(gCustomerTitle),
    KNOWN(gCustomerAddr1),    KNOWN(gCustomerAddr2),     KNOWN(gCustomerCity),
    KNOWN(gCustomerState),    KNOWN(gCustomerZip),       KNOWN(gQuerySQL),
    KNOWN(gFirstActivate),    KNOWN(gCustomerPath),      KNOWN(gARTransPath),
    KNOWN(gGLPath),           KNOWN(gTempPath),          KNOWN(gTempDir),
    KNOWN(gSysModsDir),       KNOWN(gUpdateDir),         KNOWN(gIniPath),
    KNOWN(gWorkspaceName),    KNOWN(gFilesOpen),         KNOWN(gCompany.CompName),
    KNOWN(gCompany.Addr1),    KNOWN(gCompany.Addr2),     KNOWN(gCompany.City),
    KNOWN(gCompany.State),    KNOWN(gCompany.Zip),       KNOWN(gCompany.Country),
    KNOWN(gCompany.Phone),    KNOWN(gCompany.Fax),       KNOWN(gCompany.BeginningMonth),
    KNOWN(gCompany.Owner),    KNOWN(gCompany.FIN),       KNOWN(gCompany.AccountingEntity),
};

#undef KNOWN

}  // namespace

std::optional<Value> SessionValue(std::string_view name) {
  for (const Known& known : kKnown)
    if (platform::EqualsNoCase(known.name, name)) return known.read();
  return {};
}

}  // namespace orcussch
