#include <algorithm>

#include "system/screen_kills/clerk.h"

// The tax tables' setup screen: types, entities and rates, each on a tab. Each act opens the screen and leaves it again.
namespace system_test {
namespace {

constexpr std::size_t kMost = 8;

struct TaxTab {
  const char* number;
  const char* table;
  const char* keyField;
  const char* entry;  ///< of the name on the card
  const char* nameField;
  const char* nameColumn;
};
constexpr TaxTab kTypes{"0", "TaxTypes", "TaxType", "txtTaxType", "TypeDescription", "Tax Type Description"};
constexpr TaxTab kEntities{"1", "TaxEntities", "TaxEntity", "txtTaxEntity", "EntityDescription", "Tax Entity Description"};
constexpr TaxTab kRates{"2", "TaxGrid", "TaxID", "txtDescription", "Description", "Description"};

std::string List(const TaxTab& tab) { return std::string("grid(") + tab.number + ")"; }

Operation On(const TaxTab& tab) {
  Operation act;
  act.before = {"click miSetupTaxes", std::string("tab SSIndexTab1 ") + tab.number};
  act.after = {"click cmdClose"};
  return act;
}

Operation OnRow(const TaxTab& tab, const std::string& key) {
  Operation act = On(tab);
  act.before.push_back("row " + List(tab) + " where " + tab.keyField + " " + key);
  return act;
}

/// A new card, on which its name is typed.
Operation Added(const TaxTab& tab, const std::string& name) {
  Operation act = On(tab);
  act.before.push_back("click tb_AddRec");
  act.before.push_back(TypeInto(tab.entry, name));
  SaveCard(act);
  return act;
}

Operation Changed(const TaxTab& tab, const std::string& key, const std::string& name) {
  Operation act = OnRow(tab, key);
  act.before.push_back("click tb_EditRec");
  act.before.push_back(TypeInto(tab.entry, name));
  SaveCard(act);
  return act;
}

Operation Renamed(const TaxTab& tab, const std::string& key, const std::string& name) {
  Operation act = OnRow(tab, key);
  act.before.push_back("cell " + List(tab) + " " + Quoted(tab.nameColumn) + " " + Quoted(name));
  act.write = {"leave " + List(tab)};
  act.steps = {Change(tab.table, key, {{tab.nameField, name}})};
  return act;
}

std::optional<Operation> Deleted(const TaxTab& tab, const std::string& key) {
  if (key.empty()) return std::nullopt;
  Operation act = OnRow(tab, key);
  act.before.push_back("answer Yes");
  act.write = {"click tb_DeleteRec"};
  act.after = {"expect box like \"Are you sure*\"", "click cmdClose"};
  act.steps = {Remove(tab.table, key)};
  return act;
}

/// What a save writes of a rate without percentages and limit.
Row Rate(const std::string& name, const std::string& type, const std::string& entity) {
  return {{"Description", name}, {"TaxType", type},     {"TaxEntity", entity}, {"TaxCode", ""},
          {"Mat", "0"},          {"Lab", "0"},          {"Oth", "0"},          {"GLMat", "00000000"},
          {"GLLab", "00000000"}, {"GLOth", "00000000"}, {"Limit", "0"},        {"LimitTransType", "I"},
          {"Comment", ""}};
}

}  // namespace

std::optional<Operation> Clerk::AddTaxClass(bool types) {
  const TaxTab& tab = types ? kTypes : kEntities;
  if (Table(tab.table).size() >= kMost) return std::nullopt;
  const std::string name = ListText(types ? "ttype" : "tentity");
  Operation act = Added(tab, name);
  const std::string number = TakeNumber(act, tab.table);
  Row row{{tab.keyField, number}, {tab.nameField, name}};
  if (types) {
    const int option = Roll(0, 2);
    act.before.push_back("click optTaxType(" + std::to_string(option) + ")");
    row["TypeCode"] = option == 0 ? "S" : option == 1 ? "U" : "O";
  }
  act.steps.push_back(Insert(tab.table, number, row));
  return act;
}

/// One that no rate has.
std::optional<Operation> Clerk::DeleteTaxClass(bool types) {
  const TaxTab& tab = types ? kTypes : kEntities;
  return Deleted(tab, Choose(tab.table, [&](const Row& row) {
                   return std::ranges::none_of(Table(kRates.table),
                                               [&](const auto& rate) { return rate.second.at(tab.keyField) == row.at(tab.keyField); });
                 }));
}

std::optional<Operation> Clerk::ChangeTaxClass(bool types, bool inTheList) {
  const TaxTab& tab = types ? kTypes : kEntities;
  const std::string key = Choose(tab.table);
  if (key.empty()) return std::nullopt;
  const std::string name = ListText(inTheList ? "tcell" : "tname");
  if (inTheList) return Renamed(tab, key, name);
  Operation act = Changed(tab, key, name);
  act.steps = {Change(tab.table, key, {{tab.nameField, name}})};
  return act;
}

std::optional<Operation> Clerk::AddTaxType() { return AddTaxClass(true); }
std::optional<Operation> Clerk::ChangeTaxType() { return ChangeTaxClass(true, false); }
std::optional<Operation> Clerk::RenameTaxTypeInTheList() { return ChangeTaxClass(true, true); }
std::optional<Operation> Clerk::DeleteTaxType() { return DeleteTaxClass(true); }
std::optional<Operation> Clerk::AddTaxEntity() { return AddTaxClass(false); }
std::optional<Operation> Clerk::ChangeTaxEntity() { return ChangeTaxClass(false, false); }
std::optional<Operation> Clerk::RenameTaxEntityInTheList() { return ChangeTaxClass(false, true); }
std::optional<Operation> Clerk::DeleteTaxEntity() { return DeleteTaxClass(false); }

std::optional<Operation> Clerk::AddTaxRate() {
  const std::string type = Choose(kTypes.table);
  const std::string entity = Choose(kEntities.table);
  if (type.empty() || entity.empty() || Table(kRates.table).size() >= kMost) return std::nullopt;
  const std::string name = ListText("rate");
  Operation act = Added(kRates, name);
  act.before.push_back("pick cboTypes key " + type);
  act.before.push_back("pick cboEntities key " + entity);
  const std::string number = TakeNumber(act, kRates.table);
  Row row = Rate(name, type, entity);
  row["TaxID"] = number;
  act.steps.push_back(Insert(kRates.table, number, row));
  return act;
}

std::optional<Operation> Clerk::ChangeTaxRate() {
  const std::string key = Choose(kRates.table);
  const std::string type = Choose(kTypes.table);
  const std::string entity = Choose(kEntities.table);
  if (key.empty() || type.empty() || entity.empty()) return std::nullopt;
  const std::string name = ListText("rname");
  Operation act = Changed(kRates, key, name);
  act.before.push_back("pick cboTypes key " + type);
  act.before.push_back("pick cboEntities key " + entity);
  act.steps = {Change(kRates.table, key, Rate(name, type, entity))};
  return act;
}

std::optional<Operation> Clerk::RenameTaxRateInTheList() {
  const std::string key = Choose(kRates.table);
  if (key.empty()) return std::nullopt;
  return Renamed(kRates, key, ListText("rcell"));
}

/// One that no customer has.
std::optional<Operation> Clerk::DeleteTaxRate() {
  return Deleted(kRates, Choose(kRates.table, [this](const Row& row) {
                   return std::ranges::none_of(Table("Customers"), [&](const auto& customer) {
                     return std::ranges::any_of(std::initializer_list<const char*>{"TaxBasisA", "TaxBasisB", "TaxBasisC", "TaxBasisD"},
                                                [&](const char* place) { return customer.second.at(place) == row.at("TaxID"); });
                   });
                 }));
}

}  // namespace system_test
