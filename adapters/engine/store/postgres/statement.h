#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/store/postgres/link/run.h"
#include "engine/store/statement.h"

namespace engine::postgres {

class ServerConnection;

/// The schema that a statement names first ("orv1_customer".): what a write changes, and what an error message is about.
std::string FirstSchema(std::string_view sql);

/// A statement for the server. What is wrong with its text shows at the first step: it is prepared together with its first run, when
/// the types of its parameters are known.
class ServerStatement final : public Statement {
 public:
  ServerStatement(ServerConnection& connection, std::string_view sql, std::vector<Parameter> parameters = {});
  ~ServerStatement() override;

  const std::string& Sql() const noexcept { return sql_; }
  bool Writes() const noexcept { return writes_; }
  const std::string& Schema() const noexcept { return schema_; }

  void BindNull(int parameter) override;
  void Bind(int parameter, std::int64_t number) override;
  void Bind(int parameter, double number) override;
  void Bind(int parameter, std::string_view text) override;
  void PlanOnce() override { planning_ = Planning::Once; }
  void PlanAlong() override { planning_ = Planning::Along; }
  void ExpectFew() override { few_ = true; }
  bool Step() override;
  void Reset() noexcept override;
  std::int64_t Changed() const override { return changed_; }
  std::int64_t AddedRow() const override { return added_; }
  bool IsNull(int column) const override;
  std::int64_t Int(int column) const override;
  std::optional<std::string_view> Text(int column) const override;
  void Append(std::vector<platform::Value>& cells, int first, std::span<const platform::FieldType> types) const override;
  void Pack(PackedCells& cells, int first, std::span<const platform::FieldType> types) const override;

 private:
  Parameter& At(int parameter);
  Trip Prepared();
  void Start();
  bool Ended();

  ServerConnection& connection_;
  std::string sql_;
  std::string schema_;
  bool defines_ = false;  ///< changes definitions
  bool writes_ = false;   ///< changes something, also if it is a SELECT by its form
  bool asksMoment_ = false;
  Planning planning_ = Planning::ForValues;
  bool few_ = false;
  std::vector<Parameter> parameters_;
  std::vector<unsigned> types_;  ///< that the parameters have had
  std::map<std::vector<unsigned>, std::string> names_;  ///< on the server, by the parameters' types
  bool preparing_ = false;                              ///< the run prepares it, too
  int openings_ = 0;                                    ///< of the connection that has the names
  std::shared_ptr<Run> run_;
  Result rows_;
  int row_ = 0;
  std::int64_t changed_ = 0;
  std::int64_t added_ = 0;
};

}  // namespace engine::postgres
