#include "raw/samples.h"

#include <cstdint>
#include <limits>

#include "raw/store.h"

namespace bench::raw {
namespace {

class Asker {
 public:
  explicit Asker(sqlite3* db) : db_(db), accounts_(std::stoll("0" + Ask("SELECT max(AcctNum) FROM f1.Customers"))) {}

  std::string Ask(const std::string& sql) const {
    Statement statement(db_, sql);
    return statement.Step() ? std::string(statement.Text(0)) : std::string();
  }

  /// A SELECT over "n", whose "k" are some thousand accounts, evenly spread.
  std::string AskOfSome(const std::string& select) const {
    constexpr std::int64_t kSome = 4096;
    const std::string step = std::to_string(accounts_ / kSome + 1);
    return Ask("WITH RECURSIVE n(k) AS (VALUES(1) UNION ALL SELECT k + " + step + " FROM n WHERE k < " + std::to_string(accounts_) + ") " +
               select);
  }

  /// The value of an indexed column with the fewest rows, of those with at least so many. Of a value that isn't the rarest no more
  /// rows are counted than the rarest so far has.
  std::string Rarest(const std::string& table, const std::string& column, std::int64_t atLeast) const {
    Statement next(db_, "SELECT min(" + column + ") FROM " + table + " WHERE " + column + " > ?1");
    Statement count(db_, "SELECT count(*) FROM (SELECT 1 FROM " + table + " WHERE " + column + " = ?1 LIMIT ?2)");
    std::string rarest;
    std::int64_t fewest = std::numeric_limits<std::int64_t>::max();
    for (std::string value;;) {
      next.Bind(1, value);
      next.Step();
      const bool ended = next.IsNull(0);
      std::string found(next.Text(0));
      next.Reset();
      if (ended) return rarest;
      value = std::move(found);
      count.Bind(1, value);
      count.Bind(2, fewest);
      count.Step();
      const std::int64_t rows = count.Int(0);
      count.Reset();
      if (rows < atLeast || rows >= fewest) continue;
      fewest = rows;
      rarest = value;
    }
  }

 private:
  sqlite3* db_;
  std::int64_t accounts_;
};

}  // namespace

Samples::Samples(sqlite3* db) {
  constexpr std::int64_t kFewWords = 10;
  const Asker asker(db);
  commonArea = asker.AskOfSome(
      "SELECT p.Area FROM n CROSS JOIN f1.Phones p ON p.AcctNum = n.k WHERE p.Area <> '' GROUP BY p.Area ORDER BY count(*) DESC LIMIT 1");
  commonWord =
      asker.AskOfSome("SELECT l.Text FROM n CROSS JOIN f1.Lookups l ON l.AcctNum = n.k GROUP BY l.Text ORDER BY count(*) DESC LIMIT 1");
  rareArea = asker.Rarest("f1.Phones", "Area", 1);
  rareWord = asker.Rarest("f1.Lookups", "Text", kFewWords);
  invoice = asker.Ask(
      "SELECT InvChkCredNo FROM f2.Transactions INDEXED BY \"Transactions.xCustomer\" WHERE TranType <> 'P' AND AcctNum >= (SELECT "
      "max(AcctNum) / 2 FROM f1.Customers) LIMIT 1");
  middleDate = asker.AskOfSome(
      "SELECT strftime('%m/%d/%Y', EntryDate) FROM (SELECT c.EntryDate, row_number() OVER (ORDER BY c.EntryDate) AS place, count(*) OVER () "
      "AS number FROM n CROSS JOIN f1.Customers c ON c.AcctNum = n.k WHERE c.EntryDate IS NOT NULL) WHERE place = number / 2");
}

}  // namespace bench::raw
