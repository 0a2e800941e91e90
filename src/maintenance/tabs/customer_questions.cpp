#include "maintenance/tabs/customer_questions.h"

#include "platform/host/application.h"
#include "platform/values/convert.h"
#include "records/fields.h"
#include "session/ModCustSch.h"
#include "session/opened.h"

namespace orcussch {

std::string CountDuplicates(platform::Application& App, ResumeNext& on, const TypedAddress& Address, std::int16_t& Count) {
  Opened Same;
  const bool opened = on([&] {
    Same = dbCustomer->OpenRecordset("Select AcctNum, FirstName, LastName From Customers Where (Addr1 = '" + Address.Addr1 +
                                     "') AND (Addr2 = '" + Address.Addr2 + "') AND (City = '" + Address.City + "') AND (State = '" +
                                     Address.State + "');");
  });
  App.DoEvents();
  if (!opened) return "";

  std::string Message;
  bool Records = false;
  on([&] { Records = Same->RecordCount() != 0; });
  if (Records) {
    std::string AcctNum, LastName, FirstName;
    on([&] { AcctNum = TextOf(Same, "AcctNum"); });
    on([&] { LastName = TextOf(Same, "LastName"); });
    on([&] { FirstName = TextOf(Same, "FirstName"); });
    on([&] { Same->MoveLast(); });
    on([&] { Count = platform::CInt(Same->RecordCount()); });
    Message = "The following Customer already exists with the same address:\r\r";
    Message += "  Account No " + AcctNum + "\r";
    Message += "  Last Name " + LastName + "\r";
    Message += "  First Name " + FirstName + "\r\r";
    if (Count > 1) Message += "There are also " + std::to_string(Count - 1) + " customers with the same address.\r\r";
    Message += "Are you sure you want to add another customer with the same address?";
  }
  return Message;
}

platform::RecordsetRef OpenLaborRates(std::int32_t Acct) {
  return dbCustomer->OpenRecordset("Select * From CustLaborRates Where (AcctNum=" + std::to_string(Acct) + ");");
}

void DeleteRates(platform::Application& App, ResumeNext& on, const platform::RecordsetRef& Rates) {
  on([&] { Rates->MoveFirst(); });
  bool More = false;
  on([&] { More = !Rates->Eof(); });
  while (More) {
    on([&] { Rates->Delete(); });
    More = on([&] { Rates->MoveNext(); });
    App.DoEvents();
    if (More) on([&] { More = !Rates->Eof(); });
  }
}

std::int32_t CountTransactions(platform::Application& App, ResumeNext& on, const std::string& Acct) {
  Opened Transactions;
  std::int32_t Count = 0;
  const bool opened = on([&] { Transactions = dbARTrans->OpenRecordset("Select * From Transactions Where (AcctNum = " + Acct + ");"); });
  App.DoEvents();
  if (opened) on([&] { Count = Transactions->RecordCount(); });
  return Count;
}

}  // namespace orcussch
