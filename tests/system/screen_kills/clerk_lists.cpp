#include <algorithm>

#include "system/screen_kills/clerk.h"

namespace system_test {
namespace {

constexpr int kTypes = 5;
constexpr int kWords = 6;
constexpr std::size_t kFewest = 4;  ///< entries that are left, so that there are some to tick together
constexpr std::size_t kMost = 14;

/// A list of the company and the table of what customers have of it.
struct ListTables {
  const char* entries;
  const char* keyField;   ///< by which the list names an entry
  const char* textField;  ///< by which it is ordered
  const char* assigned;
  const char* assignedField;
};
ListTables TablesOf(int tab) {
  if (tab == kTypes) return {"DataCodes", "Code", "Description", "CustCodes", "CustCodes"};
  return {"Keywords", "Keyword", "Keyword", "Lookups", "Text"};
}

std::string AssignedKey(const std::string& acct, const std::string& entry) { return acct + "|" + entry; }

Step Assigned(int tab, const std::string& acct, const std::string& entry) {
  const ListTables tables = TablesOf(tab);
  return Insert(tables.assigned, AssignedKey(acct, entry), {{"AcctNum", acct}, {tables.assignedField, entry}});
}

}  // namespace

std::string Clerk::ListText(const std::string& word) {
  std::string number = std::to_string(++serial_);
  // Of one length, so that they stand in the list as they are counted.
  return word + std::string(8 - number.size(), '0') + number;
}

bool Clerk::HasAnybody(int tab, const std::string& entry) {
  const ListTables tables = TablesOf(tab);
  return std::ranges::any_of(Table(tables.assigned), [&](const auto& row) { return row.second.at(tables.assignedField) == entry; });
}

// ---- types

std::optional<Operation> Clerk::AddType() {
  const std::string acct = Choose("Customers");
  if (acct.empty() || Table("DataCodes").size() >= kMost) return std::nullopt;
  int last = 0;
  for (const auto& [key, row] : Table("DataCodes")) last = std::max(last, std::stoi(key));
  const std::string code = std::to_string(last + 1);
  const std::string text = ListText("type");
  const bool assign = Chance(40);
  Operation act = At(acct, kTypes);
  act.before.push_back("click tb_AddRec");
  act.before.push_back(TypeInto("txtCustomerType", text));
  act.before.push_back(SetBox("chkAssignCustType", assign));
  act.steps.push_back(Insert("DataCodes", code, {{"Code", code}, {"Description", text}}));
  if (assign) act.steps.push_back(Assigned(kTypes, acct, code));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::ChangeType() {
  const std::string acct = Choose("Customers");
  const std::string code = Choose("DataCodes");
  if (acct.empty() || code.empty()) return std::nullopt;
  const std::string text = ListText("kind");
  Operation act = At(acct, kTypes);
  act.before.push_back("row grid(5) where Code " + code);
  act.before.push_back("click tb_EditRec");
  act.before.push_back(TypeInto("txtCustomerType", text));
  act.steps.push_back(Change("DataCodes", code, {{"Description", text}}));
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::RenameTypeInTheList() {
  const std::string acct = Choose("Customers");
  const std::string code = Choose("DataCodes");
  if (acct.empty() || code.empty()) return std::nullopt;
  const std::string text = ListText("cell");
  Operation act = At(acct, kTypes);
  act.before.push_back("row grid(5) where Code " + code);
  act.write = {"cell grid(5) \"Type Description\" " + text};
  act.steps.push_back(Change("DataCodes", code, {{"Description", text}}));
  return act;
}

std::optional<Operation> Clerk::DeleteType() {
  const std::string acct = Choose("Customers");
  const std::string code = Choose("DataCodes", [this](const Row& row) { return !HasAnybody(kTypes, row.at("Code")); });
  if (acct.empty() || code.empty() || Table("DataCodes").size() <= kFewest) return std::nullopt;
  Operation act = At(acct, kTypes);
  act.before.push_back("row grid(5) where Code " + code);
  DeleteCurrent(act);
  // The rules compare the code with a text to find the successor, and say so.
  act.after.push_back("expect log frmCustMain.RecordDelete 3464");
  act.steps.push_back(Remove("DataCodes", code));
  return act;
}

// ---- key words

std::optional<Operation> Clerk::AddWord() {
  const std::string acct = Choose("Customers");
  if (acct.empty() || Table("Keywords").size() >= kMost) return std::nullopt;
  const std::string word = ListText("word");
  const bool assign = Chance(40);
  Operation act = At(acct, kWords);
  act.before.push_back("click tb_AddRec");
  act.before.push_back(TypeInto("txtKeyWord", word));
  act.before.push_back(SetBox("chkAssignKeyWord", assign));
  act.steps.push_back(Insert("Keywords", word, {{"Keyword", word}}));
  if (assign) act.steps.push_back(Assigned(kWords, acct, word));
  SaveCard(act);
  return act;
}

/// The customers who have the old word keep it.
std::optional<Operation> Clerk::ChangeWord() {
  const std::string acct = Choose("Customers");
  const std::string old = Choose("Keywords");
  if (acct.empty() || old.empty()) return std::nullopt;
  const std::string word = ListText("name");
  Operation act = At(acct, kWords);
  act.before.push_back("row grid(6) where Keyword " + old);
  act.before.push_back("click tb_EditRec");
  act.before.push_back(TypeInto("txtKeyWord", word));
  act.steps.push_back({[old, word](Books& books) {
                         books.tables["Keywords"].erase(old);
                         books.tables["Keywords"][word] = {{"Keyword", word}};
                       },
                       "Keywords", old});
  SaveCard(act);
  return act;
}

std::optional<Operation> Clerk::DeleteWord() {
  const std::string acct = Choose("Customers");
  const std::string word = Choose("Keywords", [this](const Row& row) { return !HasAnybody(kWords, row.at("Keyword")); });
  if (acct.empty() || word.empty() || Table("Keywords").size() <= kFewest) return std::nullopt;
  Operation act = At(acct, kWords);
  act.before.push_back("row grid(6) where Keyword " + word);
  DeleteCurrent(act);
  act.steps.push_back(Remove("Keywords", word));
  return act;
}

// ---- boxes

std::optional<Operation> Clerk::Tick(int tab, bool tick) {
  const ListTables tables = TablesOf(tab);
  std::string entry;
  const std::string acct = Choose("Customers", [&](const Row& customer) {
    return std::ranges::any_of(Table(tables.entries), [&](const auto& row) {
      return Table(tables.assigned).contains(AssignedKey(customer.at("AcctNum"), row.first)) != tick;
    });
  });
  if (acct.empty()) return std::nullopt;
  entry = Choose(tables.entries,
                 [&](const Row& row) { return Table(tables.assigned).contains(AssignedKey(acct, row.at(tables.keyField))) != tick; });
  const std::string list = "grid(" + std::to_string(tab) + ")";
  Operation act = At(acct, tab);
  act.before.push_back("row " + list + " where " + tables.keyField + " " + entry);
  act.write = {"cell " + list + " Assigned " + (tick ? "True" : "False")};
  act.steps.push_back(tick ? Assigned(tab, acct, entry) : Remove(tables.assigned, AssignedKey(acct, entry)));
  return act;
}

std::optional<Operation> Clerk::TickTogether(int tab, bool tick) {
  const ListTables tables = TablesOf(tab);
  const std::string acct = Choose("Customers");
  if (acct.empty() || Table(tables.entries).size() < 2) return std::nullopt;
  Operation act = At(acct, tab);
  act.before.push_back("click tb_SelectAll");
  act.write = {tick ? "click tb_AssignSelected" : "click tb_UnassignSelected"};
  act.after = {"click tb_UnselectAll"};
  std::vector<std::pair<std::string, std::string>> list;
  for (const auto& [key, row] : Table(tables.entries)) list.emplace_back(row.at(tables.textField), key);
  std::ranges::sort(list);
  for (const auto& [text, entry] : list) {
    if (Table(tables.assigned).contains(AssignedKey(acct, entry)) == tick) continue;
    act.steps.push_back(tick ? Assigned(tab, acct, entry) : Remove(tables.assigned, AssignedKey(acct, entry)));
  }
  return act;
}

std::optional<Operation> Clerk::TickType() { return Tick(kTypes, true); }
std::optional<Operation> Clerk::UntickType() { return Tick(kTypes, false); }
std::optional<Operation> Clerk::AssignTypes() { return TickTogether(kTypes, true); }
std::optional<Operation> Clerk::UnassignTypes() { return TickTogether(kTypes, false); }
std::optional<Operation> Clerk::TickWord() { return Tick(kWords, true); }
std::optional<Operation> Clerk::UntickWord() { return Tick(kWords, false); }
std::optional<Operation> Clerk::AssignWords() { return TickTogether(kWords, true); }
std::optional<Operation> Clerk::UnassignWords() { return TickTogether(kWords, false); }

}  // namespace system_test
