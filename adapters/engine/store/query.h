#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/channel.h"

namespace engine {

/// A statement's text with its prepared form, for who runs it often.
struct SqlText {
  SqlText() = default;
  SqlText(std::string sql) : text(std::move(sql)) {}
  std::string text;
  std::shared_ptr<Statement> prepared;
};

/// One run of a statement; it ends with the object, nothing stays open behind it.
class Query {
 public:
  Query(Channel& channel, SqlText& sql);
  Query(Channel& channel, std::string_view sql);
  ~Query() { statement_->End(); }
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  void BindNull(int parameter) { statement_->BindNull(parameter); }
  void Bind(int parameter, std::int64_t number) { statement_->Bind(parameter, number); }
  void Bind(int parameter, double number) { statement_->Bind(parameter, number); }
  void Bind(int parameter, std::string_view text) { statement_->Bind(parameter, text); }
  /// The stored form of a value of the field's own type.
  void Bind(int parameter, const platform::Value& value);

  /// One plan does for all values (Statement::PlanOnce).
  void PlanOnce() { statement_->PlanOnce(); }
  /// Few rows will come (Statement::ExpectFew).
  void ExpectFew() { statement_->ExpectFew(); }
  /// An index gives the order (Statement::PlanAlong).
  void PlanAlong() { statement_->PlanAlong(); }
  bool Step() { return statement_->Step(); }
  /// The same for a value that stays where it is until the run has ended.
  void BindInPlace(int parameter, const platform::Value& value) {
    value.IsText() ? statement_->BindInPlace(parameter, value.As<std::string>()) : Bind(parameter, value);
  }

  /// Runs it to its end.
  void Run();
  /// Makes it ready for another run; bindings stay.
  void Again() { statement_->Reset(); }
  std::int64_t Changed() const { return statement_->Changed(); }
  std::int64_t AddedRow() const { return statement_->AddedRow(); }

  bool IsNull(int column) const { return statement_->IsNull(column); }
  std::int64_t Int(int column) const { return statement_->Int(column); }
  /// "" for Null.
  std::string_view Text(int column) const { return statement_->Text(column).value_or(std::string_view()); }
  std::optional<std::string_view> TextOrNull(int column) const { return statement_->Text(column); }
  /// The value of a column of that declared type.
  platform::Value Read(int column, platform::FieldType type) const;
  /// A row's cells at once: columns of these types, from `first` on.
  void Append(std::vector<platform::Value>& cells, int first, std::span<const platform::FieldType> types) const {
    statement_->Append(cells, first, types);
  }
  void Pack(PackedCells& cells, int first, std::span<const platform::FieldType> types) const { statement_->Pack(cells, first, types); }

 private:
  std::shared_ptr<Statement> statement_;
};

/// The number in the first column of the first row; nothing for Null or no row.
std::optional<std::int64_t> AskNumber(Channel& channel, std::string_view sql);

}  // namespace engine
