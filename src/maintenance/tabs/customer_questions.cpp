#include "maintenance/tabs/customer_questions.h"

#include "platform/host/application.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

namespace orcussch {

std::string CountDuplicates(platform::Application& App, ResumeNext& on, const TypedAddress& Address, std::int16_t& Count) {
  Opened same;
  const bool opened = on([&] {
    same = dbCustomer->OpenRecordset("Select AcctNum, FirstName, LastName From Customers Where (Addr1 = '" + Address.Addr1 +
                                     "') AND (Addr2 = '" + Address.Addr2 + "') AND (City = '" + Address.City + "') AND (State = '" +
                                     Address.State + "');");
  });
  App.DoEvents();
  if (!opened) return "";

  std::string message;
  bool Records = false;
  on([&] { Records = same->RecordCount() != 0; });
  if (Records) {
    std::string AcctNum, LastName, FirstName;
    on([&] { AcctNum = TextOf(same, "AcctNum"); });
    on([&] { LastName = TextOf(same, "LastName"); });
    on([&] { FirstName = TextOf(same, "FirstName"); });
    on([&] { same->MoveLast(); });
    on([&] { Count = platform::CInt(same->RecordCount()); });
    message = "The following Customer already exists with the same address:\r\r";
    message += "  Account No " + AcctNum + "\r";
    message += "  Last Name " + LastName + "\r";
    message += "  First Name " + FirstName + "\r\r";
    if (Count > 1) message += "There are also " + std::to_string(Count - 1) + " customers with the same address.\r\r";
    message += "Are you sure you want to add another customer with the same address?";
  }
  return message;
}

platform::RecordsetRef OpenLaborRates(std::int32_t Acct) {
  return dbCustomer->OpenRecordset("Select * From CustLaborRates Where (AcctNum=" + std::to_string(Acct) + ");");
}

void DeleteRates(platform::Application& App, ResumeNext& on, const platform::RecordsetRef& Rates) {
  on([&] { Rates->MoveFirst(); });
  bool more = false;
  on([&] { more = !Rates->Eof(); });
  while (more) {
    on([&] { Rates->Delete(); });
    more = on([&] { Rates->MoveNext(); });
    App.DoEvents();
    if (more) on([&] { more = !Rates->Eof(); });
  }
}

std::int32_t CountTransactions(platform::Application& App, ResumeNext& on, const std::string& Acct) {
  Opened transactions;
  std::int32_t Count = 0;
  const bool opened = on([&] { transactions = dbARTrans->OpenRecordset("Select * From Transactions Where (AcctNum = " + Acct + ");"); });
  App.DoEvents();
  if (opened) on([&] { Count = transactions->RecordCount(); });
  return Count;
}

}  // namespace orcussch
