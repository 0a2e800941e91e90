#include "raw/store.h"

#include <sqlite3.h>

#include <algorithm>
#include <stdexcept>

#include "engine/text/like.h"
#include "engine/text/text_order.h"

namespace bench::raw {
namespace {

std::string_view ArgumentText(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return text == nullptr ? std::string_view() : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

int Collate(void*, int leftSize, const void* left, int rightSize, const void* right) {
  return engine::CompareText({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                             {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

// The pattern is read once for a statement.
void Like(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return sqlite3_result_null(context);
  auto* pattern = static_cast<engine::LikePattern*>(sqlite3_get_auxdata(context, 1));
  if (pattern == nullptr) {
    auto made = std::make_unique<engine::LikePattern>(ArgumentText(arguments[1]));
    pattern = made.get();
    sqlite3_set_auxdata(context, 1, made.release(),
                        [](void* gone) { std::unique_ptr<engine::LikePattern>(static_cast<engine::LikePattern*>(gone)); });
    pattern = static_cast<engine::LikePattern*>(sqlite3_get_auxdata(context, 1));
    if (pattern == nullptr) return sqlite3_result_error_nomem(context);
  }
  sqlite3_result_int(context, pattern->Matches(ArgumentText(arguments[0])) ? 1 : 0);
}

void Run(sqlite3* db, const std::string& sql) {
  if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) throw std::runtime_error(sql + ": " + sqlite3_errmsg(db));
}

// Settings as the engine has them on a company file.
sqlite3* OpenLikeTheEngine(const std::string& path) {
  sqlite3* const db = OpenWithOurOrder();
  Run(db, "PRAGMA trusted_schema=OFF");
  Run(db, "PRAGMA cell_size_check=ON");
  Run(db, "ATTACH 'file:" + path + "?mode=rw' AS f1");
  // The transactions lie in a file beside it.
  Run(db, "ATTACH 'file:" + path.substr(0, path.rfind('/') + 1) + "artrans.zdb?mode=rw' AS f2");
  for (const std::string file : {"f1", "f2"}) {
    Run(db, "PRAGMA " + file + ".cache_size=-8192");
    Run(db, "PRAGMA " + file + ".synchronous=FULL");
    Run(db, "PRAGMA " + file + ".mmap_size=0");
  }
  return db;
}

const std::string up = " ORDER BY LastName, AcctNum LIMIT ?";
const std::string firstRows = "SELECT * FROM f1.Customers ORDER BY LastName, AcctNum LIMIT ?1";

}  // namespace

sqlite3* OpenWithOurOrder() {
  sqlite3* db = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(":memory:", &db, flags, nullptr) != SQLITE_OK) throw std::bad_alloc();
  sqlite3_create_collation_v2(db, "GENERAL", SQLITE_UTF8, nullptr, Collate, nullptr);
  sqlite3_create_function_v2(db, "raw_like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, Like, nullptr, nullptr, nullptr);
  return db;
}

Statement::Statement(sqlite3* db, const std::string& sql) : db_(db) {
  if (sqlite3_prepare_v3(db, sql.c_str(), -1, 0, &statement_, nullptr) != SQLITE_OK)
    throw std::runtime_error(sql + ": " + sqlite3_errmsg(db));
}

Statement::~Statement() { sqlite3_finalize(statement_); }

void Statement::Bind(int index, std::string_view text) {
  sqlite3_bind_text(statement_, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void Statement::Bind(int index, std::int64_t number) { sqlite3_bind_int64(statement_, index, number); }
void Statement::Bind(int index, double number) { sqlite3_bind_double(statement_, index, number); }
void Statement::BindNull(int index) { sqlite3_bind_null(statement_, index); }

bool Statement::Step() {
  const int code = sqlite3_step(statement_);
  if (code != SQLITE_ROW && code != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db_));
  return code == SQLITE_ROW;
}

void Statement::Reset() { sqlite3_reset(statement_); }
std::int64_t Statement::Int(int column) const { return sqlite3_column_int64(statement_, column); }
bool Statement::IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
int Statement::Columns() const { return sqlite3_column_count(statement_); }

std::string_view Statement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return text == nullptr ? std::string_view() : std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
}

void Statement::CopyRow(Rows& rows) const {
  for (int i = 0; i < static_cast<int>(rows.columns); ++i) {
    switch (sqlite3_column_type(statement_, i)) {
      case SQLITE_INTEGER:
        rows.cells.emplace_back(sqlite3_column_int64(statement_, i));
        break;
      case SQLITE_FLOAT:
        rows.cells.emplace_back(sqlite3_column_double(statement_, i));
        break;
      case SQLITE_NULL:
        rows.cells.emplace_back();
        break;
      default:
        rows.cells.emplace_back(std::in_place_type<std::string>, Text(i));
    }
  }
}

struct Store::Statements {
  explicit Statements(sqlite3* db)
      : begin(db, "BEGIN"),
        commit(db, "COMMIT"),
        first(db, firstRows),
        last(db, "SELECT * FROM f1.Customers ORDER BY LastName DESC, AcctNum DESC LIMIT ?1"),
        afterInGroup(db, "SELECT * FROM f1.Customers WHERE LastName IS ?1 AND AcctNum > ?2 ORDER BY AcctNum LIMIT ?3"),
        afterGroup(db, "SELECT * FROM f1.Customers WHERE LastName > ?1" + up + "3"),
        beforeInGroup(db, "SELECT * FROM f1.Customers WHERE LastName IS ?1 AND AcctNum < ?2 ORDER BY AcctNum DESC LIMIT ?3"),
        beforeGroup(db, "SELECT * FROM f1.Customers WHERE LastName < ?1 ORDER BY LastName DESC, AcctNum DESC LIMIT ?3"),
        at(db,
           "SELECT c.* FROM (SELECT AcctNum FROM f1.Customers ORDER BY LastName, AcctNum LIMIT ?1 OFFSET ?2) k CROSS JOIN f1.Customers c "
           "ON c.AcctNum = k.AcctNum"),
        firstInRange(db, "SELECT * FROM f1.Customers WHERE LastName >= ?1 AND LastName < ?2 AND raw_like(LastName, ?3)" + up + "4"),
        nextInGroup(db,
                    "SELECT * FROM f1.Customers WHERE LastName IS ?1 AND AcctNum > ?2 AND raw_like(LastName, ?3) ORDER BY AcctNum LIMIT 1"),
        nextInRange(db, "SELECT * FROM f1.Customers WHERE LastName > ?1 AND LastName < ?2 AND raw_like(LastName, ?3)" + up + "4"),
        scanAddress(db, "SELECT LastName, AcctNum FROM f1.Customers NOT INDEXED WHERE Addr1 = ?1"),
        scanComment(db, "SELECT LastName, AcctNum FROM f1.Customers NOT INDEXED WHERE raw_like(Comments, ?1)"),
        scanAddresses(db, "SELECT Addr1, AcctNum FROM f1.Customers NOT INDEXED"),
        walk(db, "SELECT * FROM f1.Customers ORDER BY LastName, AcctNum"),
        seek(db, "SELECT * FROM f1.Customers WHERE AcctNum = ?1"),
        save(db, "UPDATE f1.Customers SET Addr2 = ?2 WHERE AcctNum = ?1") {}

  Statement begin, commit, first, last, afterInGroup, afterGroup, beforeInGroup, beforeGroup, at, firstInRange, nextInGroup, nextInRange,
      scanAddress, scanComment, scanAddresses, walk, seek, save;
};

Store::Store(const std::string& path) : db_(OpenLikeTheEngine(path)), statements_(std::make_unique<Statements>(db_)) {}

Store::~Store() {
  statements_.reset();
  sqlite3_close(db_);
}

namespace {

Rows ReadAll(Statement& statement, int expected) {
  Rows rows{static_cast<std::size_t>(statement.Columns()), {}};
  rows.cells.reserve(rows.columns * static_cast<std::size_t>(expected));
  while (statement.Step()) statement.CopyRow(rows);
  statement.Reset();
  return rows;
}

void RunOnce(Statement& statement) {
  statement.Step();
  statement.Reset();
}

void TurnRound(Rows& rows) {
  const auto width = static_cast<std::ptrdiff_t>(rows.columns);
  for (std::size_t top = 0, bottom = rows.Count(); top + 1 < bottom; ++top) {
    --bottom;
    const auto from = rows.cells.begin() + static_cast<std::ptrdiff_t>(top) * width;
    std::swap_ranges(from, from + width, rows.cells.begin() + static_cast<std::ptrdiff_t>(bottom) * width);
  }
}

}  // namespace

Rows Store::First(int count) {
  statements_->first.Bind(1, std::int64_t{count});
  return ReadAll(statements_->first, count);
}

Rows Store::PrepareAndFirst(int count) {
  Statement first(db_, firstRows);
  first.Bind(1, std::int64_t{count});
  return ReadAll(first, count);
}

Rows Store::Last(int count) {
  statements_->last.Bind(1, std::int64_t{count});
  Rows rows = ReadAll(statements_->last, count);
  TurnRound(rows);
  return rows;
}

Rows Store::TwoSteps(Statement& group, Statement& beyond, const NameKey& key, int count) {
  RunOnce(statements_->begin);
  group.Bind(1, key.name);
  group.Bind(2, key.account);
  group.Bind(3, std::int64_t{count});
  Rows rows = ReadAll(group, count);
  const auto rest = static_cast<std::int64_t>(count) - static_cast<std::int64_t>(rows.Count());
  if (rest > 0) {
    beyond.Bind(1, key.name);
    beyond.Bind(3, rest);
    while (beyond.Step()) beyond.CopyRow(rows);
    beyond.Reset();
  }
  RunOnce(statements_->commit);
  return rows;
}

Rows Store::After(const NameKey& key, int count) { return TwoSteps(statements_->afterInGroup, statements_->afterGroup, key, count); }

Rows Store::Before(const NameKey& key, int count) {
  Rows rows = TwoSteps(statements_->beforeInGroup, statements_->beforeGroup, key, count);
  TurnRound(rows);
  return rows;
}

Rows Store::At(std::int64_t ordinal, int count) {
  statements_->at.Bind(1, std::int64_t{count});
  statements_->at.Bind(2, ordinal);
  return ReadAll(statements_->at, count);
}

Rows Store::FirstInRange(const std::string& pattern, const std::string& lower, const std::string& upper) {
  Statement& probe = statements_->firstInRange;
  probe.Bind(1, lower);
  probe.Bind(2, upper);
  probe.Bind(3, pattern);
  probe.Bind(4, std::int64_t{1});
  return ReadAll(probe, 1);
}

Rows Store::NextInRange(const std::string& pattern, const NameKey& key, const std::string& upper) {
  Statement& group = statements_->nextInGroup;
  group.Bind(1, key.name);
  group.Bind(2, key.account);
  group.Bind(3, pattern);
  Rows rows = ReadAll(group, 1);
  if (rows.Count() > 0) return rows;
  Statement& beyond = statements_->nextInRange;
  beyond.Bind(1, key.name);
  beyond.Bind(2, upper);
  beyond.Bind(3, pattern);
  beyond.Bind(4, std::int64_t{1});
  return ReadAll(beyond, 1);
}

std::int64_t Store::BestHit(Statement& scan) {
  std::optional<NameKey> best;
  while (scan.Step()) {
    NameKey hit{std::string(scan.Text(0)), scan.Int(1)};
    const int order = best ? engine::CompareText(hit.name, best->name) : -1;
    if (order < 0 || (order == 0 && hit.account < best->account)) best = std::move(hit);
  }
  scan.Reset();
  return best ? best->account : 0;
}

std::int64_t Store::ScanForAddress(const std::string& address) {
  statements_->scanAddress.Bind(1, address);
  return BestHit(statements_->scanAddress);
}

std::int64_t Store::ScanForComment(const std::string& pattern) {
  statements_->scanComment.Bind(1, pattern);
  return BestHit(statements_->scanComment);
}

std::uint64_t Store::ScanAddresses() {
  Statement& scan = statements_->scanAddresses;
  std::uint64_t sum = 0;
  while (scan.Step()) sum += scan.Text(0).size() + static_cast<std::uint64_t>(scan.Int(1));
  scan.Reset();
  return sum;
}

Rows Store::FirstByAddress(int count) {
  Statement first(db_, "SELECT * FROM f1.Customers ORDER BY Addr1, AcctNum LIMIT ?1");
  first.Bind(1, std::int64_t{count});
  return ReadAll(first, count);
}

void Store::WalkFromStart() {
  statements_->walk.Reset();
  walking_ = true;
}

std::uint64_t Store::WalkOn(std::int64_t rows) {
  Statement& walk = statements_->walk;
  Rows row{static_cast<std::size_t>(walk.Columns()), {}};
  std::uint64_t sum = 0;
  for (std::int64_t i = 0; i < rows && walking_; ++i) {
    walking_ = walk.Step();
    if (!walking_) break;
    row.cells.clear();
    walk.CopyRow(row);
    sum = sum * 31 + static_cast<std::uint64_t>(std::get<std::int64_t>(row.cells[0]));
  }
  if (!walking_) walk.Reset();
  return sum;
}

Rows Store::Seek(std::int64_t account) {
  statements_->seek.Bind(1, account);
  return ReadAll(statements_->seek, 1);
}

void Store::SaveAddress(std::int64_t account, const std::string& text) {
  statements_->save.Bind(1, account);
  statements_->save.Bind(2, text);
  RunOnce(statements_->save);
}

}  // namespace bench::raw
