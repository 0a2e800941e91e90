#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/sql/ast/expression.h"
#include "engine/store/dialect.h"
#include "engine/translate/names/catalogue.h"

namespace engine {

/// What a name stands for.
struct ResolvedField {
  std::string sql;
  std::string comparable{};  ///< what it is compared and ordered by, "" where that is `sql`
  platform::FieldType type = platform::FieldType::Long;
  int size = 0;
  int table = -1;  ///< of the scope; -1 for a computed column
  int field = -1;
};

/// The names that an expression may use.
class Scope {
 public:
  virtual ~Scope() = default;
  /// Nothing for a name that is not known but may count as one for now; raises for others.
  virtual std::optional<ResolvedField> Resolve(const sql::FieldName& name) = 0;
};

/// The tables of a statement's FROM. Names that are not known are gathered: each different one counts as a parameter
/// without a value.
class StatementScope final : public Scope {
 public:
  struct Table {
    const ResolvedTable* table = nullptr;
    std::string name;   ///< as the statement calls it
    std::string alias;  ///< as the translated text calls it
  };

  StatementScope(std::vector<Table> tables, const Dialect& dialect) : tables_(std::move(tables)), dialect_(dialect) {}

  /// An unqualified name in two tables: 3079.
  std::optional<ResolvedField> Resolve(const sql::FieldName& name) override;
  /// 3061 with the number of different names that were not known.
  void RequireAllKnown() const;

  const std::vector<Table>& Tables() const { return tables_; }
  std::optional<int> TableNamed(std::string_view name) const;
  ResolvedField FieldAt(int table, int field) const;
  /// Gives the tables other names in the translated text.
  void SetAliases(const std::vector<std::string>& aliases);

 private:
  std::vector<Table> tables_;
  const Dialect& dialect_;
  std::set<std::string> unknown_;
};

/// Sets of a statement's tables.
using TableSet = std::uint64_t;
inline TableSet TableBit(int table) { return TableSet{1} << static_cast<unsigned>(table); }

/// The name as a statement writes it, with its table if it names one.
std::string WholeName(const sql::FieldName& name);

/// Place of a field in a definition, -1 for none.
int FieldPlace(const platform::TableDefinition& definition, std::string_view name);

}  // namespace engine
