#include <algorithm>

#include "system/screen_kills/clerk.h"

// The setup screens: phone types, credit card types, map codes. Each act opens its screen and leaves it again.
namespace system_test {
namespace {

constexpr std::size_t kMostMapCodes = 12;

bool IsDigit(const std::string& code) { return code >= "1" && code <= "9"; }

/// The setup screen of one table.
struct Setup {
  const char* command;
  const char* table;
  const char* keyField;
  const char* list;
  const char* entry;  ///< of the name on the card
  const char* nameField;
  const char* nameColumn;
};
constexpr Setup kPhoneTypes{"miSetupPhones", "PhoneTypes", "Type", "grdPhoneTypes", "txtPhone", "TypeDescription", "Phone Type"};
constexpr Setup kCardTypes{"miSetupCreditCards", "CreditCardTypes", "CreditCardType",  "grdCreditCard",
                           "txtCreditCardName",  "CreditCardName",  "Credit Card Name"};
constexpr Setup kMapCodes{"miSetupMapCodes", "Locations", "RecordID", "grdLocations", "txtMapCode", "MapCode", "Map Code"};

Operation On(const Setup& setup) {
  Operation act;
  act.before = {std::string("click ") + setup.command};
  act.after = {"click cmdClose"};
  return act;
}

Operation OnRow(const Setup& setup, const std::string& key) {
  Operation act = On(setup);
  act.before.push_back(std::string("row ") + setup.list + " where " + setup.keyField + " " + key);
  return act;
}

Operation Changed(const Setup& setup, const std::string& key, const std::string& name) {
  Operation act = OnRow(setup, key);
  act.before.push_back("click tb_EditRec");
  act.before.push_back(TypeInto(setup.entry, name));
  SaveCard(act);
  act.steps = {Change(setup.table, key, {{setup.nameField, name}})};
  return act;
}

Operation Renamed(const Setup& setup, const std::string& key, const std::string& name) {
  Operation act = OnRow(setup, key);
  act.before.push_back(std::string("cell ") + setup.list + " " + Quoted(setup.nameColumn) + " " + Quoted(name));
  act.write = {std::string("leave ") + setup.list};
  act.steps = {Change(setup.table, key, {{setup.nameField, name}})};
  return act;
}

Operation Deleted(const Setup& setup, const std::string& key) {
  Operation act = OnRow(setup, key);
  act.before.push_back("answer Yes");
  act.write = {"click tb_DeleteRec"};
  act.after = {"expect box like \"Are you sure*\"", "click cmdClose"};
  act.steps = {Remove(setup.table, key)};
  return act;
}

}  // namespace

/// The number behind the greatest; "" when all nine are given.
std::string Clerk::NextCode(const char* table) {
  char greatest = '0';
  for (const auto& [code, row] : Table(table))
    if (IsDigit(code)) greatest = std::max(greatest, code.front());
  return greatest == '9' ? "" : std::string(1, static_cast<char>(greatest + 1));
}

/// A code that no program knows and nobody has.
std::string Clerk::ChooseFreeCode(const char* table, const char* field, const char* users, const char* used) {
  return Choose(table, [&](const Row& row) {
    const std::string& code = row.at(field);
    return IsDigit(code) && std::ranges::none_of(Table(users), [&](const auto& user) { return user.second.at(used) == code; });
  });
}

std::optional<Operation> Clerk::AddPhoneType() {
  const std::string code = NextCode(kPhoneTypes.table);
  if (code.empty()) return std::nullopt;
  const std::string name = ListText("ptype");
  Operation act = On(kPhoneTypes);
  act.before.push_back("click tb_AddRec");
  act.before.push_back(TypeInto(kPhoneTypes.entry, name));
  SaveCard(act);
  act.steps = {Insert(kPhoneTypes.table, code, {{"Type", code}, {"TypeDescription", name}})};
  return act;
}

std::optional<Operation> Clerk::ChangePhoneType() { return Changed(kPhoneTypes, Choose(kPhoneTypes.table), ListText("pname")); }

std::optional<Operation> Clerk::RenamePhoneTypeInTheList() { return Renamed(kPhoneTypes, Choose(kPhoneTypes.table), ListText("pcell")); }

std::optional<Operation> Clerk::DeletePhoneType() {
  const std::string code = ChooseFreeCode(kPhoneTypes.table, "Type", "Phones", "Type");
  if (code.empty()) return std::nullopt;
  return Deleted(kPhoneTypes, code);
}

std::optional<Operation> Clerk::AddCardType() {
  const std::string code = NextCode(kCardTypes.table);
  if (code.empty()) return std::nullopt;
  const std::string name = ListText("ctype");
  const std::string charge = std::to_string(Roll(1, 9)) + ".5";
  Operation act = On(kCardTypes);
  act.before.push_back("click tb_AddRec");
  act.before.push_back(TypeInto(kCardTypes.entry, name));
  act.before.push_back(TypeInto("txtBankCharge", charge));
  SaveCard(act);
  act.steps = {Insert(kCardTypes.table, code, {{"CreditCardType", code}, {"CreditCardName", name}, {"BankCharge", charge}})};
  return act;
}

std::optional<Operation> Clerk::ChangeCardType() { return Changed(kCardTypes, Choose(kCardTypes.table), ListText("cname")); }

std::optional<Operation> Clerk::RenameCardTypeInTheList() { return Renamed(kCardTypes, Choose(kCardTypes.table), ListText("ccell")); }

std::optional<Operation> Clerk::DeleteCardType() {
  const std::string code = ChooseFreeCode(kCardTypes.table, "CreditCardType", "CustCreditCards", "CCType");
  if (code.empty()) return std::nullopt;
  return Deleted(kCardTypes, code);
}

std::optional<Operation> Clerk::AddMapCode() {
  if (Table(kMapCodes.table).size() >= kMostMapCodes) return std::nullopt;
  const std::string code = ListText("map");
  const std::string place = ListText("place");
  Operation act = On(kMapCodes);
  act.before.push_back("click tb_AddRec");
  act.before.push_back(TypeInto(kMapCodes.entry, code));
  act.before.push_back(TypeInto("txtLocation", place));
  SaveCard(act);
  const std::string number = TakeNumber(act, kMapCodes.table);
  act.steps.push_back(Insert(kMapCodes.table, number, {{"RecordID", number}, {"MapCode", code}, {"Location", place}}));
  return act;
}

std::optional<Operation> Clerk::ChangeMapCode() {
  const std::string number = Choose(kMapCodes.table);
  if (number.empty()) return std::nullopt;
  return Changed(kMapCodes, number, ListText("mname"));
}

std::optional<Operation> Clerk::RenameMapCodeInTheList() {
  const std::string number = Choose(kMapCodes.table);
  if (number.empty()) return std::nullopt;
  return Renamed(kMapCodes, number, ListText("mcell"));
}

std::optional<Operation> Clerk::DeleteMapCode() {
  const std::string number = Choose(kMapCodes.table);
  if (number.empty()) return std::nullopt;
  return Deleted(kMapCodes, number);
}

}  // namespace system_test
