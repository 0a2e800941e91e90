#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

/// The bare program that the engine is measured against: the store's own interface on the same file, with the same text
/// order, settings and a warm connection, statements prepared once, and all columns of a row copied out.
namespace bench::raw {

/// A column as the store delivers it; dates stay texts.
using Cell = std::variant<std::monostate, std::int64_t, double, std::string>;

/// Rows behind one another.
struct Rows {
  std::size_t columns = 0;
  std::vector<Cell> cells;

  std::size_t Count() const { return columns == 0 ? 0 : cells.size() / columns; }
  const Cell* Row(std::size_t row) const { return cells.data() + row * columns; }
};

class Statement {
 public:
  Statement(sqlite3* db, const std::string& sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  /// Texts must live until Reset.
  void Bind(int index, std::string_view text);
  void Bind(int index, std::int64_t number);
  void Bind(int index, double number);
  void BindNull(int index);
  bool Step();
  void Reset();
  std::int64_t Int(int column) const;
  std::string_view Text(int column) const;
  bool IsNull(int column) const;
  int Columns() const;
  void CopyRow(Rows& rows) const;

 private:
  sqlite3* db_;
  sqlite3_stmt* statement_ = nullptr;
};

/// A place in the order of names.
struct NameKey {
  std::string name;
  std::int64_t account = 0;
};

/// A connection without a file that knows our text order and Like. Whoever opens it closes it.
sqlite3* OpenWithOurOrder();

/// The statements of all jobs on one company's customer file.
class Store {
 public:
  explicit Store(const std::string& path);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  sqlite3* Handle() const { return db_; }

  Rows First(int count);
  /// The same with the statement prepared for this one run.
  Rows PrepareAndFirst(int count);
  Rows Last(int count);
  /// Two statements in one reading transaction: the rest of the group of equal names, then the names behind it.
  Rows After(const NameKey& key, int count);
  Rows Before(const NameKey& key, int count);
  /// Keys by OFFSET first, then their rows.
  Rows At(std::int64_t ordinal, int count);

  /// The first row of a range of names for which Like holds.
  Rows FirstInRange(const std::string& pattern, const std::string& lower, const std::string& upper);
  /// The next one behind a row of the range.
  Rows NextInRange(const std::string& pattern, const NameKey& key, const std::string& upper);

  /// One scan for a value of Addr1: the hit that stands first in the order of names.
  std::int64_t ScanForAddress(const std::string& address);
  /// One scan with Like on Comments.
  std::int64_t ScanForComment(const std::string& pattern);
  /// One scan that looks at Addr1 and the account of every row; its checksum.
  std::uint64_t ScanAddresses();
  /// The rows that this order puts first, by the store's own sorting: to compare with.
  Rows FirstByAddress(int count);

  /// One statement through the list, each row copied out: begins it, and goes on by up to `rows`; the accounts' checksum.
  void WalkFromStart();
  std::uint64_t WalkOn(std::int64_t rows);
  Rows Seek(std::int64_t account);
  /// One change with its own commit.
  void SaveAddress(std::int64_t account, const std::string& text);

 private:
  Rows TwoSteps(Statement& group, Statement& beyond, const NameKey& key, int count);
  std::int64_t BestHit(Statement& scan);

  sqlite3* db_;
  struct Statements;
  std::unique_ptr<Statements> statements_;
  bool walking_ = false;
};

}  // namespace bench::raw
