#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

struct sqlite3_stmt;

namespace streets {

class Database;

/// A prepared statement of a database, which must outlive it. Failures raise FileError.
class Statement {
 public:
  Statement(Database& database, std::string_view sql);
  ~Statement();
  Statement(Statement&& other) noexcept;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  Statement& operator=(Statement&&) = delete;

  /// The values of the places in their order. Texts and bytes must live until the next Reset.
  template <typename... Values>
  Statement& With(const Values&... values) {
    Reset();
    int place = 0;
    (Bind(++place, values), ...);
    return *this;
  }
  /// Goes to the next row; false after the last, the statement is then ready to be used again.
  bool Step();
  /// Runs a statement that gives no rows.
  void Run();
  void Reset() noexcept;

  std::int64_t Int(int column) const;
  std::int32_t Int32(int column) const { return static_cast<std::int32_t>(Int(column)); }
  /// Both live until the next step.
  std::string_view Text(int column) const;
  std::span<const std::byte> Bytes(int column) const;

 private:
  void Bind(int place, std::int64_t value);
  void Bind(int place, std::int32_t value) { Bind(place, static_cast<std::int64_t>(value)); }
  void Bind(int place, std::string_view text);
  void Bind(int place, std::span<const std::byte> bytes);

  Database* database_;
  sqlite3_stmt* statement_ = nullptr;
};

/// Sets a statement back when what reads it leaves early, so that it keeps no lock on the file.
class Resetting {
 public:
  explicit Resetting(Statement& statement) : statement_(statement) {}
  ~Resetting() { statement_.Reset(); }
  Resetting(const Resetting&) = delete;
  Resetting& operator=(const Resetting&) = delete;

 private:
  Statement& statement_;
};

}  // namespace streets
