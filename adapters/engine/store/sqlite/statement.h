#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/statement.h"

struct sqlite3_stmt;

namespace engine {

class Connection;

/// The numbers of the files that a statement names ("f3".), in the order of their first places.
std::vector<int> FilesIn(std::string_view sql);

/// A statement that a connection has prepared.
class SqliteStatement final : public Statement {
 public:
  SqliteStatement(Connection& connection, std::string_view sql);
  ~SqliteStatement() override;

  const std::string& Sql() const noexcept { return sql_; }
  bool Writes() const noexcept { return writes_; }
  /// Number of the first file that the text names, 0 if none: what a write changes, and what an error message is about.
  int File() const noexcept { return file_; }
  /// Gives the store's part up, as a detach demands; whoever holds the statement must prepare another.
  void Drop() noexcept;

  void BindNull(int parameter) override;
  void Bind(int parameter, std::int64_t number) override;
  void Bind(int parameter, double number) override;
  void Bind(int parameter, std::string_view text) override;
  void BindInPlace(int parameter, std::string_view text) override;
  bool Step() override;
  void Reset() noexcept override;
  std::int64_t Changed() const override;
  std::int64_t AddedRow() const override;
  bool IsNull(int column) const override;
  std::int64_t Int(int column) const override;
  std::optional<std::string_view> Text(int column) const override;
  void Append(std::vector<platform::Value>& cells, int first, std::span<const platform::FieldType> types) const override;
  void Pack(PackedCells& cells, int first, std::span<const platform::FieldType> types) const override;

 private:
  int FirstStep();

  Connection& connection_;
  std::string sql_;
  int file_ = 0;
  sqlite3_stmt* statement_ = nullptr;
  bool writes_ = false;
  bool stepped_ = false;
};

}  // namespace engine
