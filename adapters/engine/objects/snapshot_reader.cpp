#include "engine/objects/snapshot_reader.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "engine/catalogue/database_catalogue.h"
#include "engine/catalogue/stores.h"
#include "engine/errors.h"
#include "engine/objects/joined_stores.h"
#include "engine/rows/row_source.h"
#include "engine/store/query.h"
#include "engine/translate/plan/planning.h"
#include "engine/translate/plan/select_text.h"
#include "platform/values/text.h"

namespace engine {
namespace {

using platform::FieldDefinition;
using platform::FieldType;
using platform::IndexDefinition;

// How many of the order's keys an index gives, from its first field on.
std::size_t KeysOf(const SelectPlan& plan, const IndexDefinition& index) {
  const std::vector<FieldDefinition>& fields = plan.tables.front().table->definition.fields;
  std::size_t keys = 0;
  while (keys < plan.order.size() && keys < index.fields.size()) {
    const PlanOrder& key = plan.order[keys];
    const bool same = key.table == 0 && key.field >= 0 && key.descending == plan.order.front().descending &&
                      platform::EqualsNoCase(fields[static_cast<std::size_t>(key.field)].name, index.fields[keys]);
    if (!same) break;
    ++keys;
  }
  return keys;
}

// The index of the driving table along which the rows come in the order, or nearly so: equal keys are put in order group by group. Left
// to itself the store may look at all rows of a long table and sort them before it gives the first one. nullptr where the order begins
// with the row key, or where conditions may make another way shorter.
const IndexDefinition* IndexOfOrder(const SelectPlan& plan) {
  if (plan.order.empty() || !plan.where.empty() || plan.distinct || plan.aggregate || plan.driving != 0) return nullptr;
  const PlanOrder& first = plan.order.front();
  const platform::TableDefinition& table = plan.tables.front().table->definition;
  if (first.table != 0 || first.field < 0 || table.fields[static_cast<std::size_t>(first.field)].type == FieldType::Counter) return nullptr;
  const IndexDefinition* best = nullptr;
  std::size_t most = 0;
  for (const IndexDefinition& index : table.indexes) {
    const std::size_t keys = KeysOf(plan, index);
    if (keys <= most) continue;
    best = &index;
    most = keys;
  }
  return best;
}

// The statement of all rows. Rows with equal keys come in the order of the driving table's own, so that pages break alike each time.
std::string RowsText(SelectPlan plan, const Dialect& dialect) {
  const PlanTable& table = plan.tables[static_cast<std::size_t>(plan.driving)];
  if (const IndexDefinition* index = IndexOfOrder(plan)) {
    const std::string start = table.table->storeName + " AS " + table.alias;
    const bool onlyLeft = plan.from.find(" INNER JOIN ") == std::string::npos && plan.from.find(dialect.joinAll) == std::string::npos;
    if (onlyLeft && plan.from.starts_with(start)) plan.from.insert(start.size(), dialect.Along(table.table->definition.name, index->name));
  }
  if (!plan.distinct && !plan.aggregate) {
    const bool descending = !plan.order.empty() && plan.order.back().descending;
    plan.order.push_back({.sql = table.alias + '.' + table.table->rowKey, .descending = descending});
  }
  return SelectText(plan, ColumnTexts(plan), dialect);
}

class Stream final : public platform::RowStream {
 public:
  /// `gathered`: the plan's tables where they come from several stores.
  Stream(EngineContext& context, SelectPlan plan, const std::function<bool()>& goOn, std::unique_ptr<Gathering> gathered = {})
      : gathered_(std::move(gathered)),
        shape_(std::move(plan), context.OwnDialect()),
        store_(context.OwnStore()),
        goOn_(goOn),
        oneState_(store_, Transaction::Kind::Read),
        query_(store_, std::string_view(RowsText(shape_.plan, context.OwnDialect()))) {
    const std::vector<std::string> one{"count(*)"};
    SelectPlan counted = shape_.plan;
    counted.distinct = false;
    countText_ = SelectText(counted, one, context.OwnDialect(), false);
  }

  const std::vector<platform::FieldInfo>& Fields() const override { return shape_.fields; }

  bool Next() override {
    if (ended_) return false;
    row_.clear();
    ended_ = true;
    Run([this] { ended_ = !query_.Step(); });
    if (!ended_) query_.Append(row_, 0, shape_.types);
    return !ended_;
  }

  const std::vector<platform::Value>& Row() const override { return row_; }

  std::int64_t Count() override {
    if (shape_.plan.aggregate) return 1;
    if (shape_.plan.distinct) return -1;
    std::int64_t count = 0;
    Run([&] { count = AskNumber(store_, countText_).value_or(0); });
    return count;
  }

 private:
  template <class Read>
  void Run(const Read& read) {
    if (!goOn_) return read();
    if (!store_.ReadsToItsEnd(goOn_, std::ref(read))) throw platform::Error(platform::kReadingStopped, "Operation canceled by user.");
  }

  std::unique_ptr<Gathering> gathered_;
  RowShape shape_;
  Store& store_;
  const std::function<bool()>& goOn_;
  Transaction oneState_;
  Query query_;
  std::string countText_;
  std::vector<platform::Value> row_;
  bool ended_ = false;
};

class Reader final : public platform::SnapshotReader {
 public:
  Reader(const EngineOptions& options, StoreChoice choice) : stores_(options, std::move(choice)) {}

  std::optional<platform::TableDefinition> FindTable(std::string_view path, std::string_view table) override {
    const ResolvedTable* found = KnownOf(path).catalogue->FindTable(table);
    if (found == nullptr) return std::nullopt;
    return found->definition;
  }

  std::unique_ptr<platform::RowStream> OpenRows(std::string_view path, std::string_view select) override {
    const Known& known = KnownOf(path);
    AskedTables asked(*known.catalogue, known.context);
    SelectPlan plan = PlanSelect(select, asked, known.context.OwnDialect());
    const bool atOnePlace = asked.Found().empty() || (asked.Found().size() == 1 && asked.Found().front() == &known.context);
    if (atOnePlace) return std::make_unique<Stream>(known.context, std::move(plan), goOn_);
    JoinedStores joined(asked, path, select, goOn_);
    SelectPlan there = PlanSelect(select, joined, joined.Home().OwnDialect());
    return std::make_unique<Stream>(joined.Home(), std::move(there), goOn_, joined.TakeGathering());
  }

  void OnWait(std::function<bool()> goOn) override {
    goOn_ = std::move(goOn);
    stores_.OnWait([this] {
      if (goOn_) goOn_();
    });
  }

 private:
  struct Known {
    EngineContext& context;
    std::unique_ptr<DatabaseCatalogue> catalogue;
  };
  const Known& KnownOf(std::string_view path) {
    const auto known = known_.find(path);
    if (known != known_.end()) return known->second;
    Stores::Opened opened = stores_.Open(path);
    auto catalogue = std::make_unique<DatabaseCatalogue>(opened.context, std::move(opened.file), std::string(path));
    return known_.emplace(path, Known{opened.context, std::move(catalogue)}).first->second;
  }

  std::function<bool()> goOn_;
  Stores stores_;
  std::map<std::string, Known, std::less<>> known_;
};

}  // namespace

std::unique_ptr<platform::SnapshotReader> MakeSnapshotReaderOver(StoreChoice choice, const EngineOptions& options) {
  return std::make_unique<Reader>(options, std::move(choice));
}

}  // namespace engine
