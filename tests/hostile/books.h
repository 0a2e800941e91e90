#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace hostile {

/// Everything that stands in a company's customer file at one moment, by table and customer.
class Books {
 public:
  /// Reads the file past the program, over a connection of its own.
  static Books Of(const std::string& customerFile);

  bool HasCustomer(std::int32_t account) const;
  /// The last field of an assignment table's rows of that customer: his codes, his key words.
  std::set<std::string> Assigned(const std::string& table, std::int32_t account) const;

  using Rows = std::multiset<std::string>;
  /// A table's rows by customer; tables without customers have all theirs under 0.
  using Table = std::map<std::int32_t, Rows>;
  const std::map<std::string, Table>& Tables() const { return tables_; }

 private:
  std::map<std::string, Table> tables_;
};

/// Whether another session could write to the file now.
bool Writable(const std::string& file);

/// What a case was allowed to touch.
struct Allowed {
  std::set<std::int32_t> customers;  ///< those named on the screen when the procedure, and what interrupted it, began
  std::set<int> tabs;                ///< the tabs whose tables the procedure and the interruption write
  std::set<std::string> tables;      ///< the tables of setup screens that they write
};

/// Changes between the two moments that nobody at the screen can have meant, in sentences.
std::vector<std::string> Strays(const Books& before, const Books& after, const Allowed& allowed);

}  // namespace hostile
