#include "engine/rows/row_source.h"

#include <algorithm>
#include <span>

#include "engine/errors.h"
#include "engine/rows/key_batch.h"
#include "engine/rows/key_walker.h"
#include "platform/values/text.h"

namespace engine {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

platform::FieldInfo InfoOf(const SelectPlan& plan, const PlanColumn& column) {
  platform::FieldInfo info;
  info.name = column.name;
  info.type = column.type;
  info.size = column.size;
  if (column.table < 0) return info;
  const PlanTable& table = plan.tables[static_cast<std::size_t>(column.table)];
  info.sourceTable = table.table->definition.name;
  info.sourceField = table.table->definition.fields[static_cast<std::size_t>(column.field)].name;
  info.updatable = plan.updatable && column.type != platform::FieldType::Counter;
  return info;
}

}  // namespace

std::size_t RowShape::NoCaseHash::operator()(std::string_view name) const noexcept {
  std::size_t hash = 1469598103934665603ULL;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(LowerAscii(c))) * 1099511628211ULL;
  return hash;
}

bool RowShape::NoCaseEqual::operator()(std::string_view left, std::string_view right) const noexcept {
  return std::ranges::equal(left, right, {}, LowerAscii, LowerAscii);
}

RowShape::RowShape(SelectPlan given, const Dialect& dialect) : plan(std::move(given)) {
  for (const PlanColumn& column : plan.columns) {
    fields.push_back(InfoOf(plan, column));
    types.push_back(column.type);
    byName_.emplace(column.name, static_cast<int>(fields.size()) - 1);
    columnList += (columnList.empty() ? "" : ", ") + column.sql;
  }
  const auto addFile = [this](const std::shared_ptr<StoreFile>& file) {
    if (std::ranges::find(files, file) == files.end()) files.push_back(file);
  };
  for (const PlanTable& table : plan.tables) {
    keyList += (keyList.empty() ? "" : ", ") + table.alias + '.' + table.table->rowKey;
    addFile(table.table->file);
  }
  ownFiles = files.size();
  for (const auto& file : plan.askedFiles) addFile(file);
  fetchText = "SELECT " + columnList + ", " + keyList + " FROM " + FromByKeys(dialect);
}

int RowShape::FieldIndex(std::string_view name) const {
  const auto found = byName_.find(name);
  return found == byName_.end() ? -1 : found->second;
}

std::string RowShape::FromByKeys(const Dialect& dialect, std::size_t values) const {
  const auto byKey = [&](std::size_t i) {
    return plan.tables[i].alias + '.' + plan.tables[i].table->rowKey + " = " + dialect.Parameter(i + 1);
  };
  const auto named = [&](std::size_t i) { return plan.tables[i].table->storeName + " AS " + plan.tables[i].alias; };
  const auto driving = static_cast<std::size_t>(plan.driving);
  std::string from = named(driving);
  for (const int next : plan.fetchOrder) {
    const auto i = static_cast<std::size_t>(next);
    if (i == driving) continue;
    const PlanTable& table = plan.tables[i];
    const std::string join = table.tie.empty() ? "" : '(' + table.tie + ')';
    from += " LEFT JOIN " + named(i) + " ON " + (table.follows ? join : byKey(i) + (join.empty() ? "" : " AND " + join));
  }
  if (values == 1) return from + " WHERE " + byKey(driving);
  return from + " WHERE " + plan.tables[driving].alias + '.' + plan.tables[driving].table->rowKey + InParameters(dialect, values);
}

const std::shared_ptr<KeyWalker>& RowShape::Walker(Store& store, const std::vector<OrderColumn>& order, const std::string& index) const {
  return Walker(store, WalkWay{.order = order, .index = index, .filter = plan.rowWhere});
}

const std::shared_ptr<KeyWalker>& RowShape::Walker(Store& store, const WalkWay& way) const {
  std::string name = way.index + (way.asItLies ? "!" : "") + (way.putInOrder ? "*" : "") + (way.inBounds ? "=" : "");
  for (const OrderColumn& column : way.order) name += '\n' + column.sql;
  auto& walker = walkers_[name + '\t' + way.filter];
  if (!walker) walker = std::make_shared<KeyWalker>(store, *this, way);
  return walker;
}

RowSource::RowSource(EngineContext& context, std::shared_ptr<DatabaseCatalogue> catalogue, std::shared_ptr<const RowShape> shape)
    : context_(context),
      catalogue_(std::move(catalogue)),
      shape_(std::move(shape)),
      set_(context.NewSet()),
      fetch_(shape_->fetchText),
      others_(shape_->files.size()) {}

void RowSource::BindKeys(Query& query, const std::int64_t* keys) const {
  for (std::size_t i = 0; i < Plan().tables.size(); ++i) {
    if (!shape_->IsKnownByKey(i)) continue;
    keys[i] != kNoRowKey ? query.Bind(static_cast<int>(i) + 1, keys[i]) : query.BindNull(static_cast<int>(i) + 1);
  }
}

// A table that follows in an outer join may have found, lost or changed its row. A row that came without a partner needs none.
template <class IsThere>
bool RowSource::AllThere(const std::int64_t* keys, IsThere isThere) const {
  for (std::size_t i = 0; i < Plan().tables.size(); ++i) {
    const PlanTable& table = Plan().tables[i];
    const bool needed = keys[i] != kNoRowKey && !(table.follows && table.nullable);
    if (needed && !isThere(i)) return false;
  }
  return true;
}

bool RowSource::AllThere(const Query& query, int first, const std::int64_t* keys) const {
  return AllThere(keys, [&](std::size_t i) { return !query.IsNull(first + static_cast<int>(i)); });
}

const platform::FieldDefinition* RowSource::DefinitionOf(int column) const {
  const PlanColumn& planned = Plan().columns[static_cast<std::size_t>(column)];
  if (planned.table < 0) return nullptr;
  return &Plan().tables[static_cast<std::size_t>(planned.table)].table->definition.fields[static_cast<std::size_t>(planned.field)];
}

std::uint64_t RowSource::Version() {
  for (std::size_t i = 0; i < others_.size(); ++i) others_[i] = shape_->files[i]->OthersVersion();
  asked_ = std::chrono::steady_clock::now();
  return MixedVersion();
}

// Own writes are counted here and never asked for.
std::uint64_t RowSource::RecentVersion() {
  const auto trust = std::chrono::microseconds(context_.Options().readAheadTrust);
  return std::chrono::steady_clock::now() - asked_ < trust ? MixedVersion() : Version();
}

std::uint64_t RowSource::MixedVersion() const {
  std::uint64_t mixed = 0;
  for (std::size_t i = 0; i < others_.size(); ++i) {
    mixed = (mixed * 0x9E3779B97F4A7C15ULL) ^ static_cast<std::uint64_t>(others_[i]);
    mixed = (mixed * 0x9E3779B97F4A7C15ULL) ^ shape_->files[i]->OwnVersion();
  }
  return mixed;
}

std::shared_ptr<RowPage> RowSource::NewPage(std::size_t more) {
  auto page = std::make_shared<RowPage>(Plan().columns.size() + more, KeyCount());
  page->version = std::ranges::all_of(shape_->files, &StoreFile::IsTold) ? Version() : MixedVersion();
  return page;
}

bool RowSource::HeardJustNow() const { return std::ranges::all_of(shape_->files, &StoreFile::HeardJustNow); }

// A row of a join may stand there without its partners.
bool RowSource::StillSo(const RowPage& page) { return KeyCount() == 1 && HeardJustNow() && page.version == Version(); }

std::uint64_t RowSource::OwnVersion() const {
  std::uint64_t writes = 0;
  for (std::size_t i = 0; i < others_.size(); ++i) writes += shape_->files[i]->OwnVersion();
  return writes;
}

void RowSource::ReadCells(const Query& query, int first, RowPage& page) const { query.Pack(page.cells, first, shape_->types); }

std::vector<platform::Value> RowSource::ReadValues(const Query& query, int first) const {
  std::vector<platform::Value> values;
  values.reserve(shape_->types.size());
  query.Append(values, first, shape_->types);
  return values;
}

void RowSource::ReadKeys(const Query& query, int first, RowPage& page) const {
  for (std::size_t i = 0; i < Plan().tables.size(); ++i) {
    const int column = first + static_cast<int>(i);
    page.keys.push_back(query.IsNull(column) ? kNoRowKey : query.Int(column));
  }
}

// The keys may be a list's own: who paints while the row is waited for may have more of them read.
bool RowSource::Fetch(const std::int64_t* keys, RowPage& page, Missing missing) {
  const std::vector<std::int64_t> wanted(keys, keys + KeyCount());
  Query query(Store(), fetch_);
  if (Plan().tables.size() == 1) query.PlanOnce();
  BindKeys(query, wanted.data());
  const int keysAt = static_cast<int>(Plan().columns.size());
  if (!query.Step() || (missing == Missing::Gone && !AllThere(query, keysAt, wanted.data()))) return false;
  ReadCells(query, 0, page);
  ReadKeys(query, keysAt, page);
  return true;
}

bool RowSource::FetchesTogether() const {
  if (OwnDialect().rowsAtOnce <= 1) return false;
  const auto driving = static_cast<std::size_t>(Plan().driving);
  for (std::size_t i = 0; i < Plan().tables.size(); ++i)
    if (i != driving && shape_->IsKnownByKey(i)) return false;
  return true;
}

std::vector<int> RowSource::FetchTogether(std::span<const std::int64_t> keys, RowPage& page, Tested* tested) {
  const std::size_t width = KeyCount();
  const auto driving = static_cast<std::size_t>(Plan().driving);
  const std::size_t rows = keys.size() / width;
  std::vector<int> places(rows, -1);
  const int keysAt = static_cast<int>(Plan().columns.size());
  for (KeyBatch batch; batch.End() < rows;) {
    batch = KeyBatch::From(batch.End(), rows);
    SqlText own;
    SqlText& text = tested != nullptr ? own : together_[batch.parameters];
    if (text.text.empty())
      text.text = "SELECT " + ColumnList() + ", " + KeyList() + (tested != nullptr ? ", (" + std::string(tested->criterion) + ')' : "") +
                  " FROM " + shape_->FromByKeys(OwnDialect(), batch.parameters);
    RowPage found(page.columns, width);
    std::unordered_map<std::int64_t, std::size_t> rowOf;
    std::vector<bool> isTrue;
    Query query(Store(), text);
    batch.Bind(query, [&](std::size_t row) { return keys[row * width + driving]; });
    while (query.Step()) {
      rowOf.emplace(query.Int(keysAt + static_cast<int>(driving)), found.Rows());
      ReadCells(query, 0, found);
      ReadKeys(query, keysAt, found);
      if (const int at = keysAt + static_cast<int>(width); tested != nullptr) isTrue.push_back(!query.IsNull(at) && query.Int(at) != 0);
    }
    if (tested != nullptr) tested->isTrue.resize(batch.End(), false);
    for (std::size_t i = batch.first; i < batch.End(); ++i) {
      const std::int64_t* const wanted = &keys[i * width];
      const auto row = rowOf.find(wanted[driving]);
      if (row == rowOf.end() || !AllThere(wanted, [&](std::size_t table) { return found.KeysOf(row->second)[table] != kNoRowKey; }))
        continue;
      places[i] = static_cast<int>(page.Rows());
      if (tested != nullptr) tested->isTrue[i] = isTrue[row->second];
      page.cells.Add(found.cells, row->second * page.columns, page.columns);
      page.keys.insert(page.keys.end(), found.KeysOf(row->second), found.KeysOf(row->second) + width);
    }
  }
  return places;
}

SqlText RowSource::TestFor(std::string_view criterion) const {
  return SqlText("SELECT (" + std::string(criterion) + "), " + KeyList() + " FROM " + shape_->FromByKeys(OwnDialect()));
}

std::vector<std::int64_t> RowSource::TestTogether(std::span<const std::int64_t> keys, std::string_view criterion) {
  const std::size_t width = KeyCount();
  const auto driving = static_cast<std::size_t>(Plan().driving);
  const std::size_t rows = keys.size() / width;
  std::unordered_map<std::int64_t, const std::int64_t*> wanted;
  for (std::size_t row = 0; row < rows; ++row) wanted.emplace(keys[row * width + driving], &keys[row * width]);
  std::vector<std::int64_t> fit;
  for (KeyBatch batch; batch.End() < rows;) {
    batch = KeyBatch::From(batch.End(), rows, KeyBatch::kMany);
    Query query(Store(), "SELECT (" + std::string(criterion) + "), " + KeyList() + " FROM " + shape_->FromByKeys(OwnDialect(), batch.parameters));
    batch.Bind(query, [&](std::size_t row) { return keys[row * width + driving]; });
    while (query.Step()) {
      const std::int64_t key = query.Int(1 + static_cast<int>(driving));
      const auto row = wanted.find(key);
      if (row != wanted.end() && AllThere(query, 1, row->second) && !query.IsNull(0) && query.Int(0) != 0) fit.push_back(key);
    }
  }
  return fit;
}

bool RowSource::Test(const std::int64_t* keys, SqlText& test) {
  const std::vector<std::int64_t> wanted(keys, keys + KeyCount());  // as above
  Query query(Store(), test);
  BindKeys(query, wanted.data());
  return query.Step() && AllThere(query, 1, wanted.data()) && !query.IsNull(0) && query.Int(0) != 0;
}

bool RowSource::Writable() const {
  const auto own = std::span(shape_->files).first(shape_->ownFiles);
  return Plan().updatable && std::ranges::none_of(own, [](const auto& file) { return file->ReadOnly(); });
}

void RowSource::RequireWritable() const {
  if (!Writable()) throw errors::ReadOnly();
}

}  // namespace engine
