#include "raw/queries.h"

#include <sqlite3.h>

#include <ctime>

#include <algorithm>
#include <stdexcept>
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
        keys(db, ByKeys(query, query.columns, "") + " ORDER BY c.LastName, c.AcctNum LIMIT ?1"),
        scan(db, "SELECT c.LastName, c.AcctNum FROM f1.Customers c NOT INDEXED WHERE " + query.where),
        row(db, "SELECT " + query.columns + " FROM f1.Customers c WHERE c.AcctNum = ?1"),
        inGroup(db, "SELECT " + query.columns + " FROM " + byName + " WHERE c.LastName IS ?1 AND c.AcctNum > ?2 AND " + query.where +
                        " ORDER BY c.AcctNum LIMIT ?3"),
        beyond(db, "SELECT " + query.columns + " FROM " + byName + " WHERE c.LastName > ?1 AND " + query.where + " ORDER BY c.LastName, c.AcctNum LIMIT ?3"),
        starting(db, "SELECT c.AcctNum FROM " + byName + " WHERE c.LastName >= ?1 AND c.LastName < ?2 AND raw_like(c.LastName, ?3) AND " +
                         query.where + " ORDER BY c.LastName, c.AcctNum LIMIT 1"),
        keysBeyond(db, ByKeys(query, query.columns, "(c.LastName > ?1 OR (c.LastName IS ?1 AND c.AcctNum > ?2))") +
                           " ORDER BY c.LastName, c.AcctNum LIMIT ?3"),
        keysStarting(db, ByKeys(query, "c.AcctNum", "c.LastName >= ?1 AND c.LastName < ?2 AND raw_like(c.LastName, ?3)") +
                             " ORDER BY c.LastName, c.AcctNum LIMIT 1"),
        count(db, query.keys.empty() ? "SELECT count(*) FROM f1.Customers c NOT INDEXED WHERE " + query.where
                                     : ByKeys(query, "count(*)", "")) {}

  static std::string ByKeys(const Query& query, const std::string& columns, const std::string& condition) {
    const std::string keys = query.keys.empty() ? "SELECT 0 AS AcctNum" : query.keys;
    const std::string both = condition.empty() || query.rest.empty() ? "" : " AND ";
    const std::string where = condition + both + query.rest;
    return "SELECT " + columns + " FROM (" + keys + ") k CROSS JOIN f1.Customers c ON c.AcctNum = k.AcctNum" +
           (where.empty() ? "" : " WHERE " + where);
  }

  Statement begin, commit, walk, last, keys, scan, row, inGroup, beyond, starting, keysBeyond, keysStarting, count;
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

namespace {

/// While it lives, statements that run beyond a moment of the processor's time fail.
class Limit {
 public:
  Limit(sqlite3* db, double end) : db_(db), end_(end) {
    constexpr int kStepsBetweenLooks = 1000;
    sqlite3_progress_handler(db, kStepsBetweenLooks, [](void* self) { return static_cast<Limit*>(self)->Passed() ? 1 : 0; }, this);
  }
  ~Limit() { sqlite3_progress_handler(db_, 0, nullptr, nullptr); }
  Limit(const Limit&) = delete;
  Limit& operator=(const Limit&) = delete;
  bool Passed() const { return ProcessorTime() > end_; }

 private:
  sqlite3* db_;
  double end_;
};

}  // namespace

// Microseconds for the first page; nothing where that is more than `most`.
std::optional<double> PreparedQuery::TimeOf(Way way, double most) {
  constexpr int kPage = 50;
  const double begun = ProcessorTime();
  const Limit limit(db_, begun + most);
  try {
    FirstBy(way, kPage);
    return ProcessorTime() - begun;
  } catch (const std::runtime_error&) {
    if (!limit.Passed()) throw;
    for (Statement* cut : {&statements_->walk, &statements_->keys, &statements_->scan}) cut->Reset();
    return {};
  }
}

// The wrong way through millions of rows takes minutes: all are tried for a short time, then for a longer one, until one has ended.
void PreparedQuery::ChooseWay() {
  constexpr double kFirstTry = 20'000;
  std::optional<double> best;
  for (double most = kFirstTry; !best; most *= 4) {
    for (const Way way : {Way::Walk, Way::Keys, Way::Scan}) {
      if (way == Way::Keys && query_.keys.empty()) continue;
      for (int round = 0; round < 3; ++round) {
        const std::optional<double> spent = TimeOf(way, most);
        if (!spent || (best && *spent >= *best)) continue;
        best = spent;
        way_ = way;
      }
    }
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
  if (way_ == Way::Keys) {
    statements_->keysBeyond.Bind(1, key.name);
    statements_->keysBeyond.Bind(2, key.account);
    statements_->keysBeyond.Bind(3, std::int64_t{count});
    Copy(statements_->keysBeyond, rows);
    return rows;
  }
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
  Statement& probe = way_ == Way::Keys ? statements_->keysStarting : statements_->starting;
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
