#include "suitefiles/demo/filler.h"

#include "suitefiles/company/table_writer.h"
#include "suitefiles/demo/codes.h"
#include "suitefiles/demo/customers.h"
#include "suitefiles/demo/sub_records.h"

namespace suitefiles::demo {

namespace {

constexpr std::int64_t kPasses = 9;

platform::Value Day(int serial) { return platform::Date{static_cast<double>(serial)}; }
platform::Value DayOrNull(const std::optional<int>& serial) { return serial ? Day(*serial) : platform::Value(platform::Null); }
platform::Value FlagOrNull(const std::optional<bool>& flag) { return flag ? platform::Value(*flag) : platform::Value(platform::Null); }
platform::Value TextOrNull(const std::string& text) { return text.empty() ? platform::Value(platform::Null) : platform::Value(text); }
std::string Letter(char letter) { return std::string(1, letter); }

/// The first of a customer's `count` rows when the next row gets the number `next`; 0 when there is none.
std::int32_t FirstOf(int count, std::int32_t next) { return count > 0 ? next : 0; }

/// Row numbers that the tables behind the customers will give.
struct NextRows {
  std::int32_t phone = 1;
  std::int32_t address = 1;
  std::int32_t card = 1;
};

const std::vector<std::string>& CustomerFields() {
  static const std::vector<std::string> fields = {"AcctNum",
                                                  "LastName",
                                                  "FirstName",
                                                  "Title",
                                                  "Addr1",
                                                  "Addr2",
                                                  "City",
                                                  "State",
                                                  "Zip",
                                                  "Country",
                                                  "Terms",
                                                  "Status",
                                                  "NonBillable",
                                                  "Comments",
                                                  "TaxID",
                                                  "ExemptExpireDate",
                                                  "AgeMethod",
                                                  "OmitFinanceCharge",
                                                  "Creditlimit",
                                                  "CreditHold",
                                                  "EMail",
                                                  "WebSite",
                                                  "MapCode",
                                                  "SalesRate",
                                                  "SalesRatePer",
                                                  "LaborRateType",
                                                  "LaborRate",
                                                  "TaxBasisA",
                                                  "TaxBasisB",
                                                  "TaxBasisC",
                                                  "TaxBasisD",
                                                  "CurrFinanceCharge",
                                                  "CurrBalance",
                                                  "PaidThisMonth",
                                                  "PaidThisYear",
                                                  "PaidLastYear",
                                                  "PaidToDate",
                                                  "EntryDate",
                                                  "LastTrans",
                                                  "LastOrdDate",
                                                  "LastStateDate",
                                                  "LastPayDate",
                                                  "DefaultBillTo",
                                                  "DefaultBillAddress",
                                                  "DefaultShipAddress",
                                                  "DefaultPhoneNumber",
                                                  "DefaultCreditCard"};
  return fields;
}

void AddContact(std::vector<platform::Value>& row, const Identity& identity, const Contact& contact) {
  row.insert(row.end(), {identity.account, contact.name.last, contact.name.first, contact.name.title, contact.street.line1,
                         contact.street.line2, identity.city->name, identity.city->state, contact.zip, "USA"});
}

void AddAccount(std::vector<platform::Value>& row, const Identity& identity, const Contact& contact, const Account& account) {
  row.insert(row.end(), {account.terms,
                         static_cast<std::int16_t>(identity.standing),
                         account.nonBillable,
                         account.comments,
                         TextOrNull(account.taxId),
                         DayOrNull(account.exemptUntil),
                         FlagOrNull(account.ageFromInvoice),
                         FlagOrNull(account.noFinanceCharge),
                         Cents(account.creditLimit),
                         account.creditHold,
                         contact.eMail,
                         contact.webSite,
                         account.mapCode > 0 ? platform::Value(MapCode(account.mapCode)) : platform::Value(platform::Null),
                         Letter(account.salesRate),
                         account.salesRatePercent,
                         Letter(identity.laborRateType),
                         Cents(account.laborRate),
                         account.taxes[0],
                         account.taxes[1],
                         account.taxes[2],
                         account.taxes[3]});
}

void AddHistory(std::vector<platform::Value>& row, const History& history) {
  row.insert(row.end(), {Cents(history.financeCharge), Cents(history.balance), Cents(history.paidThisMonth), Cents(history.paidThisYear),
                         Cents(history.paidLastYear), Cents(history.paidToDate), Day(history.entry), DayOrNull(history.lastTransaction),
                         DayOrNull(history.lastOrder), DayOrNull(history.lastStatement), DayOrNull(history.lastPayment)});
}

void AddDefaults(std::vector<platform::Value>& row, const World& world, const Identity& identity, NextRows& next) {
  const int phones = PhoneCount(world, identity);
  const int addresses = AddressCount(world, identity);
  const int cards = CardCount(world, identity);
  const std::int32_t billAddress = identity.account % 3 == 0 ? FirstOf(addresses, next.address) : 0;
  const std::int32_t shipAddress = identity.account % 5 == 0 ? FirstOf(addresses, next.address) : 0;
  row.insert(row.end(), {identity.account, billAddress, shipAddress, FirstOf(phones, next.phone), FirstOf(cards, next.card)});
  next.phone += phones;
  next.address += addresses;
  next.card += cards;
}

}  // namespace

void Filler::Fill() {
  FillPhones();
  FillAddresses();
  FillCards();
  FillLaborRates();
  FillTypes();
  FillKeyWords();
  FillParents();
  FillTransactions();
  FillCustomers();
}

void Filler::ForEach(const std::string& what, const std::function<void(std::int32_t)>& each) {
  constexpr std::int32_t kSlice = 2048;
  for (std::int32_t account = 1; account <= customers_; ++account) {
    each(account);
    ++done_;
    if (account % kSlice == 0) progress_(what, done_, kPasses * customers_);
  }
}

void Filler::FillCustomers() {
  TableWriter rows(customerFile_, "Customers", CustomerFields());
  NextRows next;
  std::vector<platform::Value> row;
  ForEach("Customers", [&](std::int32_t number) {
    const auto identity = MakeIdentity(world_, number);
    const auto contact = MakeContact(world_, identity);
    row.clear();
    AddContact(row, identity, contact);
    AddAccount(row, identity, contact, MakeAccount(world_, identity));
    AddHistory(row, MakeHistory(world_, identity));
    AddDefaults(row, world_, identity, next);
    rows.Add(row);
  });
  rows.Finish();
}

void Filler::FillPhones() {
  TableWriter rows(customerFile_, "Phones", {"RecordID", "AcctNum", "Area", "Phone", "Ext", "Type", "Comment"});
  std::int32_t number = 0;
  ForEach("Phones", [&](std::int32_t account) {
    for (const auto& phone : MakePhones(world_, MakeIdentity(world_, account))) {
      rows.Row(++number, account, phone.area, phone.number, phone.extension, Letter(phone.type), phone.comment);
    }
  });
  rows.Finish();
}

void Filler::FillAddresses() {
  TableWriter rows(
      customerFile_, "Addresses",
      {"addressID", "Customer", "Addr1", "Addr2", "City", "State", "Zip", "Country", "Comment", "ActiveMonthLow", "ActiveMonthHigh"});
  std::int32_t number = 0;
  ForEach("Addresses", [&](std::int32_t account) {
    for (const auto& each : MakeAddresses(world_, MakeIdentity(world_, account))) {
      rows.Row(++number, account, each.street.line1, each.street.line2, each.city->name, each.city->state, each.zip, "USA",
               TextOrNull(each.comment), each.firstMonth, each.lastMonth);
    }
  });
  rows.Finish();
}

void Filler::FillCards() {
  TableWriter rows(customerFile_, "CustCreditCards",
                   {"CreditCardID", "AcctNum", "CCType", "CCNumber", "CCHolder", "CCMonth", "CCYear", "CCLimit", "CCComment"});
  std::int32_t number = 0;
  ForEach("Credit cards", [&](std::int32_t account) {
    const auto identity = MakeIdentity(world_, account);
    if (CardCount(world_, identity) == 0) return;
    for (const auto& card : MakeCards(world_, identity, MakeContact(world_, identity).name)) {
      rows.Row(++number, account, Letter(card.type), card.number, card.holder, card.month, card.year, Cents(card.limit), "");
    }
  });
  rows.Finish();
}

void Filler::FillLaborRates() {
  TableWriter rows(customerFile_, "CustLaborRates", {"AcctNum", "Dept", "Adjustment"});
  ForEach("Labor rates", [&](std::int32_t account) {
    for (const auto& rate : MakeLaborRates(world_, MakeIdentity(world_, account))) rows.Row(account, rate.department, rate.adjustment);
  });
  rows.Finish();
}

void Filler::FillTypes() {
  TableWriter rows(customerFile_, "CustCodes", {"AcctNum", "CustCodes"});
  ForEach("Customer types", [&](std::int32_t account) {
    for (const auto code : MakeTypes(world_, MakeIdentity(world_, account))) rows.Row(account, code);
  });
  rows.Finish();
}

void Filler::FillKeyWords() {
  TableWriter rows(customerFile_, "Lookups", {"AcctNum", "Text"});
  ForEach("Key words", [&](std::int32_t account) {
    for (const auto place : MakeKeyWords(world_, MakeIdentity(world_, account))) rows.Row(account, KeyWords()[place]);
  });
  rows.Finish();
}

void Filler::FillParents() {
  TableWriter rows(customerFile_, "SuperCustomers", {"Primary", "Subordinate"});
  ForEach("Parents", [&](std::int32_t account) {
    if (const auto parent = MakeParent(world_, MakeIdentity(world_, account)); parent != 0) rows.Row(parent, account);
  });
  rows.Finish();
}

void Filler::FillTransactions() {
  TableWriter rows(transactionFile_, "Transactions", {"AcctNum", "TranType", "InvChkCredNo", "AltInvNo"});
  ForEach("Transactions", [&](std::int32_t account) {
    for (const auto& each : MakeTransactions(world_, MakeIdentity(world_, account)))
      rows.Row(account, Letter(each.type), each.number, each.otherNumber);
  });
  rows.Finish();
}

}  // namespace suitefiles::demo
