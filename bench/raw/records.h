#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "raw/store.h"

namespace bench::raw {

/// The lists whose rows are assigned to a customer by a tick.
enum class Ticked { Types, KeyWords };

/// The fields that a save of a customer's card assigns, and the place of Addr2 among them.
extern const std::vector<std::string> kCardFields;
inline constexpr std::size_t kAddressPlace = 4;

/// Made-up words, no two alike, that begin differently as words do.
std::string InventedWord(std::int64_t entry);

/// The connection with a user's temporary file beside its files, as "f3".
sqlite3* WithTemporaryFile(sqlite3* db, const std::string& path);

/// The bare program's side of the records: on the connection of a Store, with the user's temporary file attached and the
/// settings that the engine gives it. Its rows of the work tables carry an instance number of their own.
class Records {
 public:
  Records(Store& customers, const std::string& temporaryFile);
  ~Records();
  Records(const Records&) = delete;
  Records& operator=(const Records&) = delete;

  /// Adds invented types (key words) until the company has so many.
  void FillUp(Ticked list, int entries);

  /// Reads what the card of a customer holds: the fields that a save assigns.
  void ReadCard(std::int64_t account);
  /// Writes all of them back, with another second address line: one statement with its commit.
  void SaveCard(std::int64_t account, const std::string& address);

  /// Takes this side's rows out of the work table.
  void ClearList(Ticked list);
  /// The two statements that fill the work table: the customer's entries ticked, then all that are missing.
  void LoadList(Ticked list, std::int64_t account);
  /// The beginning of the list in its order: columns as the work table has them.
  Rows Page(Ticked list, int count);
  /// Every row of the list in its order; their number.
  std::int64_t Walk(Ticked list);

  /// Adds invented map codes until the company has so many; none was ever deleted.
  void FillUpMapCodes(int codes);
  std::int64_t MapCodes();
  /// The list's statement and the table's, prepared for this one run; the list's first rows, the table on its first one.
  Rows OpenMapCodes(int count);
  /// One change with its commit, and the row read back.
  void SaveMapCode(std::int64_t key, const std::string& place);
  /// The rows behind that one in the order of the codes.
  Rows MapCodesBehind(std::int64_t key, int count);

  /// Takes all of a customer's key words (types) away.
  void Unassign(Ticked list, std::int64_t account);
  /// For each entry of the list one row of the customer and one tick, each with its own commit.
  void AssignAll(Ticked list, std::int64_t account);
  std::int64_t Assigned(Ticked list, std::int64_t account);

 private:
  struct Statements;
  std::unique_ptr<Statements> statements_;
  Rows card_;
};

}  // namespace bench::raw
