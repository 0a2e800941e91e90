#pragma once

#include <cstdint>
#include <string>

#include "raw/records.h"
#include "server/bare_server.h"

namespace bench::bare {

/// A list of types or key words with a customer's ticks: rows of the server in the work table of a user's temporary file.
class Lists {
 public:
  Lists(Server& server, const std::string& temporaryFile, raw::Ticked list);
  ~Lists();
  Lists(const Lists&) = delete;
  Lists& operator=(const Lists&) = delete;

  /// Takes this side's rows out.
  void Clear();
  /// The customer's entries ticked, then all that are missing: two statements, each row written as it comes, a commit behind each.
  void Load(std::int64_t account);
  /// The beginning of the list in its order: columns as the work table has them.
  raw::Rows Page(int count);

 private:
  void Fill(const std::string& rows, const std::vector<std::string>& parameters, std::int64_t ticked);

  Server& server_;
  sqlite3* db_;
  std::string columns_, source_, assigned_;
  struct Statements;
  std::unique_ptr<Statements> statements_;
};

/// Invented entries that a company has while this lives, until it has so many.
class InventedEntries {
 public:
  InventedEntries(Server& server, raw::Ticked list, int entries);
  ~InventedEntries();
  InventedEntries(const InventedEntries&) = delete;
  InventedEntries& operator=(const InventedEntries&) = delete;

 private:
  Server& server_;
  std::string table_, before_;
};

}  // namespace bench::bare
