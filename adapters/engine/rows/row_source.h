#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/catalogue/database_catalogue.h"
#include "engine/catalogue/engine_context.h"
#include "engine/rows/row_page.h"
#include "engine/store/query.h"
#include "engine/translate/plan/plan.h"
#include "platform/data/data.h"

namespace engine {

class KeyWalker;
class RowList;
struct CollectedPlaces;
struct CollectingPlaces;
struct FoundWay;

/// One column that orders a list.
struct OrderColumn {
  std::string sql;  ///< qualified by the table's alias
  platform::FieldType type = platform::FieldType::Long;
};

/// How one table is walked.
struct WalkWay {
  std::vector<OrderColumn> order;
  std::string index;      ///< of the table that has this order; "" to leave the choice to the store, or for row key order
  bool asItLies = false;  ///< in row key order, by no index
  std::string filter{};   ///< only the rows for which this holds, "" for all
  bool putInOrder = false;  ///< no index is to give the order, in a store that would look for one: all rows that fit are found and put in order
  bool inBounds = false;    ///< the filter holds nothing but the columns of the index: it says where the walk begins and ends
};

/// What every opening of one statement shares: its plan, its columns by name, the parts of its statements.
class RowShape {
 public:
  RowShape(SelectPlan plan, const Dialect& dialect);

  /// -1 for an unknown name.
  int FieldIndex(std::string_view name) const;

  SelectPlan plan;
  std::vector<platform::FieldInfo> fields;
  std::vector<platform::FieldType> types;         ///< of the columns
  std::string columnList;                         ///< "t0.a, t0.b, ...": the columns of a row
  std::string keyList;                            ///< the row keys of its tables
  std::string fetchText;                          ///< the row with given keys
  std::vector<std::shared_ptr<StoreFile>> files;  ///< of its tables, then of those that are only asked
  std::size_t ownFiles = 0;                       ///< how many are of its tables
  /// The list that was opened last, as long as somebody has it: the next one can begin with what it has read.
  mutable std::weak_ptr<RowList> lastList;
  /// What was collected last of its rows' numbers, and what is on its way, as long as somebody has that.
  mutable std::weak_ptr<const CollectedPlaces> places;
  mutable std::weak_ptr<CollectingPlaces> collecting;
  /// How many rows it had when they were last counted by themselves.
  struct Count {
    std::int64_t rows = 0;
    std::uint64_t version = 0;
    std::uint64_t ownVersion = 0;
    std::chrono::steady_clock::time_point at;
  };
  mutable std::optional<Count> counted;
  /// How its first page was found last, in a store that plans by itself.
  mutable std::shared_ptr<FoundWay> foundWay;

  /// One row of a join: the driving table's by its key, the others' as the join ties them to it now, so that code and name
  /// always stand for the same thing. Tables that no unique field ties are found by their own keys, too.
  std::string FromByKeys(const Dialect& dialect) const { return FromByKeys(dialect, 1); }
  /// The same for several values of the driving table's key, where rows are known by that alone.
  std::string FromByKeys(const Dialect& dialect, std::size_t values) const;
  /// Whether a row's key of that table is part of its identity; the others follow from these.
  bool IsKnownByKey(std::size_t table) const { return !plan.tables[table].follows; }
  /// Whether the plan's one table was too long once for its keys to be held; it is not asked again.
  mutable bool knownLong = false;
  /// The way through the plan's one table in that order, with its statements: the plan's rows, along an index or as the store
  /// likes ("").
  const std::shared_ptr<KeyWalker>& Walker(Store& store, const std::vector<OrderColumn>& order, const std::string& index) const;
  /// The same for any way.
  const std::shared_ptr<KeyWalker>& Walker(Store& store, const WalkWay& way) const;

 private:
  struct NoCaseHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view name) const noexcept;
  };
  struct NoCaseEqual {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const noexcept;
  };
  std::unordered_map<std::string, int, NoCaseHash, NoCaseEqual> byName_;
  mutable std::map<std::string, std::shared_ptr<KeyWalker>> walkers_;
};

/// The rows that a plan speaks of, apart from their order: columns, files, reading a row by its keys. Shared by all that
/// belongs to one open recordset.
class RowSource {
 public:
  RowSource(EngineContext& context, std::shared_ptr<DatabaseCatalogue> catalogue, std::shared_ptr<const RowShape> shape);

  EngineContext& Context() const noexcept { return context_; }
  engine::Store& Store() const noexcept { return context_.OwnStore(); }
  const Dialect& OwnDialect() const { return context_.OwnDialect(); }
  const RowShape& Shape() const noexcept { return *shape_; }
  const SelectPlan& Plan() const noexcept { return shape_->plan; }
  std::size_t KeyCount() const noexcept { return Plan().tables.size(); }
  std::uint64_t Set() const noexcept { return set_; }

  const std::vector<platform::FieldInfo>& Fields() const noexcept { return shape_->fields; }
  /// -1 for an unknown name.
  int FieldIndex(std::string_view name) const { return shape_->FieldIndex(name); }
  const platform::FieldDefinition* DefinitionOf(int column) const;

  /// A number that changes with each commit to one of the files, by anyone.
  std::uint64_t Version();
  /// The same, but in a run of calls without a pause the number found last.
  std::uint64_t RecentVersion();
  /// The number found last, nobody asked: an older one when others have written since.
  std::uint64_t KnownVersion() const { return MixedVersion(); }

  /// A page for rows of its columns with so many values more behind each.
  std::shared_ptr<RowPage> NewPage(std::size_t more = 0);
  /// Whether the rows of a page are as they would be if they were read now, as far as is known without asking: nobody has written since, of
  /// whom is told. Only where asking costs most, and of rows of one table.
  bool StillSo(const RowPage& page);
  /// Whether that can be: others' writes of up to a moment ago are known.
  bool HeardJustNow() const;

  /// A number that changes with each commit of this engine's.
  std::uint64_t OwnVersion() const;

  /// "t0.a, t0.b, ...": the columns of a row, and behind them the row keys.
  const std::string& ColumnList() const noexcept { return shape_->columnList; }
  const std::string& KeyList() const noexcept { return shape_->keyList; }
  /// Reads the columns at the query's row into a page; `first` is the place of the first column.
  void ReadCells(const Query& query, int first, RowPage& page) const;
  /// The same as values, for a row that is shown whole.
  std::vector<platform::Value> ReadValues(const Query& query, int first) const;
  void ReadKeys(const Query& query, int first, RowPage& page) const;

  /// What a row is of which the join finds a part no more.
  enum class Missing { Gone, Null };
  /// Adds the row with these keys to the page, with the keys that its tables' rows have now; false when it is gone.
  bool Fetch(const std::int64_t* keys, RowPage& page, Missing missing = Missing::Gone);
  /// Whether several rows are better fetched together, and can be: the store answers to many keys as quickly as to one, and a row is known
  /// by its driving table's key alone.
  bool FetchesTogether() const;
  /// Adds those of the rows with these keys (as Fetch has them, one behind the other) to the page that are there, in their order; for each
  /// its number in the page, -1 for one that is gone. `tested`: by what they are tested besides, which tells for each whether that is true.
  struct Tested {
    std::string_view criterion;
    std::vector<bool> isTrue{};
  };
  std::vector<int> FetchTogether(std::span<const std::int64_t> keys, RowPage& page, Tested* tested = nullptr);
  /// Whether the row with these keys is there and the criterion is true of it.
  bool Test(const std::int64_t* keys, SqlText& test);
  /// Of several rows, by the keys of the driving table, those for which the criterion is true; where FetchesTogether.
  std::vector<std::int64_t> TestTogether(std::span<const std::int64_t> keys, std::string_view criterion);
  /// The statement that Test runs.
  SqlText TestFor(std::string_view criterion) const;

  bool Writable() const;
  /// Raises 3027 when the table's file or the plan can't be written.
  void RequireWritable() const;

 private:
  std::uint64_t MixedVersion() const;
  void BindKeys(Query& query, const std::int64_t* keys) const;
  template <class IsThere>
  bool AllThere(const std::int64_t* keys, IsThere isThere) const;
  bool AllThere(const Query& query, int first, const std::int64_t* keys) const;

  EngineContext& context_;
  std::shared_ptr<DatabaseCatalogue> catalogue_;
  std::shared_ptr<const RowShape> shape_;
  std::uint64_t set_;
  SqlText fetch_;
  std::map<std::size_t, SqlText> together_;  ///< by the number of keys
  std::vector<std::int64_t> others_;  ///< what each file told of others' commits
  std::chrono::steady_clock::time_point asked_;
};

}  // namespace engine
