#include "server/bare_lists.h"

#include <sqlite3.h>

#include <exception>
#include <iostream>

namespace bench::bare {
namespace {

using raw::Statement;
using raw::Ticked;

constexpr std::int64_t kInstance = 1;

std::string WorkTable(Ticked list) { return list == Ticked::Types ? "f3.CU_AssignDataCodes" : "f3.CU_AssignKeywords"; }
std::string NameOf(Ticked list) { return list == Ticked::Types ? "Description" : "Keyword"; }
std::string ColumnsOf(Ticked list) { return list == Ticked::Types ? "Code, Description" : "Keyword"; }

void RunOnce(Statement& statement) {
  statement.Step();
  statement.Reset();
}

}  // namespace

struct Lists::Statements {
  Statements(sqlite3* db, Ticked list)
      : begin(db, "BEGIN"),
        commit(db, "COMMIT"),
        clear(db, "DELETE FROM " + WorkTable(list) + " WHERE Instance = ?1"),
        insert(db, "INSERT OR IGNORE INTO " + WorkTable(list) + " (Instance, Assign, " + ColumnsOf(list) + ") VALUES (?1, ?2, ?3" +
                       (list == Ticked::Types ? ", ?4)" : ")")),
        page(db, "SELECT Instance, Assign, " + ColumnsOf(list) + " FROM " + WorkTable(list) + " WHERE Instance = ?1 ORDER BY " +
                     NameOf(list) + " LIMIT ?2") {}
  Statement begin, commit, clear, insert, page;
};

Lists::Lists(Server& server, const std::string& temporaryFile, Ticked list)
    : server_(server),
      db_(raw::WithTemporaryFile(raw::OpenWithOurOrder(), temporaryFile)),
      statements_(std::make_unique<Statements>(db_, list)) {
  const std::string table = Server::Table(list == Ticked::Types ? "DataCodes" : "Keywords");
  source_ =
      list == Ticked::Types ? R"(SELECT s."Code", s."Description" FROM )" + table + " s" : R"(SELECT s."Keyword" FROM )" + table + " s";
  assigned_ = source_ +
              (list == Ticked::Types ? " JOIN " + Server::Table("CustCodes") + R"( a ON a."CustCodes" = s."Code")"
                                     : " JOIN " + Server::Table("Lookups") + R"( a ON a."~k.Text" = s."~k.Keyword")") +
              R"( WHERE a."AcctNum" = $1)";
}

Lists::~Lists() {
  statements_.reset();
  sqlite3_close(db_);
}

void Lists::Clear() {
  statements_->clear.Bind(1, kInstance);
  RunOnce(statements_->clear);
}

void Lists::Fill(const std::string& rows, const std::vector<std::string>& parameters, std::int64_t ticked) {
  RunOnce(statements_->begin);
  Statement& insert = statements_->insert;
  insert.Bind(1, kInstance);
  insert.Bind(2, ticked);
  // A code comes as a text and becomes its column's number.
  server_.Each(rows, parameters, [&insert](const std::vector<std::string_view>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) insert.Bind(static_cast<int>(i) + 3, row[i]);
    RunOnce(insert);
  });
  RunOnce(statements_->commit);
}

void Lists::Load(std::int64_t account) {
  Fill(assigned_, {std::to_string(account)}, -1);
  Fill(source_, {}, 0);
}

raw::Rows Lists::Page(int count) {
  Statement& page = statements_->page;
  page.Bind(1, kInstance);
  page.Bind(2, std::int64_t{count});
  raw::Rows rows{static_cast<std::size_t>(page.Columns()), {}};
  while (page.Step()) page.CopyRow(rows);
  page.Reset();
  return rows;
}

InventedEntries::InventedEntries(Server& server, Ticked list, int entries)
    : server_(server), table_(Server::Table(list == Ticked::Types ? "DataCodes" : "Keywords")) {
  before_ = server_.Value("SELECT coalesce(max(\"~key\"), 0) FROM " + table_);
  const std::int64_t there = std::stoll(server_.Value("SELECT count(*) FROM " + table_));
  std::string values;
  for (std::int64_t i = there; i < entries; ++i)
    values += (values.empty() ? "('" : ", ('") + raw::InventedWord(i) + "', " + std::to_string(i - there + 1) + ')';
  if (values.empty()) return;
  server_.Run(list == Ticked::Types ? "INSERT INTO " + table_ + R"( ("Code", "Description") SELECT (SELECT max("Code") FROM )" + table_ +
                                          ") + n, w FROM (VALUES " + values + ") v(w, n)"
                                    : "INSERT INTO " + table_ + R"( ("Keyword") SELECT w FROM (VALUES )" + values + ") v(w, n)");
  server_.Run("ANALYZE " + table_);
}

InventedEntries::~InventedEntries() {
  try {
    server_.Run("DELETE FROM " + table_ + " WHERE \"~key\" > " + before_);
  } catch (const std::exception& error) {
    std::cerr << "invented entries stay: " << error.what() << "\n";
  }
}

}  // namespace bench::bare
