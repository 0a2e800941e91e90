#include "raw/labels.h"

#include <sqlite3.h>

#include <array>
#include <stdexcept>

namespace bench::raw {

namespace {

constexpr const char* sumOfLabels =
    "SELECT count(*), sum(AcctNum), sum(length(Name) + length(Address1) + length(Address2) + length(Address3) + length(City) + "
    "length(State) + length(Zip)) FROM ";

void Run(sqlite3* db, const std::string& sql) {
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) throw std::runtime_error(sql + ": " + sqlite3_errmsg(db));
}

sqlite3* WithTemporaryFile(sqlite3* db, const std::string& path) {
  Run(db, "ATTACH 'file:" + path + "?mode=rw' AS f3");
  for (const char* setting : {"cache_size=-8192", "synchronous=OFF", "mmap_size=0", "secure_delete=FAST"}) Run(db, std::string("PRAGMA f3.") + setting);
  return db;
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string_view LeftTrimmed(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

std::uint64_t SumFrom(Statement& sum) {
  sum.Step();
  const std::uint64_t all =
      static_cast<std::uint64_t>(sum.Int(0)) * 31 + static_cast<std::uint64_t>(sum.Int(1)) * 7 + static_cast<std::uint64_t>(sum.Int(2));
  sum.Reset();
  return all;
}

}  // namespace

struct Labels::Statements {
  explicit Statements(sqlite3* handle)
      : db(handle),
        clearLabels(db, "DELETE FROM f3.CustLabelTempRpt"),
        customers(db, "SELECT AcctNum, Title, FirstName, LastName, Addr1, Addr2, City, State, Zip FROM f1.Customers ORDER BY AcctNum DESC"),
        insert(db,
               "INSERT INTO f3.CustLabelTempRpt (AcctNum, Name, Address1, Address2, Address3, City, State, Zip) VALUES "
               "(?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"),
        sum(db, std::string(sumOfLabels) + "f3.CustLabelTempRpt"),
        clearCustomers(db, "DELETE FROM f3.Customers"),
        copyInOrder(db, "INSERT INTO f3.Customers SELECT * FROM f1.Customers ORDER BY LastName, AcctNum"),
        copyByColumns(db, "INSERT INTO f3.Customers SELECT * FROM f1.Customers WHERE AcctNum > 0"),
        copyTable(db, "INSERT INTO f3.Customers SELECT * FROM f1.Customers"),
        copied(db, "SELECT count(*) FROM f3.Customers") {}

  sqlite3* db;
  Statement clearLabels, customers, insert, sum, clearCustomers, copyInOrder, copyByColumns, copyTable, copied;
};

Labels::Labels(Store& customers, const std::string& temporaryFile)
    : statements_(std::make_unique<Statements>(WithTemporaryFile(customers.Handle(), temporaryFile))) {}

Labels::~Labels() = default;

void Labels::ClearLabels() {
  statements_->clearLabels.Step();
  statements_->clearLabels.Reset();
}

void Labels::Load() {
  Statement& rows = statements_->customers;
  Statement& insert = statements_->insert;
  std::string name, city;
  while (rows.Step()) {
    name.clear();
    for (const int part : {1, 2})
      if (const std::string_view text = Trimmed(rows.Text(part)); !text.empty()) name.append(text).append(" ");
    name.append(Trimmed(rows.Text(3)));
    city.assign(LeftTrimmed(rows.Text(6))).append(", ").append(LeftTrimmed(rows.Text(7))).append(" ").append(LeftTrimmed(rows.Text(8)));
    std::array<std::string_view, 3> lines;
    std::size_t count = 0;
    for (const int part : {4, 5})
      if (const std::string_view text = LeftTrimmed(rows.Text(part)); !text.empty()) lines[count++] = text;
    lines[count] = city;

    insert.Bind(1, rows.Int(0));
    insert.Bind(2, name);
    for (int line = 0; line < 3; ++line) {
      const std::string_view text = lines[static_cast<std::size_t>(line)];
      insert.Bind(3 + line, text.empty() ? std::string_view("") : text);
    }
    for (int part = 6; part < 9; ++part) {
      const std::string_view text = Trimmed(rows.Text(part));
      insert.Bind(part, text.empty() ? std::string_view("") : text);
    }
    insert.Step();
    insert.Reset();
  }
  rows.Reset();
}

std::uint64_t Labels::Sum() { return SumFrom(statements_->sum); }

void Labels::ClearCustomers() {
  statements_->clearCustomers.Step();
  statements_->clearCustomers.Reset();
}

void Labels::Copy(Way way) {
  Statement& copy = way == Way::InOrder     ? statements_->copyInOrder
                    : way == Way::ByColumns ? statements_->copyByColumns
                                            : statements_->copyTable;
  copy.Step();
  copy.Reset();
}

std::int64_t Labels::Copied() {
  statements_->copied.Step();
  const std::int64_t rows = statements_->copied.Int(0);
  statements_->copied.Reset();
  return rows;
}

std::uint64_t SumOfLabels(const std::string& temporaryFile) {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(temporaryFile.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) throw std::runtime_error(temporaryFile);
  std::uint64_t all = 0;
  {
    Statement sum(db, std::string(sumOfLabels) + "CustLabelTempRpt");
    all = SumFrom(sum);
  }
  sqlite3_close(db);
  return all;
}

}  // namespace bench::raw
