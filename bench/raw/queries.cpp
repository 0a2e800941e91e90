#include "raw/queries.h"

#include <sqlite3.h>

#include <ctime>

#include <algorithm>
#include <vector>

#include "engine/text/text_order.h"

namespace bench::raw {
namespace {

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c);
  return quoted + "'";
}

// A fixed start as a range of the index, with the whole test behind it.
std::string Starts(const std::string& column, const std::string& start) {
  const engine::PrimaryRange range = engine::PrefixRange(start);
  return column + " >= " + Quoted(range.lower) + " AND " + column + " < " + Quoted(range.upper) + " AND raw_like(" + column + ", " +
         Quoted(start + "*") + ")";
}

const std::string phonesOfOne = "f1.Phones p INDEXED BY \"Phones.xCustomer\" WHERE p.AcctNum = c.AcctNum";
const std::string wordsOfOne = "f1.Lookups l INDEXED BY \"Lookups.ByAcct\" WHERE l.AcctNum = c.AcctNum";
const std::string typesOfOne = "f1.CustCodes k INDEXED BY \"CustCodes.AcctCode\" WHERE k.AcctNum = c.AcctNum";
const std::string byName = "f1.Customers c INDEXED BY \"Customers.xLastName\"";

}  // namespace

std::string Queries::Ask(const std::string& sql) const {
  Statement statement(db_, sql);
  return statement.Step() ? std::string(statement.Text(0)) : std::string();
}

Queries::Queries(sqlite3* db) : db_(db) {
  const std::string areas = "SELECT Area FROM f1.Phones WHERE Area <> '' GROUP BY Area ORDER BY count(*) ";
  commonArea_ = Ask(areas + "DESC LIMIT 1");
  rareArea_ = Ask(areas + "LIMIT 1");
  const std::string words = "SELECT Text FROM f1.Lookups GROUP BY Text ORDER BY count(*) ";
  commonWord_ = Ask(words + "DESC LIMIT 1");
  rareWord_ = Ask("SELECT Text FROM f1.Lookups GROUP BY Text HAVING count(*) >= 10 ORDER BY count(*) LIMIT 1");
  invoice_ = Ask(
      "SELECT InvChkCredNo FROM f2.Transactions WHERE TranType <> 'P' AND AcctNum >= (SELECT max(AcctNum) / 2 FROM f1.Customers) LIMIT 1");
  middleDate_ =
      Ask("SELECT strftime('%m/%d/%Y', EntryDate) FROM f1.Customers WHERE EntryDate IS NOT NULL ORDER BY EntryDate LIMIT 1 OFFSET "
          "(SELECT count(*) / 2 FROM f1.Customers)");
}

Query Queries::NameStarts(const std::string& start) const { return {Starts("c.LastName", start)}; }

Query Queries::StateAndBalance(const std::string& state, int balance) const {
  return {"raw_like(c.State, " + Quoted(state) + ") AND c.CurrBalance >= " + std::to_string(std::int64_t{balance} * 10'000)};
}

Query Queries::AddressContains(const std::string& pattern) const {
  return {"(raw_like(c.Addr1, " + Quoted(pattern) + ") OR raw_like(c.Addr2, " + Quoted(pattern) + "))"};
}

Query Queries::Area(const std::string& area) const {
  return {"EXISTS (SELECT 1 FROM " + phonesOfOne + " AND " + Starts("p.Area", area) + ")",
          "SELECT DISTINCT p.AcctNum FROM f1.Phones p WHERE " + Starts("p.Area", area)};
}

Query Queries::Word(const std::string& word) const {
  return {"EXISTS (SELECT 1 FROM " + wordsOfOne + " AND l.Text = " + Quoted(word) + ")",
          "SELECT l.AcctNum FROM f1.Lookups l WHERE l.Text = " + Quoted(word)};
}

Query Queries::Invoice(const std::string& number) const {
  const std::string test = "t.InvChkCredNo = " + Quoted(number) + " AND t.TranType <> 'P'";
  return {"EXISTS (SELECT 1 FROM f2.Transactions t INDEXED BY \"Transactions.xCustomer\" WHERE t.AcctNum = c.AcctNum AND " + test + ")",
          "SELECT DISTINCT t.AcctNum FROM f2.Transactions t INDEXED BY \"Transactions.xNumber\" WHERE " + test};
}

Query Queries::WordTypeAndArea(const std::string& word, int type, const std::string& area) const {
  Query query = Word(word);
  query.rest = "EXISTS (SELECT 1 FROM " + typesOfOne + " AND k.CustCodes = " + std::to_string(type) + ") AND " + Area(area).where;
  query.where += " AND " + query.rest;
  return query;
}

Query Queries::AreaAndInvoice(const std::string& area, const std::string& number) const {
  Query query = Invoice(number);
  query.rest = Area(area).where;
  query.where += " AND " + query.rest;
  return query;
}

Query Queries::EnteredSince(const std::string& date) const {
  return {"c.EntryDate >= '" + date.substr(6) + '-' + date.substr(0, 2) + '-' + date.substr(3, 2) + "'"};
}

Query Queries::Parents() const {
  return {"EXISTS (SELECT 1 FROM f1.SuperCustomers s INDEXED BY \"SuperCustomers.xPrimary\" WHERE s.[Primary] = c.AcctNum)",
          "SELECT DISTINCT s.[Primary] AS AcctNum FROM f1.SuperCustomers s", "",
          "c.AcctNum, c.LastName, c.FirstName, c.Title, c.Addr1, c.Addr2, c.City, c.Zip, c.Country"};
}

// ---- run

struct PreparedQuery::Statements {
  Statements(sqlite3* db, const Query& query)
      : begin(db, "BEGIN"),
        commit(db, "COMMIT"),
        walk(db, "SELECT " + query.columns + " FROM " + byName + " WHERE " + query.where + " ORDER BY c.LastName, c.AcctNum LIMIT ?1"),
        last(db, "SELECT " + query.columns + " FROM " + byName + " WHERE " + query.where + " ORDER BY c.LastName DESC, c.AcctNum DESC LIMIT ?1"),
        keys(db, "SELECT " + query.columns + " FROM (" + (query.keys.empty() ? "SELECT 0 AS AcctNum" : query.keys) +
                     ") k CROSS JOIN f1.Customers c ON c.AcctNum = k.AcctNum" + (query.rest.empty() ? "" : " WHERE " + query.rest) +
                     " ORDER BY c.LastName, c.AcctNum LIMIT ?1"),
        scan(db, "SELECT c.LastName, c.AcctNum FROM f1.Customers c NOT INDEXED WHERE " + query.where),
        row(db, "SELECT " + query.columns + " FROM f1.Customers c WHERE c.AcctNum = ?1"),
        inGroup(db, "SELECT " + query.columns + " FROM " + byName + " WHERE c.LastName IS ?1 AND c.AcctNum > ?2 AND " + query.where +
                        " ORDER BY c.AcctNum LIMIT ?3"),
        beyond(db, "SELECT " + query.columns + " FROM " + byName + " WHERE c.LastName > ?1 AND " + query.where + " ORDER BY c.LastName, c.AcctNum LIMIT ?3"),
        starting(db, "SELECT c.AcctNum FROM " + byName + " WHERE c.LastName >= ?1 AND c.LastName < ?2 AND raw_like(c.LastName, ?3) AND " +
                         query.where + " ORDER BY c.LastName, c.AcctNum LIMIT 1"),
        count(db, CountText(query)) {}

  static std::string CountText(const Query& query) {
    if (query.keys.empty()) return "SELECT count(*) FROM f1.Customers c NOT INDEXED WHERE " + query.where;
    return "SELECT count(*) FROM (" + query.keys + ") k CROSS JOIN f1.Customers c ON c.AcctNum = k.AcctNum" +
           (query.rest.empty() ? "" : " WHERE " + query.rest);
  }

  Statement begin, commit, walk, last, keys, scan, row, inGroup, beyond, starting, count;
};

PreparedQuery::PreparedQuery(const Queries& queries, const Query& query)
    : db_(queries.Handle()), query_(query), statements_(std::make_unique<Statements>(db_, query)) {
  ChooseWay();
}
PreparedQuery::~PreparedQuery() = default;

namespace {

double ProcessorTime() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

void Copy(Statement& statement, Rows& rows) {
  rows.columns = static_cast<std::size_t>(statement.Columns());
  while (statement.Step()) statement.CopyRow(rows);
  statement.Reset();
}

}  // namespace

Rows PreparedQuery::First(int count) { return FirstBy(way_, count); }

Rows PreparedQuery::FirstBy(Way way, int count) {
  if (way == Way::Scan) return FirstByScan(count);
  Statement& first = way == Way::Walk ? statements_->walk : statements_->keys;
  Rows rows;
  first.Bind(1, std::int64_t{count});
  Copy(first, rows);
  return rows;
}

// Turned around by who shows them.
Rows PreparedQuery::Last(int count) {
  Rows turned;
  statements_->last.Bind(1, std::int64_t{count});
  Copy(statements_->last, turned);
  Rows rows;
  rows.columns = turned.columns;
  for (std::size_t i = turned.Count(); i-- > 0;) rows.cells.insert(rows.cells.end(), turned.Row(i), turned.Row(i) + turned.columns);
  return rows;
}

void PreparedQuery::ChooseWay() {
  constexpr int kPage = 50;
  double best = 0;
  for (const Way way : {Way::Walk, Way::Keys, Way::Scan}) {
    if (way == Way::Keys && query_.keys.empty()) continue;
    double least = 0;
    for (int round = 0; round < 3; ++round) {
      const double begun = ProcessorTime();
      FirstBy(way, kPage);
      const double spent = ProcessorTime() - begun;
      if (round > 0 && (least == 0 || spent < least)) least = spent;
    }
    if (best != 0 && least >= best) continue;
    best = least;
    way_ = way;
  }
}

// The names and accounts of all that fit, then the rows of the first of them.
Rows PreparedQuery::FirstByScan(int count) {
  std::vector<NameKey> hits;
  Statement& scan = statements_->scan;
  while (scan.Step()) hits.push_back({std::string(scan.Text(0)), scan.Int(1)});
  scan.Reset();
  const auto before = [](const NameKey& left, const NameKey& right) {
    const int order = engine::CompareText(left.name, right.name);
    return order != 0 ? order < 0 : left.account < right.account;
  };
  const auto shown = std::min<std::ptrdiff_t>(count, static_cast<std::ptrdiff_t>(hits.size()));
  std::partial_sort(hits.begin(), hits.begin() + shown, hits.end(), before);
  Rows rows;
  for (auto hit = hits.begin(); hit != hits.begin() + shown; ++hit) {
    statements_->row.Bind(1, hit->account);
    Copy(statements_->row, rows);
  }
  return rows;
}

Rows PreparedQuery::After(const NameKey& key, int count) {
  Rows rows;
  statements_->begin.Step();
  statements_->begin.Reset();
  for (Statement* part : {&statements_->inGroup, &statements_->beyond}) {
    const auto rest = static_cast<std::int64_t>(count) - static_cast<std::int64_t>(rows.Count());
    if (rest <= 0) break;
    part->Bind(1, key.name);
    if (part == &statements_->inGroup) part->Bind(2, key.account);
    part->Bind(3, rest);
    Copy(*part, rows);
  }
  statements_->commit.Step();
  statements_->commit.Reset();
  return rows;
}

std::uint64_t PreparedQuery::FirstStarting(const std::string& start) {
  const engine::PrimaryRange range = engine::PrefixRange(start);
  const std::string pattern = start + "*";
  Statement& probe = statements_->starting;
  probe.Bind(1, range.lower);
  probe.Bind(2, range.upper);
  probe.Bind(3, pattern);
  const std::uint64_t account = probe.Step() ? static_cast<std::uint64_t>(probe.Int(0)) : 0;
  probe.Reset();
  return account;
}

std::int64_t PreparedQuery::Count() {
  statements_->count.Step();
  const std::int64_t count = statements_->count.Int(0);
  statements_->count.Reset();
  return count;
}

}  // namespace bench::raw
