#include "robot/commands/row_kinds.h"

#include <array>

#include "platform/values/text.h"

namespace robot {
namespace {

RowField Text(std::string_view name) { return {name, FieldKind::Text}; }
RowField Number(std::string_view name) { return {name, FieldKind::Number}; }
RowField Flag(std::string_view name) { return {name, FieldKind::Flag}; }
RowField Date(std::string_view name) { return {name, FieldKind::Date}; }

RowKind Of(std::string_view name, std::string_view table, Places places, std::vector<RowField> fields) {
  return {name, table, places, false, std::move(fields), {}};
}

RowKind Counted(std::string_view name, std::string_view table, Places places, std::vector<RowField> fields) {
  return {name, table, places, true, std::move(fields), {}};
}

RowKind Customer() {
  return Counted("customer", "Customers", {2, 3},
                 {Number("AcctNum"),
                  Text("LastName"),
                  Text("FirstName"),
                  Text("Title"),
                  Text("Addr1"),
                  Text("Addr2"),
                  Text("City"),
                  Text("State"),
                  Text("Zip"),
                  Text("Country"),
                  Number("Terms"),
                  Number("Status"),
                  Flag("NonBillable"),
                  Text("Comments"),
                  Text("TaxID"),
                  Date("ExemptExpireDate"),
                  Flag("AgeMethod"),
                  Flag("OmitFinanceCharge"),
                  Number("CreditLimit"),
                  Flag("CreditHold"),
                  Text("EMail"),
                  Text("WebSite"),
                  Text("MapCode"),
                  Text("SalesRate"),
                  Number("SalesRatePer"),
                  Text("LaborRateType"),
                  Number("LaborRate"),
                  Number("TaxBasisA"),
                  Number("TaxBasisB"),
                  Number("TaxBasisC"),
                  Number("TaxBasisD"),
                  Number("CurrFinanceCharge"),
                  Number("CurrBalance"),
                  Number("PaidThisMonth"),
                  Number("PaidThisYear"),
                  Number("PaidLastYear"),
                  Number("PaidToDate"),
                  Date("EntryDate"),
                  Date("LastTrans"),
                  Date("LastOrdDate"),
                  Date("LastStateDate"),
                  Date("LastPayDate"),
                  Number("DefaultBillTo"),
                  Number("DefaultBillAddress"),
                  Number("DefaultShipAddress"),
                  Number("DefaultPhoneNumber"),
                  Number("DefaultCreditCard"),
                  Number("Latitude"),
                  Number("Longitude"),
                  Text("CustomerID")});
}

/// No field of the card is Null: the customer as the program itself writes one.
RowKind CompleteCustomer() {
  RowKind kind = Customer();
  kind.name = "complete customer";
  for (const char* field : {"FirstName", "Title", "Addr1", "Addr2", "City", "State", "Zip", "EMail", "WebSite"})
    kind.filled.push_back({field, {"", true}});
  constexpr std::array<std::pair<const char*, const char*>, 5> kGiven = {
      {{"Country", "USA"}, {"Terms", "2"}, {"AgeMethod", "True"}, {"OmitFinanceCharge", "False"}, {"LaborRateType", "N"}}};
  for (const auto& [field, value] : kGiven) kind.filled.push_back({field, {value}});
  return kind;
}

const std::vector<RowKind>& RowKinds() {
  static const std::vector<RowKind> all = {
      Customer(),
      CompleteCustomer(),
      Of("phone", "Phones", {2, 4},
         {Number("AcctNum"), Text("Type"), Text("Area"), Text("Phone"), Text("Ext"), Text("Comment"), Number("RecordID")}),
      Of("address", "Addresses", {2, 2},
         {Number("Customer"), Text("Addr1"), Text("Addr2"), Text("City"), Text("State"), Text("Zip"), Text("Country"), Text("Comment"),
          Number("ActiveMonthLow"), Number("ActiveMonthHigh"), Number("AddressID")}),
      Of("card", "CustCreditCards", {2, 3},
         {Number("AcctNum"), Text("CCType"), Text("CCNumber"), Text("CCHolder"), Text("CCMonth"), Text("CCYear"), Number("CCLimit"),
          Text("CCComment"), Number("CreditCardID")}),
      Of("rate", "CustLaborRates", {2, 3}, {Number("AcctNum"), Text("Dept"), Number("Adjustment")}),
      Of("type", "DataCodes", {2, 2}, {Number("Code"), Text("Description")}),
      Of("assigned type", "CustCodes", {2, 2}, {Number("AcctNum"), Number("CustCodes")}),
      Of("keyword", "Keywords", {1, 1}, {Text("Keyword")}),
      Of("assigned keyword", "Lookups", {2, 2}, {Number("AcctNum"), Text("Text")}),
      Counted("tax", "TaxGrid", {2, 2},
              {Number("TaxID"), Text("Description"), Number("TaxType"), Number("TaxEntity"), Text("TaxCode"), Number("Mat"), Number("Lab"),
               Number("Oth"), Text("GLMat"), Text("GLLab"), Text("GLOth"), Number("Limit"), Text("LimitTransType"), Text("Comment")}),
      Counted("tax type", "TaxTypes", {2, 3}, {Number("TaxType"), Text("TypeDescription"), Text("TypeCode")}),
      Counted("tax entity", "TaxEntities", {2, 2}, {Number("TaxEntity"), Text("EntityDescription")}),
  };
  return all;
}

const RowKind* Named(std::string_view name) {
  for (const RowKind& kind : RowKinds())
    if (platform::EqualsNoCase(kind.name, name)) return &kind;
  return nullptr;
}

}  // namespace

const RowKind* FindRowKind(const Arguments& words, std::size_t& taken) {
  taken = 0;
  if (words.Count() == 0 || words.At(0).quoted) return nullptr;
  if (words.Count() > 1 && !words.At(1).quoted) {
    taken = 2;
    if (const RowKind* kind = Named(words.Text(0) + " " + words.Text(1))) return kind;
  }
  taken = 1;
  return Named(words.Text(0));
}

std::string RowKindNames() {
  std::string names;
  for (const RowKind& kind : RowKinds()) names += (names.empty() ? "" : ", ") + std::string(kind.name);
  return names;
}

}  // namespace robot
