#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "raw/samples.h"
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
  explicit Queries(sqlite3* db) : db_(db), samples_(db) {}
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

  /// What the data hold.
  const Samples& Held() const { return samples_; }

 private:
  sqlite3* db_;
  Samples samples_;
};

/// A query's statements, prepared once. Its first rows are read by whichever of three plans is the quickest here, which is found out
/// before: along the index of the names with a test of each row; by the rare rows, sorted; by one scan that keeps the first names.
/// Where the rare rows are the quickest its other pages are read by them, too.
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
  std::optional<double> TimeOf(Way way, double most);
  void ChooseWay();
  sqlite3* db_;
  Query query_;
  Way way_ = Way::Walk;
  struct Statements;
  std::unique_ptr<Statements> statements_;
};

}  // namespace bench::raw
