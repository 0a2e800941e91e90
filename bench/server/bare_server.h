#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct pg_conn;
struct pg_result;

/// The bare program for a company on a server: the client library, prepared statements written by somebody who knows the data and the
/// tables' key columns, every cell copied out.
namespace bench::bare {

using Cells = std::vector<std::optional<std::string>>;

struct Rows {
  Cells cells;
  std::size_t columns = 0;
  std::size_t Count() const { return columns == 0 ? 0 : cells.size() / columns; }
  const std::optional<std::string>& At(std::size_t row, std::size_t column) const { return cells[row * columns + column]; }
};

/// A row of the list: the key of its name, "" for none, and its account.
struct Place {
  std::string key;
  std::int64_t account = 0;
};

class Server {
 public:
  /// `place`: "postgresql://HOST/DATABASE/orv1/".
  explicit Server(const std::string& place);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// Any statement. Throws std::runtime_error with what the server says.
  Rows Run(const std::string& sql, const std::vector<std::string>& parameters = {});
  /// The same, prepared at the first call; `custom`: planned anew for each run's values.
  Rows RunPrepared(const std::string& sql, const Cells& parameters, bool custom = false);
  /// One value of one row, "" for none.
  std::string Value(const std::string& sql, const std::vector<std::string>& parameters = {});
  /// Runs it row by row as rows come, and throws them away; their number.
  std::int64_t Stream(const std::string& sql);
  /// Shows each row of a prepared statement as it comes; Null is empty.
  using Show = std::function<void(const std::vector<std::string_view>& row)>;
  void Each(const std::string& sql, const std::vector<std::string>& parameters, const Show& show);

  int Backend() const;
  /// A table of the customers' schema, with its quotes.
  static std::string Table(std::string_view name) { return "\"orv1_customer\".\"" + std::string(name) + '"'; }
  /// The customers' fields as the engine reads them, of an alias "c".
  const std::string& Columns() const { return columns_; }

  // The list by names.
  Rows First(int count);
  Rows Last(int count);
  Rows After(const Place& place, int count);
  Rows Before(const Place& place, int count);
  /// From that row on.
  Rows From(const Place& place, int count);
  Rows At(std::int64_t ordinal, int count);
  /// The first row whose name begins so, in small plain letters, and the next one behind a place; the name's key is the last column.
  Rows FirstStarting(const std::string& start);
  Rows NextStarting(const Place& place, const std::string& start);
  Rows Seek(std::int64_t account);

  /// What the card of a customer holds, between reading and saving it.
  Cells card;

 private:
  Rows Taken(pg_result* result);
  std::string Prepared(const std::string& sql, bool custom);
  pg_conn* connection_ = nullptr;
  std::string columns_;
  std::vector<std::string> prepared_;
  bool custom_ = false;
};

/// The accounts' checksum.
std::uint64_t SumOf(const Rows& rows);

/// Microseconds of processor time that another process of this machine has used.
double ProcessorOf(int process);

}  // namespace bench::bare
