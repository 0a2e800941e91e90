#include "maintenance/tabs/customer_columns.h"
#include "records/columns.h"

namespace orcussch {

using namespace column;

std::vector<platform::GridColumn> CustomerColumns() {
  return {
      Closed(Plain("Account No.", "AcctNum")),
      Plain("Customer Last Name", "Lastname"),
      Plain("Customer First Name", "Firstname"),
      Plain("Title", "Title"),
      Plain("Address 1", "Addr1"),
      Plain("Address 2", "Addr2"),
      Plain("City", "City"),
      Plain("State", "State"),
      Plain("Zip", "Zip"),
      Plain("Country", "Country"),
      Plain("Map Code", "MapCode"),
      Plain("E-Mail Address", "EMail"),
      Plain("Web Site Address", "WebSite"),
      Coded("Sales Rate", "SalesRate", {{"A", "Average Cost"}, {"B", "Base Cost"}, {"R", "Residential"}, {"T", "Trade"}, {"L", "List"}}),
      Percent("Sales Rate % Adjustment", "SalesRatePer"),
      Plain("Tax Basis A", "TaxBasisA"),
      Plain("Tax Basis B", "TaxBasisB"),
      Plain("Tax Basis C", "TaxBasisC"),
      Plain("Tax Basis D", "TaxBasisD"),
      Plain("Tax Exemption ID", "TaxID"),
      Plain("Tax Exemption Expiration Date", "ExemptExpireDate"),
      Money("Credit Limit", "CreditLimit"),
      Check("Credit Hold", "CreditHold"),
      Plain("Terms", "Terms"),
      Check("Age From Invoice Date", "AgeMethod"),
      Check("Omit Finance Charges", "OmitFinanceCharge"),
      Closed(Money("Current Finance Charge", "CurrFinanceCharge")),
      Closed(Money("Current Balance", "CurrBalance")),
      Closed(Money("Paid This Year", "PaidThisYear")),
      Closed(Money("Paid This Month", "PaidThisMonth")),
      Closed(Money("Paid Last Year", "PaidLastYear")),
      Closed(Money("Paid To Date", "PaidToDate")),
      Plain("Last Statement Date", "LastStateDate"),
      Plain("Last Order Date", "LastOrdDate"),
      Plain("Last Payment Date", "LastPayDate"),
      Plain("Last Transaction Posted Date", "LastTrans"),
      Formatted("Entry Date", "EntryDate", "Short Date"),
      Closed(Plain("Default Bill To Customer", "DefaultBillTo")),
      Plain("Default Ship To Address", "DefaultShipAddress"),
      Plain("Default Bill To Address", "DefaultBillAddress"),
      Plain("Default Phone Number", "DefaultPhoneNumber"),
      Coded("Customer Status", "Status", {{std::int16_t{0}, "Active"}, {std::int16_t{1}, "Obsolete"}, {std::int16_t{2}, "Prospect"}}),
      Coded("Billing Status", "NonBillable", {{std::int16_t{0}, "Billable"}, {std::int16_t{-1}, "Non-Billable"}}),
      Plain("Customer ID", "CustomerID"),
      Plain("Latitude", "Latitude"),
      Plain("Longitude", "Longitude"),
      Coded("Default Labor Rate Type", "LaborRateType", {{"N", "None"}, {"C", "Customer"}, {"D", "Departmental"}}),
      Money("Customer Labor Rate", "LaborRate"),
  };
}

}  // namespace orcussch
