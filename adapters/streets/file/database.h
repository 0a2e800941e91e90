#pragma once

#include <cstdint>
#include <string>

#include "streets/file/statement.h"

struct sqlite3;

namespace streets {

/// A connection to one file of the store. Failures raise FileError with the file's name.
class Database {
 public:
  enum class Use { Read, Write, Make };

  /// Waits for locks of others as long as `lockWait` milliseconds. What a killed writer left half-written is undone first.
  Database(std::string path, Use use, int lockWait);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  const std::string& Path() const noexcept { return path_; }
  void Execute(const std::string& sql);
  /// The whole number in the first column of the first row; 0 for no row.
  std::int64_t Ask(const std::string& sql);
  /// How many rows the last statement has written.
  std::int64_t Changes() const;

  sqlite3* Handle() const noexcept { return handle_; }
  [[noreturn]] void Raise(int code) const;

 private:
  void Open(Use use, int lockWait);
  void Close() noexcept;

  std::string path_;
  sqlite3* handle_ = nullptr;
};

/// Writes that become true together. What is not committed is undone.
class Transaction {
 public:
  explicit Transaction(Database& database);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit();

 private:
  Database& database_;
  bool over_ = false;
};

}  // namespace streets
