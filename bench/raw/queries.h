#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "raw/store.h"

/// Statements for the query screen's questions as somebody would write them who knows the data: existence tests instead of joins,
/// and for each whether the list is best walked or the rare rows are best fetched and sorted.
namespace bench::raw {

/// A filter on "c", and the rare rows among which its rows are.
struct Query {
  std::string where;
  std::string keys{};  ///< SELECT of their accounts, "" for none
  std::string rest{};  ///< what is left of the filter to ask of their rows
  std::string columns = "c.*";
};

class Queries {
 public:
  explicit Queries(sqlite3* db);
  sqlite3* Handle() const { return db_; }

  Query NameStarts(const std::string& start) const;
  Query StateAndBalance(const std::string& state, int balance) const;
  Query AddressContains(const std::string& pattern) const;
  Query Area(const std::string& area) const;
  Query Word(const std::string& word) const;
  Query Invoice(const std::string& number) const;
  Query WordTypeAndArea(const std::string& word, int type, const std::string& area) const;
  Query AreaAndInvoice(const std::string& area, const std::string& number) const;
  Query EnteredSince(const std::string& date) const;
  /// Those that others are linked to.
  Query Parents() const;

  // What the data hold.
  const std::string& CommonArea() const { return commonArea_; }
  const std::string& RareArea() const { return rareArea_; }
  /// Of about 100,000 customers in a million.
  const std::string& TenthArea() const { return commonArea_; }
  const std::string& CommonWord() const { return commonWord_; }
  const std::string& RareWord() const { return rareWord_; }
  const std::string& SomeInvoice() const { return invoice_; }
  /// Since which about one half of all were entered, "month/day/year".
  const std::string& MiddleEntryDate() const { return middleDate_; }

 private:
  std::string Ask(const std::string& sql) const;
  sqlite3* db_;
  std::string commonArea_, rareArea_, commonWord_, rareWord_, invoice_, middleDate_;
};

/// A query's statements, prepared once. Its first rows are read by whichever of three plans is the quickest here, which is found out
/// before: along the index of the names with a test of each row; by the rare rows, sorted; by one scan that keeps the first names.
class PreparedQuery {
 public:
  PreparedQuery(const Queries& queries, const Query& query);
  ~PreparedQuery();
  PreparedQuery(const PreparedQuery&) = delete;
  PreparedQuery& operator=(const PreparedQuery&) = delete;

  Rows First(int count);
  Rows Last(int count);
  Rows After(const NameKey& key, int count);
  /// The account of the first row whose name begins so, 0 for none.
  std::uint64_t FirstStarting(const std::string& start);
  std::int64_t Count();

 private:
  enum class Way { Walk, Keys, Scan };
  Rows FirstBy(Way way, int count);
  Rows FirstByScan(int count);
  void ChooseWay();
  sqlite3* db_;
  Query query_;
  Way way_ = Way::Walk;
  struct Statements;
  std::unique_ptr<Statements> statements_;
};

}  // namespace bench::raw
