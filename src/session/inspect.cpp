#include "session/inspect.h"

#include "platform/values/text.h"
#include "session/ModCustSch.h"

namespace orcussch {

using platform::Value;

namespace {

struct Known {
  const char* name;
  Value (*read)();
  void (*forget)();
};

/// A variable and the name that it is known by. The company's fields are forgotten with the whole record.
#define KNOWN(variable)                                                                \
  {                                                                                    \
#variable, [] { return Value(variable); }, [] { variable = decltype(variable){}; } \
  }
#define COMPANY(field)                                                                           \
  {                                                                                              \
    "gCompany." #field, [] { return Value(gCompany.field); }, [] { gCompany = CompanyRecord{}; } \
  }

const Known kKnown[] = {
    KNOWN(gUserID),
    KNOWN(gCompanyID),
    KNOWN(gDefaultTerms),
    KNOWN(gAddPhone),
    KNOWN(gRightsMask),
    KNOWN(gBillingStatus),
    KNOWN(gNonSelection),
    KNOWN(gHostAcctNum),
    KNOWN(gSelAcctNum),
    KNOWN(gCustomerLastName),
    KNOWN(gCustomerFirstName),
    KNOWN(gCustomerTitle),
    KNOWN(gCustomerAddr1),
    KNOWN(gCustomerAddr2),
    KNOWN(gCustomerCity),
    KNOWN(gCustomerState),
    KNOWN(gCustomerZip),
    KNOWN(gQuerySQL),
    KNOWN(gQueryText),
    KNOWN(gFirstActivate),
    KNOWN(gCustomerPath),
    KNOWN(gARTransPath),
    KNOWN(gGLPath),
    KNOWN(gTempPath),
    KNOWN(gTempDir),
    KNOWN(gSysModsDir),
    KNOWN(gUpdateDir),
    KNOWN(gIniPath),
    KNOWN(gWorkspaceName),
    KNOWN(gFilesOpen),
    COMPANY(CompName),
    COMPANY(Addr1),
    COMPANY(Addr2),
    COMPANY(City),
    COMPANY(State),
    COMPANY(Zip),
    COMPANY(Country),
    COMPANY(Phone),
    COMPANY(Fax),
    COMPANY(BeginningMonth),
    COMPANY(Owner),
    COMPANY(FIN),
    COMPANY(AccountingEntity),
};

#undef COMPANY
#undef KNOWN

}  // namespace

std::optional<Value> SessionValue(std::string_view name) {
  for (const Known& known : kKnown)
    if (platform::EqualsNoCase(known.name, name)) return known.read();
  return {};
}

void ForgetSessionValues() {
  for (const Known& known : kKnown) known.forget();
}

}  // namespace orcussch
