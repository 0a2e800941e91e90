#include "maintenance/frmCustMain.h"

// The columns of the lists, in their design order.
namespace orcussch {

using platform::GridColumn;
using platform::Value;

namespace {

GridColumn Plain(const char* caption, const char* field) { return {caption, field, "", {}, false, true, true, 0}; }

/// Keys, counters, money kept by other modules and other tables' fields are not typed over.
GridColumn Closed(GridColumn column) {
  column.open = false;
  return column;
}

GridColumn Formatted(const char* caption, const char* field, const char* format) {
  GridColumn column = Plain(caption, field);
  column.numberFormat = format;
  return column;
}

GridColumn Money(const char* caption, const char* field) { return Formatted(caption, field, "Currency"); }

GridColumn Percent(const char* caption, const char* field) {
  GridColumn column = Plain(caption, field);
  column.percent = true;
  return column;
}

/// A number that is nobody else's business.
GridColumn CardNumber(const char* caption, const char* field) {
  GridColumn column = Plain(caption, field);
  column.lastFour = true;
  return column;
}

GridColumn Check(const char* caption, const char* field) {
  GridColumn column = Plain(caption, field);
  column.checkBox = true;
  return column;
}

GridColumn Coded(const char* caption, const char* field, std::vector<std::pair<Value, std::string>> items) {
  GridColumn column = Plain(caption, field);
  column.valueItems = std::move(items);
  return column;
}

std::vector<GridColumn> CustomerColumns() {
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

}  // namespace

void frmCustMain::DesignColumns() {
  grid[tab::Customers].DefineColumns(CustomerColumns());
  grid[tab::Customers].Splits(2);
  grid[tab::Phones].DefineColumns({
      Closed(Plain("Record ID", "RecordID")),
      Closed(Plain("AcctNum", "AcctNum")),
      Formatted("Area Code", "Area", "(###)"),
      Formatted("Phone Number", "Phone", "###-####"),
      Plain("Extention Number", "Ext"),
      Plain("Type of Number", "TypeDescription"),
      Plain("Comment", "Comment"),
  });
  grid[tab::Addresses].DefineColumns({
      Closed(Plain("Address ID", "AddressID")),
      Closed(Plain("AcctNum", "Customer")),
      Plain("Address 1", "Addr1"),
      Plain("Address 2", "Addr2"),
      Plain("City", "City"),
      Plain("State", "State"),
      Plain("Zip", "Zip"),
      Plain("Country", "Country"),
      Plain("Active Month Low", "ActiveMonthLow"),
      Plain("Active Month High", "ActiveMonthHigh"),
      Plain("Comment", "Comment"),
  });
  grid[tab::CreditCards].DefineColumns({
      Closed(Plain("Record ID", "CreditCardID")),
      Closed(Plain("Credit Card Type", "CreditCardName")),
      CardNumber("Number", "CCNumber"),
      Plain("Card Holder", "CCHolder"),
      Plain("Expire Month", "CCMonth"),
      Formatted("Expire Year", "CCYear", "####"),
      Money("Limit", "CCLimit"),
      Plain("Comment", "CCComment"),
  });
  grid[tab::LaborRates].DefineColumns({
      Closed(Plain("Department", "Dept")),
      Closed(Plain("Department Description", "DeptDescription")),
      Closed(Money("Base Rate", "DefaultLaborRate")),
      Percent("Adjustment %", "Adjustment"),
      Closed(Money("Adjusted Rate", "Adjusted Rate")),
  });
  grid[tab::CustomerTypes].DefineColumns({Check("Assigned", "Assign"), Plain("Type Description", "Description")});
  grid[tab::KeyWords].DefineColumns({Check("Assigned", "Assign"), Plain("Key Word", "KeyWord")});
  grdTaxBasis.DefineColumns({
      Check("Assigned", "Assign"),
      Closed(Plain("Description", "Description")),
      Closed(Plain("TypeDescription", "TypeDescription")),
      Closed(Plain("Tax Entity", "EntityDescription")),
      Closed(Plain("Tax ID", "TaxID")),
  });
}

}  // namespace orcussch
