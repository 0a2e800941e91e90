#include "unit/engine/support/memory_store/memory_store.h"

#include <optional>

#include "engine/errors.h"
#include "engine/values/iso_date.h"
#include "engine/values/stored_form.h"
#include "unit/engine/support/memory_store/write.h"

namespace memory_store {
namespace {

using platform::FieldType;
using platform::Value;

Value ValueOf(const StoredValue& stored, FieldType type) {
  if (IsNull(stored)) return platform::Null;
  const auto* whole = std::get_if<std::int64_t>(&stored);
  if (engine::LiesAsWhole(type)) return engine::ValueOfWhole(type, std::get<std::int64_t>(stored));
  if (type == FieldType::Double) return whole != nullptr ? static_cast<double>(*whole) : std::get<double>(stored);
  const auto& text = std::get<std::string>(stored);
  if (type != FieldType::Date) return text;
  const auto date = engine::DateOfIso(text);
  return date ? Value(*date) : Value(platform::Null);
}

class MemoryStatement final : public engine::Statement {
 public:
  MemoryStatement(MemoryStore& store, const Disk& disk, std::string_view sql) : store_(store) {
    Tokens tokens(sql);
    if (BeginsWrite(tokens))
      write_ = ParseWrite(tokens, disk);
    else
      select_ = ParseSelect(tokens, disk);
    if (tokens.Peek().kind != Token::Kind::End) tokens.Refuse();
  }

  void BindNull(int parameter) override { Set(parameter, {}); }
  void Bind(int parameter, std::int64_t number) override { Set(parameter, number); }
  void Bind(int parameter, double number) override { Set(parameter, number); }
  void Bind(int parameter, std::string_view text) override { Set(parameter, std::string(text)); }

  bool Step() override {
    if (!ran_) Run();
    return at_ < rows_.size() && (++at_, true);
  }
  void Reset() noexcept override {
    ran_ = false;
    at_ = 0;
    rows_.clear();
  }
  std::int64_t Changed() const override { return written_.rows; }
  std::int64_t AddedRow() const override { return written_.added; }

  bool IsNull(int column) const override { return memory_store::IsNull(Cell(column)); }
  std::int64_t Int(int column) const override {
    const auto* whole = std::get_if<std::int64_t>(&Cell(column));
    return whole != nullptr ? *whole : 0;
  }
  std::optional<std::string_view> Text(int column) const override {
    if (IsNull(column)) return {};
    return std::get<std::string>(Cell(column));
  }
  void Append(std::vector<Value>& cells, int first, std::span<const FieldType> types) const override {
    for (std::size_t i = 0; i < types.size(); ++i) cells.push_back(ValueOf(Cell(first + static_cast<int>(i)), types[i]));
  }

 private:
  void Set(int parameter, StoredValue value) {
    if (parameters_.size() <= static_cast<std::size_t>(parameter)) parameters_.resize(static_cast<std::size_t>(parameter) + 1);
    parameters_[static_cast<std::size_t>(parameter)] = std::move(value);
  }
  void Run() {
    ran_ = true;
    if (select_) {
      rows_ = RunSelect(*select_, parameters_);
      return;
    }
    written_ = RunWrite(*write_, parameters_);
    store_.CountWrite(*write_->file);
  }
  const StoredValue& Cell(int column) const { return rows_.at(at_ - 1).at(static_cast<std::size_t>(column)); }

  MemoryStore& store_;
  std::optional<Select> select_;
  std::optional<Write> write_;
  std::vector<StoredValue> parameters_;
  Rows rows_;
  std::size_t at_ = 0;  ///< rows delivered
  Written written_;
  bool ran_ = false;
};

class MemoryFile final : public engine::StoreFile {
 public:
  MemoryFile(MemoryStore& store, std::shared_ptr<File> file) : store_(store), file_(std::move(file)) {}

  const std::string& Path() const override { return file_->path; }
  const std::string& Qualifier() const override { return file_->qualifier; }
  bool ReadOnly() const override { return false; }
  std::int64_t OthersVersion() override {
    std::uint64_t writes = 0;
    for (const auto& [writer, count] : file_->writes)
      if (writer != &store_) writes += count;
    return static_cast<std::int64_t>(writes);
  }
  std::uint64_t OwnVersion() const override {
    const auto own = file_->writes.find(&store_);
    return own == file_->writes.end() ? 0 : own->second;
  }
  std::int64_t SchemaVersion() override { return 1; }

  std::vector<std::string> TableNames() override {
    std::vector<std::string> names;
    for (const auto& table : file_->tables) names.push_back(table->definition.name);
    return names;
  }
  std::string StoredName(std::string_view name) override {
    const Table* table = file_->Find(name);
    return table == nullptr ? std::string() : table->definition.name;
  }
  platform::TableDefinition ReadTable(const std::string& name) override { return file_->Find(name)->definition; }
  std::string RowKeyOf(const platform::TableDefinition& table) const override {
    const Table& own = *file_->Find(table.name);
    const int counter = own.Counter();
    return counter < 0 ? std::string(kHiddenKey) : own.definition.fields[static_cast<std::size_t>(counter)].name;
  }
  std::int64_t TakeNumber(const platform::TableDefinition& table) override {
    Table& own = *file_->Find(table.name);
    own.lastNumber = std::max(own.lastNumber, own.rows.empty() ? 0 : own.rows.rbegin()->first) + 1;
    store_.CountWrite(*file_);
    return own.lastNumber;
  }

  std::vector<engine::StoredLink> Links() override { return file_->links; }
  void AddLink(const engine::StoredLink& link) override { file_->links.push_back(link); }

 private:
  MemoryStore& store_;
  std::shared_ptr<File> file_;
};

}  // namespace

std::shared_ptr<engine::StoreFile> MemoryStore::Open(std::string_view path, std::string_view asked) {
  auto& known = open_[std::string(path)];
  if (auto file = known.lock()) return file;
  const auto found = disk_->Find(std::string(path));
  if (found == nullptr) throw engine::errors::FileNotFound(asked);
  auto file = std::make_shared<MemoryFile>(*this, found);
  known = file;
  used_.push_back(found);
  return file;
}

bool MemoryStore::ReadsCheaply(int, const std::function<void()>& read) {
  read();
  return true;
}

std::shared_ptr<engine::Statement> MemoryStore::Prepare(std::string_view sql) {
  return std::make_shared<MemoryStatement>(*this, *disk_, sql);
}

MemoryStore::Unit MemoryStore::BeginUnit(Unit::Kind kind) {
  const Unit unit{kind, undo_.empty(), static_cast<int>(undo_.size())};
  undo_.emplace_back();
  if (kind == Unit::Kind::Write)
    for (const auto& file : used_)
      for (const auto& table : file->tables) undo_.back()[table.get()] = table->rows;
  return unit;
}

void MemoryStore::CommitUnit(const Unit&) { undo_.pop_back(); }

void MemoryStore::UndoUnit(const Unit&) noexcept {
  for (auto& [table, rows] : undo_.back()) table->rows = std::move(rows);
  undo_.pop_back();
  for (const auto& file : used_) CountWrite(*file);
}

}  // namespace memory_store
