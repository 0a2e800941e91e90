#include "suitefiles/company/setup_rows.h"

#include "suitefiles/company/table_writer.h"

namespace suitefiles {

namespace {

struct Coded {
  const char* code;
  const char* text;
};

constexpr Coded kPhoneTypes[] = {{"C", "Cellular"}, {"F", "Fax"}, {"H", "Home"}, {"P", "Pager"}, {"W", "Work"}};
constexpr Coded kSalesRates[] = {{"A", "Average Cost"}, {"B", "Base Cost"}, {"R", "Residential"}, {"T", "Trade"}, {"L", "List"}};
constexpr const char* kTerms[] = {"Due Upon Receipt",        "Net 10 Days", "Net 15 Days", "Net 30 Days", "Net 60 Days",
                                  "2% 10 Days, Net 30 Days", "C.O.D."};

struct Card {
  const char* code;
  const char* name;
  double charge;  ///< percent
};
constexpr Card kCards[] = {
    {"A", "American Express", 3.5}, {"C", "Carte Blanche", 3.25}, {"D", "Discover", 2.4}, {"M", "MasterCard", 2.1}, {"V", "Visa", 2.1}};

struct Department {
  const char* number;
  const char* name;
  int rateCents;  ///< below 0: none
};
constexpr Department kDepartments[] = {
    {"100", "Plumbing", 7800},           {"110", "Drain Cleaning", 8500}, {"200", "Heating", 8200},     {"210", "Air Conditioning", 8400},
    {"220", "Refrigeration", 9200},      {"300", "Electrical", 8000},     {"310", "Low Voltage", 7450}, {"400", "Remodeling", 6800},
    {"500", "Commercial Service", 9600}, {"900", "Administration", -1}};

struct Account {
  const char* number;
  const char* type;  ///< A asset, L liability, C capital, I income, E expense
  const char* name;
  bool byDepartment;
};
constexpr Account kAccounts[] = {{"10100", "A", "Cash in Bank", false},
                                 {"11000", "A", "Accounts Receivable", false},
                                 {"12000", "A", "Material Inventory", false},
                                 {"15000", "A", "Vehicles and Equipment", false},
                                 {"20000", "L", "Accounts Payable", false},
                                 {"21000", "L", "Payroll Taxes Payable", false},
                                 {"22000", "L", "State Sales Tax Payable", true},
                                 {"22100", "L", "County Sales Tax Payable", true},
                                 {"22200", "L", "City Sales Tax Payable", true},
                                 {"22300", "L", "Use Tax Payable", false},
                                 {"22900", "L", "Other Taxes Payable", false},
                                 {"30000", "C", "Capital Stock", false},
                                 {"31000", "C", "Retained Earnings", false},
                                 {"40000", "I", "Material Sales", true},
                                 {"41000", "I", "Labor Sales", true},
                                 {"42000", "I", "Other Sales", true},
                                 {"43000", "I", "Finance Charges", false},
                                 {"50000", "E", "Cost of Materials", true},
                                 {"51000", "E", "Cost of Labor", true},
                                 {"60000", "E", "Rent and Utilities", false},
                                 {"61000", "E", "Vehicle Expense", false},
                                 {"62000", "E", "Bank Card Charges", false}};

/// The department text of an account that belongs to none.
constexpr const char* kNoDepartment = "000";

template <std::size_t N>
void AddCoded(const std::string& file, const std::string& table, const std::string& code, const std::string& text, const Coded (&rows)[N]) {
  TableWriter writer(file, table, {code, text});
  for (const auto& row : rows) writer.Row(row.code, row.text);
  writer.Finish();
}

}  // namespace

void AddBuiltInRows(const std::string& customerFile) {
  AddCoded(customerFile, "PhoneTypes", "Type", "TypeDescription", kPhoneTypes);
  AddCoded(customerFile, "MaterialSalesRateCodes", "SalesRate", "RateDescription", kSalesRates);

  TableWriter cards(customerFile, "CreditCardTypes", {"CreditCardType", "CreditCardName", "BankCharge"});
  for (const auto& card : kCards) cards.Row(card.code, card.name, card.charge);
  cards.Finish();

  TableWriter terms(customerFile, "Terms", {"Terms", "Message"});
  std::int32_t code = 0;
  for (const char* message : kTerms) terms.Row(++code, message);
  terms.Finish();
}

void AddLedgerRows(const std::string& ledgerFile, int year) {
  TableWriter departments(ledgerFile, "Departments", {"DeptNumber", "DeptDescription", "DefaultLaborRate"});
  for (const auto& each : kDepartments) {
    departments.Row(each.number, each.name, each.rateCents < 0 ? platform::Value(platform::Null) : platform::Value(Cents(each.rateCents)));
  }
  departments.Finish();

  TableWriter accounts(ledgerFile, "Accounts", {"AccountNumber", "AccountType", "AccountDescription"});
  for (const auto& each : kAccounts) accounts.Row(each.number, each.type, each.name);
  accounts.Finish();

  TableWriter ledger(ledgerFile, "GL", {"Year", "Account", "DeptNumber"});
  for (const auto& each : kAccounts) {
    ledger.Row(static_cast<std::int16_t>(year), each.number, kNoDepartment);
    if (!each.byDepartment) continue;
    for (const auto& department : kDepartments) ledger.Row(static_cast<std::int16_t>(year), each.number, department.number);
  }
  ledger.Finish();

  TableWriter period(ledgerFile, "AccountingPeriod", {"Year"});
  period.Row(static_cast<std::int16_t>(year));
  period.Finish();
}

}  // namespace suitefiles
