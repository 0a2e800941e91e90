#include "hostile/books.h"

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

#include "hostile/server_books.h"
#include "maintenance/frmCustMain.h"
#include "platform/values/text.h"

namespace hostile {
namespace {

struct CloseFile {
  void operator()(sqlite3* file) const { sqlite3_close(file); }
};
struct EndStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using File = std::unique_ptr<sqlite3, CloseFile>;
using Statement = std::unique_ptr<sqlite3_stmt, EndStatement>;

File Open(const std::string& path) {
  sqlite3* file = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &file, SQLITE_OPEN_READWRITE, nullptr);
  File opened(file);
  if (code != SQLITE_OK) throw std::runtime_error("can't open " + path);
  return opened;
}

Statement Prepare(const File& file, const std::string& text) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(file.get(), text.c_str(), -1, &statement, nullptr) != SQLITE_OK)
    throw std::runtime_error(text + ": " + sqlite3_errmsg(file.get()));
  return Statement(statement);
}

std::string Column(const Statement& row, int column) {
  const auto* text = sqlite3_column_text(row.get(), column);
  return text == nullptr ? "Null" : reinterpret_cast<const char*>(text);
}

/// Tables whose rows belong to a customer, and the field that says to whom.
const char* AccountField(const std::string& table) {
  for (const char* one : {"Customers", "Phones", "CustCreditCards", "CustLaborRates", "CustCodes", "Lookups"})
    if (table == one) return "AcctNum";
  return table == "Addresses" ? "Customer" : nullptr;
}

Books::Table Read(const File& file, const std::string& table) {
  Books::Table rows;
  const Statement select = Prepare(file, "SELECT * FROM \"" + table + "\"");
  const char* account = AccountField(table);
  int accountColumn = -1;
  for (int i = 0; account != nullptr && i < sqlite3_column_count(select.get()); ++i)
    if (platform::EqualsNoCase(sqlite3_column_name(select.get(), i), account)) accountColumn = i;
  if (account != nullptr && accountColumn < 0) throw std::runtime_error(table + " has no field " + account);
  while (sqlite3_step(select.get()) == SQLITE_ROW) {
    std::string text;
    for (int i = 0; i < sqlite3_column_count(select.get()); ++i) text += (i == 0 ? "" : "|") + Column(select, i);
    const std::int32_t owner = accountColumn < 0 ? 0 : sqlite3_column_int(select.get(), accountColumn);
    rows[owner].insert(text);
  }
  return rows;
}

/// The tables that the record operations of each tab write.
std::set<std::string> TablesOf(int tab) {
  using namespace orcussch;
  switch (tab) {
    case tab::Customers:
      return {"Customers", "CustLaborRates"};  // a save may ask to delete the rates
    case tab::Phones:
      return {"Phones", "Customers"};
    case tab::Addresses:
      return {"Addresses", "Customers"};
    case tab::CreditCards:
      return {"CustCreditCards", "Customers"};
    case tab::LaborRates:
      return {"CustLaborRates"};
    case tab::CustomerTypes:
      return {"DataCodes", "CustCodes"};
    case tab::KeyWords:
      return {"Keywords", "Lookups"};
    default:
      return {};
  }
}

bool IsCodeTable(const std::string& table) {
  for (const char* one : {"DataCodes", "Keywords", "PhoneTypes", "CreditCardTypes", "Locations", "TaxTypes", "TaxEntities", "TaxGrid"})
    if (table == one) return true;
  return false;
}

const Books::Rows& RowsOf(const Books::Table& table, std::int32_t account) {
  static const Books::Rows none;
  const auto found = table.find(account);
  return found == table.end() ? none : found->second;
}

std::set<std::int32_t> Accounts(const Books::Table& one, const Books::Table& other) {
  std::set<std::int32_t> accounts;
  for (const auto* table : {&one, &other})
    for (const auto& [account, rows] : *table) accounts.insert(account);
  return accounts;
}

std::string Difference(const Books::Rows& before, const Books::Rows& after) {
  std::string text;
  for (const std::string& row : before)
    if (!after.contains(row)) text += " gone <" + row + ">";
  for (const std::string& row : after)
    if (!before.contains(row)) text += " came <" + row + ">";
  return text;
}

}  // namespace

Books Books::Of(const std::string& customerFile) {
  Books books;
  if (IsOnServer(customerFile)) {
    for (const std::string& table : TablesOnServer(customerFile)) books.tables_[table];
    for (const ServerRow& row : RowsOnServer(customerFile, AccountField)) books.tables_[row.table][row.owner].insert(row.text);
    return books;
  }
  const File file = Open(customerFile);
  const Statement names = Prepare(file, "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%'");
  std::vector<std::string> tables;
  while (sqlite3_step(names.get()) == SQLITE_ROW) tables.push_back(Column(names, 0));
  for (const std::string& table : tables) books.tables_[table] = Read(file, table);
  return books;
}

bool Books::HasCustomer(std::int32_t account) const { return !RowsOf(tables_.at("Customers"), account).empty(); }

std::set<std::string> Books::Assigned(const std::string& table, std::int32_t account) const {
  std::set<std::string> assigned;
  for (const std::string& row : RowsOf(tables_.at(table), account)) assigned.insert(row.substr(row.rfind('|') + 1));
  return assigned;
}

bool Writable(const std::string& path) {
  if (IsOnServer(path)) return WritableOnServer(path);
  const File file = Open(path);
  const bool begun = sqlite3_exec(file.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK;
  if (begun) sqlite3_exec(file.get(), "ROLLBACK", nullptr, nullptr, nullptr);
  return begun;
}

std::vector<std::string> Strays(const Books& before, const Books& after, const Allowed& allowed) {
  std::set<std::string> written = allowed.tables;
  for (const int tab : allowed.tabs)
    for (const std::string& table : TablesOf(tab)) written.insert(table);
  std::vector<std::string> strays;
  for (const auto& [table, was] : before.Tables()) {
    const Books::Table& is = after.Tables().at(table);
    const bool ofCustomers = AccountField(table) != nullptr;
    if (!ofCustomers && !IsCodeTable(table)) continue;  // counters, links
    for (const std::int32_t account : Accounts(was, is)) {
      const Books::Rows& old = RowsOf(was, account);
      const Books::Rows& now = RowsOf(is, account);
      if (old == now) continue;
      const std::string what = table + " of customer " + std::to_string(account) + ":" + Difference(old, now);
      if (!written.contains(table)) {
        strays.push_back("written without leave: " + what);
        continue;
      }
      if (!ofCustomers) continue;
      if (!after.HasCustomer(account) && now.size() > old.size()) strays.push_back("belongs to nobody: " + what);
      if (before.HasCustomer(account) && !allowed.customers.contains(account)) strays.push_back("another customer: " + what);
    }
  }
  return strays;
}

}  // namespace hostile
