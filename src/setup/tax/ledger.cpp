#include "setup/tax/ledger.h"

#include "platform/values/convert.h"
#include "records/fields.h"
#include "setup/setup_record.h"

namespace orcussch {

namespace {

constexpr const char* kNoDepartment = "000";

/// An unknown type differs from none.
bool IsOfOtherType(const platform::RecordsetRef& account, const std::string& type) {
  const platform::Value own = account->Field("AccountType");
  return !own.IsNull() && platform::CStr(own) != type;
}

}  // namespace

LedgerAccount SplitAccount(std::string_view digits) {
  const std::string all = platform::Right(kNoAccount + std::string(digits), 8);
  return {platform::Left(all, 5), platform::Right(all, 3)};
}

bool ValidGL(const platform::RecordsetRef& GL_Tb, const platform::RecordsetRef& GLAccounts_Tb,
             const platform::RecordsetRef& GLDepartments_Tb, std::int16_t ActgYear, const LedgerAccount& account, std::string& GLDesc,
             const std::string& AcctType) {
  GLDesc = "";
  if (!GL_Tb->HasRows()) return false;
  if (!HasRow(GL_Tb, "PrimaryKey", {ActgYear, account.GLAcct, account.GLDept})) return false;
  if (!HasRow(GLAccounts_Tb, "AccountNumber", {account.GLAcct})) return false;
  if (platform::Len(AcctType) == 1 && IsOfOtherType(GLAccounts_Tb, AcctType)) return false;
  GLDesc = TextUnguarded(GLAccounts_Tb, "AccountDescription");
  if (account.GLDept == kNoDepartment) return true;
  if (!HasRow(GLDepartments_Tb, "PrimaryKey", {account.GLDept})) return false;
  GLDesc += "-" + TextUnguarded(GLDepartments_Tb, "DeptDescription");
  return true;
}

}  // namespace orcussch
