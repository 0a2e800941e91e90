#include "system/screen_kills/clerk.h"

namespace system_test {
namespace {

constexpr const char* kPhoneTypes[] = {"C", "F", "H", "P", "W"};
constexpr const char* kCardTypes[] = {"A", "C", "D", "M", "V"};

}  // namespace

// ---- phones

std::optional<Operation> Clerk::AddPhone() {
  const std::string acct = Choose("Customers");
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 1);
  act.before.push_back("click tb_AddRec");
  const std::string id = TakeNumber(act, "Phones");
  Row row{{"RecordID", id}, {"AcctNum", acct}, {"Area", Digits(3)}, {"Phone", Digits(7)}, {"Ext", Digits(4)}, {"Comment", Mark("phone")}};
  row["Type"] = kPhoneTypes[Roll(0, 4)];
  act.before.push_back("pick cboPhoneTypes key " + row["Type"]);
  act.before.push_back(TypeInto("txtPhoneArea", row["Area"]));
  act.before.push_back(TypeInto("txtPhone", row["Phone"]));
  act.before.push_back(TypeInto("txtPhoneExt", row["Ext"]));
  act.before.push_back(TypeInto("txtPhoneComment", row["Comment"]));
  const bool byDefault = Chance(60);
  act.before.push_back(SetBox("chkDefaultPhone", byDefault));
  act.steps.push_back(Insert("Phones", id, row));
  if (byDefault) act.steps.push_back(Change("Customers", acct, {{"DefaultPhoneNumber", id}}));
  SaveCard(act);
  return act;
}

/// A sub-record whose customer is still there; "" when there is none.
std::string Clerk::ChooseOwned(const char* table, const char* owner) {
  return Choose(table, [&](const Row& row) { return Table("Customers").contains(row.at(owner)); });
}

std::optional<Operation> Clerk::ChangePhone() {
  const std::string id = ChooseOwned("Phones", "AcctNum");
  if (id.empty()) return std::nullopt;
  const std::string acct = Table("Phones")[id]["AcctNum"];
  Operation act = At(acct, 1);
  act.before.push_back("row grid(1) where RecordID " + id);
  act.before.push_back("click tb_EditRec");
  Row row{{"Phone", Digits(7)}, {"Comment", Mark("phone")}, {"Type", kPhoneTypes[Roll(0, 4)]}};
  act.before.push_back("pick cboPhoneTypes key " + row["Type"]);
  act.before.push_back(TypeInto("txtPhone", row["Phone"]));
  act.before.push_back(TypeInto("txtPhoneComment", row["Comment"]));
  const bool byDefault = Chance(50);
  act.before.push_back(SetBox("chkDefaultPhone", byDefault));
  act.steps.push_back(Change("Phones", id, row));
  if (byDefault) act.steps.push_back(Change("Customers", acct, {{"DefaultPhoneNumber", id}}));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::DeletePhone() {
  const std::string id = ChooseOwned("Phones", "AcctNum");
  if (id.empty()) return std::nullopt;
  const std::string acct = Table("Phones")[id]["AcctNum"];
  Operation act = At(acct, 1);
  act.before.push_back("row grid(1) where RecordID " + id);
  DeleteCurrent(act);
  act.steps.push_back(Remove("Phones", id));
  if (Table("Customers")[acct]["DefaultPhoneNumber"] == id) act.steps.push_back(Change("Customers", acct, {{"DefaultPhoneNumber", "0"}}));
  return act;
}

std::optional<Operation> Clerk::ChangePhoneCell() {
  const std::string id = ChooseOwned("Phones", "AcctNum");
  if (id.empty()) return std::nullopt;
  Operation act = At(Table("Phones")[id]["AcctNum"], 1);
  act.before.push_back("row grid(1) where RecordID " + id);
  const std::string comment = Mark("cell");
  act.write = {"cell grid(1) Comment " + Quoted(comment)};
  act.steps.push_back(Change("Phones", id, {{"Comment", comment}}));
  return act;
}

// ---- alternate addresses

namespace {

Row FillAddress(Operation& act, Row row) {
  const std::pair<const char*, const char*> edits[] = {{"txtAltAddr1", "Addr1"},    {"txtAltAddr2", "Addr2"}, {"txtAltCity", "City"},
                                                       {"txtAltState", "State"},    {"txtAltZip", "Zip"},     {"txtAltCountry", "Country"},
                                                       {"txtAltComment", "Comment"}};
  for (const auto& [edit, field] : edits)
    if (row.contains(field)) act.before.push_back(TypeInto(edit, row[field]));
  act.before.push_back("pick cboActiveMonth(0) key " + row["ActiveMonthLow"]);
  act.before.push_back("pick cboActiveMonth(1) key " + row["ActiveMonthHigh"]);
  return row;
}

}  // namespace

/// Sets both boxes, and writes the default fields that they ask for by one commit.
void Clerk::SetDefaultAddresses(Operation& act, const std::string& acct, const std::string& id, int percent) {
  Row defaults;
  const bool ship = Chance(percent);
  const bool bill = Chance(percent);
  act.before.push_back(SetBox("chkDefaultAddr(0)", ship));
  act.before.push_back(SetBox("chkDefaultAddr(1)", bill));
  if (ship) defaults["DefaultShipAddress"] = id;
  if (bill) defaults["DefaultBillAddress"] = id;
  if (!defaults.empty()) act.steps.push_back(Change("Customers", acct, defaults));
}

std::optional<Operation> Clerk::AddAddress() {
  const std::string acct = Choose("Customers");
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 2);
  act.before.push_back("click tb_AddRec");
  const std::string id = TakeNumber(act, "Addresses");
  const Row row = FillAddress(act, {{"addressID", id},
                                    {"Customer", acct},
                                    {"Addr1", Mark("Side St")},
                                    {"Addr2", Mark("Back")},
                                    {"City", Mark("Village")},
                                    {"State", "MN"},
                                    {"Zip", Digits(5)},
                                    {"Country", Mark("Land")},
                                    {"Comment", Mark("address")},
                                    {"ActiveMonthLow", std::to_string(Roll(0, 12))},
                                    {"ActiveMonthHigh", std::to_string(Roll(0, 12))}});
  act.steps.push_back(Insert("Addresses", id, row));
  SetDefaultAddresses(act, acct, id, 50);
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::ChangeAddress() {
  const std::string id = ChooseOwned("Addresses", "Customer");
  if (id.empty()) return std::nullopt;
  const std::string acct = Table("Addresses")[id]["Customer"];
  Operation act = At(acct, 2);
  act.before.push_back("row grid(2) where addressID " + id);
  act.before.push_back("click tb_EditRec");
  const Row row = FillAddress(act, {{"Addr1", Mark("Side St")},
                                    {"City", Mark("Village")},
                                    {"Comment", Mark("address")},
                                    {"ActiveMonthLow", std::to_string(Roll(0, 12))},
                                    {"ActiveMonthHigh", std::to_string(Roll(0, 12))}});
  act.steps.push_back(Change("Addresses", id, row));
  SetDefaultAddresses(act, acct, id, 40);
  SaveCard(act);
  return act;
}

/// Whichever default the address is, it is the shipping field that is cleared.
std::optional<Operation> Clerk::DeleteAddress() {
  const std::string id = ChooseOwned("Addresses", "Customer");
  if (id.empty()) return std::nullopt;
  const std::string acct = Table("Addresses")[id]["Customer"];
  Operation act = At(acct, 2);
  act.before.push_back("row grid(2) where addressID " + id);
  DeleteCurrent(act);
  act.steps.push_back(Remove("Addresses", id));
  const Row& customer = Table("Customers")[acct];
  if (customer.at("DefaultShipAddress") == id || customer.at("DefaultBillAddress") == id)
    act.steps.push_back(Change("Customers", acct, {{"DefaultShipAddress", "0"}}));
  return act;
}

// ---- credit cards

std::optional<Operation> Clerk::AddCard() {
  const std::string acct = Choose("Customers");
  if (acct.empty()) return std::nullopt;
  Operation act = At(acct, 3);
  act.before.push_back("click tb_AddRec");
  const std::string id = TakeNumber(act, "CustCreditCards");
  Row row{{"CreditCardID", id},
          {"AcctNum", acct},
          {"CCType", kCardTypes[Roll(0, 4)]},
          {"CCNumber", Digits(16)},
          {"CCHolder", Mark("Holder")},
          {"CCMonth", Digits(1)},
          {"CCYear", "2031"},
          {"CCLimit", std::to_string(Roll(1, 5000))},
          {"CCComment", Mark("card")}};
  act.before.push_back("pick cboCreditCards key " + row["CCType"]);
  act.before.push_back(TypeInto("txtCCNumber", row["CCNumber"]));
  act.before.push_back(TypeInto("txtCCHolder", row["CCHolder"]));
  act.before.push_back(TypeInto("txtCCMonth", row["CCMonth"]));
  act.before.push_back(TypeInto("txtCCYear", row["CCYear"]));
  act.before.push_back(TypeInto("txtCCLimit", row["CCLimit"]));
  act.before.push_back(TypeInto("txtCCComment", row["CCComment"]));
  const bool byDefault = Chance(60);
  act.before.push_back(SetBox("chkDefaultCC", byDefault));
  act.steps.push_back(Insert("CustCreditCards", id, row));
  if (byDefault) act.steps.push_back(Change("Customers", acct, {{"DefaultCreditCard", id}}));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::ChangeCard() {
  const std::string id = ChooseOwned("CustCreditCards", "AcctNum");
  if (id.empty()) return std::nullopt;
  const std::string acct = Table("CustCreditCards")[id]["AcctNum"];
  Operation act = At(acct, 3);
  act.before.push_back("row grid(3) where CreditCardID " + id);
  act.before.push_back("click tb_EditRec");
  Row row{{"CCNumber", Digits(16)}, {"CCLimit", std::to_string(Roll(1, 5000))}, {"CCComment", Mark("card")}};
  act.before.push_back(TypeInto("txtCCNumber", row["CCNumber"]));
  act.before.push_back(TypeInto("txtCCLimit", row["CCLimit"]));
  act.before.push_back(TypeInto("txtCCComment", row["CCComment"]));
  const bool byDefault = Chance(50);
  act.before.push_back(SetBox("chkDefaultCC", byDefault));
  act.steps.push_back(Change("CustCreditCards", id, row));
  if (byDefault) act.steps.push_back(Change("Customers", acct, {{"DefaultCreditCard", id}}));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::DeleteCard() {
  const std::string id = ChooseOwned("CustCreditCards", "AcctNum");
  if (id.empty()) return std::nullopt;
  const std::string acct = Table("CustCreditCards")[id]["AcctNum"];
  Operation act = At(acct, 3);
  act.before.push_back("row grid(3) where CreditCardID " + id);
  DeleteCurrent(act);
  act.steps.push_back(Remove("CustCreditCards", id));
  if (Table("Customers")[acct]["DefaultCreditCard"] == id) act.steps.push_back(Change("Customers", acct, {{"DefaultCreditCard", "0"}}));
  return act;
}

}  // namespace system_test
