#include "hostile/query_screen.h"

#include "session/ModCustSch.h"

namespace hostile {
namespace {

using namespace orcussch;
using Faults = std::vector<std::string>;

/// A criterion's check box and what it opens.
void Compare(const platform::CheckBox& box, std::initializer_list<const platform::Control*> opened, Faults& faults) {
  for (const platform::Control* control : opened)
    if (control->Enabled() != (box.Value() == 1))
      faults.push_back("the query screen: " + control->FullName() + (control->Enabled() ? " is open" : " is closed") + " against " +
                       box.FullName());
}

/// With all customers chosen there is no criterion. The finance charge's stays as it is and means nothing then.
template <class Boxes>
void DemandNone(const Boxes& boxes, int count, Faults& faults) {
  for (int i = 0; i < count; ++i)
    if (boxes[i].Value() == 1) faults.push_back("the query screen: all customers and " + boxes[i].FullName());
}

}  // namespace

std::vector<std::string> Mismatches(const frmCustQueries& screen) {
  using namespace criteria;
  Faults faults;
  if (!screen.Toolbar1.Enabled()) faults.push_back("the query screen: the toolbar stays shut");
  for (int i = 0; i < kTexts; ++i) Compare(screen.chkSelectNameAdd[i], {&screen.cboSQL[i], &screen.txtNameAdd[i]}, faults);
  for (int i = 0; i < kAmounts; ++i) Compare(screen.chkSelectAmount[i], {&screen.txtAmount[i]}, faults);
  for (int i = 0; i < kDates; ++i) Compare(screen.chkSelectDate[i], {&screen.txtDate[i]}, faults);
  const auto misc = [&](MiscCriterion criterion, std::initializer_list<const platform::Control*> opened) {
    Compare(screen.chkSelectMisc[criterion], opened, faults);
  };
  misc(Status, {&screen.optStatus[0], &screen.optStatus[2]});
  misc(InvoiceNo, {&screen.optInvoiceNo[0], &screen.optInvoiceNo[1], &screen.txtInvoiceNo});
  misc(CreditCard, {&screen.cboSQL[kCardComparison], &screen.txtCreditCard});
  misc(KeyWords, {&screen.txtSearch[0], &screen.grid[0]});
  misc(CustomerTypes, {&screen.txtSearch[1], &screen.grid[1]});
  if (screen.chkSelectAll.Value() != 1) return faults;
  DemandNone(screen.chkSelectNameAdd, kTexts, faults);
  DemandNone(screen.chkSelectMisc, FinanceCharge, faults);
  DemandNone(screen.chkSelectAmount, kAmounts, faults);
  DemandNone(screen.chkSelectDate, kDates, faults);
  return faults;
}

std::vector<std::string> QueryMismatches(const frmCustMain& screen) {
  Faults faults;
  const bool queried = !gQuerySQL.empty();
  const std::string& caption = screen.grid[tab::Customers].Caption();
  // A fresh screen has no heading before its list was built for all customers.
  if (caption.starts_with(queried ? "All" : "Queried"))
    faults.push_back("the list is headed \"" + caption + "\" while " + (queried ? gQuerySQL : "no query") + " is in force");
  if (!queried && !gQueryText.empty()) faults.push_back("the words of a query that is not in force: " + gQueryText);
  const std::string& source = screen.data[tab::Customers].RecordSource();
  if (!source.starts_with(queried ? gQuerySQL : std::string("SELECT * FROM Customers ")))
    faults.push_back("the list shows " + source + " while " + (queried ? gQuerySQL : "no query") + " is in force");
  return faults;
}

}  // namespace hostile
