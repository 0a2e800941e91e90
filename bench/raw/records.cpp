#include "raw/records.h"

#include <sqlite3.h>

#include <array>
#include <stdexcept>

namespace bench::raw {

const std::vector<std::string> kCardFields{
    "LastName",     "FirstName",         "Title",       "Addr1",     "Addr2",       "City",      "State",
    "Zip",          "Country",           "Terms",       "Status",    "NonBillable", "Comments",  "TaxID",
    "AgeMethod",    "OmitFinanceCharge", "Creditlimit", "EMail",     "WebSite",     "MapCode",   "CreditHold",
    "SalesRatePer", "LaborRateType",     "LaborRate",   "TaxBasisA", "TaxBasisB",   "TaxBasisC", "TaxBasisD"};

namespace {

constexpr int instance = 1;

std::string CardSelect() {
  std::string fields;
  for (const std::string& field : kCardFields) fields += (fields.empty() ? "" : ", ") + field;
  return "SELECT " + fields + " FROM f1.Customers WHERE AcctNum = ?1";
}

const std::string kMapCodes = "SELECT RecordID, MapCode, Location FROM f1.Locations";

std::string CardUpdate() {
  std::string sets;
  int place = 0;
  for (const std::string& field : kCardFields) sets += (sets.empty() ? "" : ", ") + field + " = ?" + std::to_string(++place);
  return "UPDATE f1.Customers SET " + sets + " WHERE AcctNum = ?" + std::to_string(++place);
}

void RunOnce(Statement& statement) {
  statement.Step();
  statement.Reset();
}

std::int64_t NumberOf(Statement& statement) {
  statement.Step();
  const std::int64_t number = statement.Int(0);
  statement.Reset();
  return number;
}

Rows ReadAll(Statement& statement, int expected) {
  Rows rows{static_cast<std::size_t>(statement.Columns()), {}};
  rows.cells.reserve(rows.columns * static_cast<std::size_t>(expected));
  while (statement.Step()) statement.CopyRow(rows);
  statement.Reset();
  return rows;
}

void BindCell(Statement& statement, int place, const Cell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell)) return statement.Bind(place, std::string_view(*text));
  if (const auto* number = std::get_if<std::int64_t>(&cell)) return statement.Bind(place, *number);
  if (const auto* real = std::get_if<double>(&cell)) return statement.Bind(place, *real);
  statement.BindNull(place);
}

}  // namespace

sqlite3* WithTemporaryFile(sqlite3* db, const std::string& path) {
  for (const std::string& sql : {"ATTACH 'file:" + path + "?mode=rw' AS f3", std::string("PRAGMA f3.cache_size=-8192"),
                                 std::string("PRAGMA f3.synchronous=OFF"), std::string("PRAGMA f3.mmap_size=0")})
    if (sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) throw std::runtime_error(sql + ": " + sqlite3_errmsg(db));
  return db;
}

std::string InventedWord(std::int64_t entry) {
  // In no order, as an office would have entered them.
  std::int64_t number = entry * 7'654'321 % (75 * 75 * 75 * 75);
  constexpr std::string_view consonants = "bdfgklmnprstvwz";
  constexpr std::string_view vowels = "aeiou";
  std::string word;
  for (int syllable = 0; syllable < 4; ++syllable) {
    word += consonants[static_cast<std::size_t>(number % 15)];
    word += vowels[static_cast<std::size_t>(number / 15 % 5)];
    number /= 75;
  }
  return word;
}

struct Records::Statements {
  // One list with its tables: entries, customers' rows, work table.
  struct List {
    List(sqlite3* store, const std::string& work, const std::string& columns, const std::string& name, const std::string& loaded,
         const std::string& source, const std::string& join, const std::string& assigned, const std::string& assignedKey)
        : db(store),
          count(store, "SELECT count(*) FROM f1." + source),
          clear(store, "DELETE FROM f3." + work + " WHERE Instance = ?1"),
          insertTicked(store, "INSERT OR IGNORE INTO f3." + work + " (Instance, Assign, " + columns + ") SELECT ?1, -1, " + loaded +
                                  " FROM f1." + source + " s JOIN f1." + assigned + " a ON " + join + " WHERE a.AcctNum = ?2"),
          insertRest(store, "INSERT OR IGNORE INTO f3." + work + " (Instance, Assign, " + columns + ") SELECT ?1, 0, " + loaded +
                                " FROM f1." + source + " s"),
          page(store, "SELECT Instance, Assign, " + columns + " FROM f3." + work + " WHERE Instance = ?1 ORDER BY " + name + " LIMIT ?2"),
          keys(store, "SELECT \"~key\", " + columns + " FROM f3." + work + " WHERE Instance = ?1 ORDER BY " + name),
          unassign(store, "DELETE FROM f1." + assigned + " WHERE AcctNum = ?1"),
          assign(store, "INSERT INTO f1." + assigned + " (AcctNum, " + assignedKey + ") VALUES (?1, ?2)"),
          tick(store, "UPDATE f3." + work + " SET Assign = -1 WHERE \"~key\" = ?1"),
          assignedRows(store, "SELECT count(*) FROM f1." + assigned + " WHERE AcctNum = ?1") {}

    sqlite3* db;
    Statement count, clear, insertTicked, insertRest, page, keys, unassign, assign, tick, assignedRows;
  };

  explicit Statements(sqlite3* store)
      : db(store),
        readCard(db, CardSelect()),
        saveCard(db, CardUpdate()),
        types(db, "CU_AssignDataCodes", "Code, Description", "Description", "s.Code, s.Description", "DataCodes", "s.Code = a.CustCodes",
              "CustCodes", "CustCodes"),
        words(db, "CU_AssignKeywords", "Keyword", "Keyword", "s.Keyword", "Keywords", "s.Keyword = a.Text", "Lookups", "Text"),
        mapCodes(db, "SELECT count(*) FROM f1.Locations"),
        mapCode(db, "SELECT RecordID, MapCode, Location FROM f1.Locations WHERE RecordID = ?1"),
        saveMapCode(db, "UPDATE f1.Locations SET MapCode = ?2, Location = ?3 WHERE RecordID = ?1"),
        mapCodesBehind(db, kMapCodes + " WHERE (MapCode, RecordID) > (?1, ?2) ORDER BY MapCode, RecordID LIMIT ?3") {}

  List& Of(Ticked list) { return list == Ticked::Types ? types : words; }

  sqlite3* db;
  Statement readCard, saveCard;
  List types, words;
  Statement mapCodes, mapCode, saveMapCode, mapCodesBehind;
};

Records::Records(Store& customers, const std::string& temporaryFile)
    : statements_(std::make_unique<Statements>(WithTemporaryFile(customers.Handle(), temporaryFile))) {}

Records::~Records() = default;

void Records::FillUp(Ticked list, int entries) {
  const std::int64_t there = NumberOf(statements_->Of(list).count);
  Statement begin(statements_->db, "BEGIN");
  RunOnce(begin);
  const bool types = list == Ticked::Types;
  Statement add(statements_->db, types
                                     ? "INSERT INTO f1.DataCodes (Code, Description) VALUES ((SELECT max(Code) FROM f1.DataCodes) + 1, ?1)"
                                     : "INSERT OR IGNORE INTO f1.Keywords (Keyword) VALUES (?1)");
  for (std::int64_t i = there; i < entries; ++i) {
    const std::string text = InventedWord(i);
    add.Bind(1, text);
    RunOnce(add);
  }
  Statement commit(statements_->db, "COMMIT");
  RunOnce(commit);
  if (NumberOf(statements_->Of(list).count) < entries) throw std::runtime_error("the invented entries are not all different");
}

void Records::ReadCard(std::int64_t account) {
  statements_->readCard.Bind(1, account);
  card_ = ReadAll(statements_->readCard, 1);
  if (card_.Count() != 1) throw std::runtime_error("no customer " + std::to_string(account));
}

void Records::SaveCard(std::int64_t account, const std::string& address) {
  Statement& save = statements_->saveCard;
  for (std::size_t i = 0; i < kCardFields.size(); ++i) BindCell(save, static_cast<int>(i) + 1, card_.cells[i]);
  save.Bind(static_cast<int>(kAddressPlace) + 1, std::string_view(address));
  save.Bind(static_cast<int>(kCardFields.size()) + 1, account);
  RunOnce(save);
}

void Records::ClearList(Ticked list) {
  Statement& clear = statements_->Of(list).clear;
  clear.Bind(1, std::int64_t{instance});
  RunOnce(clear);
}

void Records::LoadList(Ticked list, std::int64_t account) {
  Statements::List& own = statements_->Of(list);
  own.insertTicked.Bind(1, std::int64_t{instance});
  own.insertTicked.Bind(2, account);
  RunOnce(own.insertTicked);
  own.insertRest.Bind(1, std::int64_t{instance});
  RunOnce(own.insertRest);
}

Rows Records::Page(Ticked list, int count) {
  Statement& page = statements_->Of(list).page;
  page.Bind(1, std::int64_t{instance});
  page.Bind(2, std::int64_t{count});
  return ReadAll(page, count);
}

std::int64_t Records::Walk(Ticked list) {
  Statement& page = statements_->Of(list).page;
  page.Bind(1, std::int64_t{instance});
  page.Bind(2, std::int64_t{-1});
  Rows row{static_cast<std::size_t>(page.Columns()), {}};
  std::int64_t rows = 0;
  for (; page.Step(); ++rows) {
    row.cells.clear();
    page.CopyRow(row);
  }
  page.Reset();
  return rows;
}

void Records::Unassign(Ticked list, std::int64_t account) {
  Statement& unassign = statements_->Of(list).unassign;
  unassign.Bind(1, account);
  RunOnce(unassign);
}

void Records::AssignAll(Ticked list, std::int64_t account) {
  Statements::List& own = statements_->Of(list);
  own.keys.Bind(1, std::int64_t{instance});
  const Rows rows = ReadAll(own.keys, 1);
  for (std::size_t i = 0; i < rows.Count(); ++i) {
    own.assign.Bind(1, account);
    BindCell(own.assign, 2, rows.Row(i)[1]);
    RunOnce(own.assign);
    BindCell(own.tick, 1, rows.Row(i)[0]);
    RunOnce(own.tick);
  }
}

void Records::FillUpMapCodes(int codes) {
  Statement begin(statements_->db, "BEGIN");
  RunOnce(begin);
  Statement add(statements_->db, "INSERT INTO f1.Locations (MapCode, Location) VALUES (?1, ?2)");
  for (std::int64_t i = MapCodes(); i < codes; ++i) {
    const std::string code = InventedWord(i);
    add.Bind(1, code);
    add.Bind(2, "Somewhere");
    RunOnce(add);
  }
  Statement commit(statements_->db, "COMMIT");
  RunOnce(commit);
}

std::int64_t Records::MapCodes() { return NumberOf(statements_->mapCodes); }

Rows Records::OpenMapCodes(int count) {
  Statement table(statements_->db, kMapCodes + " ORDER BY RecordID");
  table.Step();
  Statement open(statements_->db, kMapCodes + " ORDER BY MapCode, RecordID LIMIT ?1");
  open.Bind(1, std::int64_t{count});
  return ReadAll(open, count);
}

void Records::SaveMapCode(std::int64_t key, const std::string& place) {
  statements_->mapCode.Bind(1, key);
  const Rows row = ReadAll(statements_->mapCode, 1);
  Statement& save = statements_->saveMapCode;
  save.Bind(1, key);
  BindCell(save, 2, row.Row(0)[1]);
  save.Bind(3, std::string_view(place));
  RunOnce(save);
}

Rows Records::MapCodesBehind(std::int64_t key, int count) {
  statements_->mapCode.Bind(1, key);
  const Rows row = ReadAll(statements_->mapCode, 1);
  Statement& behind = statements_->mapCodesBehind;
  BindCell(behind, 1, row.Row(0)[1]);
  behind.Bind(2, key);
  behind.Bind(3, std::int64_t{count});
  return ReadAll(behind, count);
}

std::int64_t Records::Assigned(Ticked list, std::int64_t account) {
  Statement& rows = statements_->Of(list).assignedRows;
  rows.Bind(1, account);
  return NumberOf(rows);
}

}  // namespace bench::raw
