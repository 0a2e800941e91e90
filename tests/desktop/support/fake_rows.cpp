#include "desktop/support/fake_rows.h"

#include <algorithm>

#include "platform/values/error.h"

namespace desktop_test {

using namespace platform;

namespace {

std::string KeyOf(std::int64_t row) { return std::to_string(row); }

class FakeWindow final : public RowWindow {
 public:
  FakeWindow(FakeTable& table, std::uint64_t set) : table_(table), set_(set) {}
  std::int64_t Count() override { return table_.counted ? table_.rows : table_.estimate; }
  bool CountIsExact() override { return table_.counted; }
  std::vector<ListRow> RowsAt(std::int64_t ordinal, int count) override { return Rows(ordinal, count); }
  std::vector<ListRow> RowsAfter(const Bookmark& row, int count) override { return Rows(Of(row) + 1, count); }
  std::vector<ListRow> RowsBefore(const Bookmark& row, int count) override {
    const std::int64_t first = std::max<std::int64_t>(0, Of(row) - count);
    return Rows(first, static_cast<int>(Of(row) - first));
  }
  std::vector<ListRow> LastRows(int count) override { return Rows(std::max<std::int64_t>(0, table_.rows - count), count); }
  std::optional<ListRow> RowOf(const Bookmark& row) override {
    const auto rows = Rows(Of(row), 1);
    if (rows.empty()) return {};
    return rows.front();
  }
  std::optional<RowsAround> Around(const Bookmark& row, int count) override {
    const std::int64_t at = Of(row);
    if (at >= table_.rows) return {};
    const std::int64_t first = std::max<std::int64_t>(0, at - count);
    RowsAround around{Rows(first, static_cast<int>(at - first) + 1 + count), static_cast<std::size_t>(at - first), {}};
    if (at < count || table_.counted) around.ordinal = at;
    return around;
  }
  std::optional<std::int64_t> OrdinalOf(const Bookmark& row) override { return Of(row); }
  bool IdleSlice() override {
    if (table_.counted) return false;
    if (--table_.slicesToCount > 0) return true;
    table_.counted = true;
    return false;
  }

 private:
  static std::int64_t Of(const Bookmark& row) { return std::stoll(row.key); }
  std::vector<ListRow> Rows(std::int64_t first, int count) {
    ++table_.fetches;
    if (table_.onRead) table_.onRead();
    if (table_.broken) throw Error(3420, "Object invalid or no longer set.");
    std::vector<ListRow> rows;
    for (std::int64_t row = first; row < std::min(first + count, table_.rows); ++row) {
      ListRow made{{set_, KeyOf(row)}, {}};
      if (table_.unreadable.count(row) == 0)
        for (int field = 0; field < static_cast<int>(FakeFields().size()); ++field) made.cells.push_back(FakeValue(table_, row, field));
      rows.push_back(std::move(made));
    }
    table_.rowsFetched += static_cast<std::int64_t>(rows.size());
    table_.mostRowsAtOnce = std::max(table_.mostRowsAtOnce, static_cast<std::int64_t>(rows.size()));
    return rows;
  }
  FakeTable& table_;
  std::uint64_t set_;
};

class FakeRecordset final : public Recordset {
 public:
  FakeRecordset(FakeTable& table, std::string source, std::uint64_t set)
      : table_(table), source_(std::move(source)), set_(set), window_(table, set) {}
  const std::string& Name() const override { return source_; }
  RecordsetType Type() const override { return RecordsetType::Dynaset; }
  bool Updatable() const override { return true; }
  bool Bof() const override { return at_ < 0 || table_.rows == 0; }
  bool Eof() const override { return at_ >= table_.rows; }
  bool NoMatch() const override { return noMatch_; }
  std::int32_t RecordCount() override { return static_cast<std::int32_t>(table_.rows); }
  void MoveFirst() override { at_ = 0; }
  void MoveLast() override { at_ = table_.rows - 1; }
  void MoveNext() override { ++at_; }
  void MovePrevious() override { --at_; }
  void Move(std::int32_t rows) override { at_ += rows; }
  /// The criterion is "[Number]=" and a number.
  void FindFirst(std::string_view criterion) override {
    const std::int64_t wanted = std::stoll(std::string(criterion.substr(criterion.find('=') + 1))) - 1;
    noMatch_ = wanted < 0 || wanted >= table_.rows;
    if (!noMatch_) at_ = wanted;
  }
  void FindNext(std::string_view) override { noMatch_ = true; }
  std::string Index() const override { return ""; }
  void SetIndex(std::string_view) override {}
  void Seek(std::string_view, std::span<const Value>) override {}
  const std::vector<FieldInfo>& Fields() const override { return FakeFields(); }
  int FieldIndex(std::string_view name) const override {
    for (std::size_t i = 0; i < FakeFields().size(); ++i)
      if (FakeFields()[i].name == name) return static_cast<int>(i);
    throw error::ItemNotFound();
  }
  Value Field(int index) const override {
    if (Bof() || Eof()) throw Error(3021, "No current record.");
    const auto held = buffer_.find(index);
    return held != buffer_.end() ? held->second : FakeValue(table_, at_, index);
  }
  void SetField(int index, const Value& value) override { buffer_[index] = value; }
  EditMode Mode() const override { return mode_; }
  void AddNew() override { mode_ = EditMode::Add; }
  void Edit() override { mode_ = EditMode::Edit; }
  void Update() override {
    for (const auto& [field, value] : buffer_) table_.edits[{at_, field}] = value;
    ++table_.updates;
    CancelUpdate();
  }
  void CancelUpdate() override {
    buffer_.clear();
    mode_ = EditMode::None;
  }
  void Delete() override { table_.unreadable.insert(at_); }
  platform::Bookmark Bookmark() const override {
    if (Bof() || Eof()) throw Error(3021, "No current record.");
    return {set_, KeyOf(at_)};
  }
  void SetBookmark(const platform::Bookmark& bookmark) override {
    const std::int64_t row = std::stoll(bookmark.key);
    if (table_.gone.count(row) > 0) throw Error(3167, "Record is deleted.");
    at_ = row;
  }
  platform::Bookmark LastModified() const override { return Bookmark(); }
  RecordsetRef Clone() override {
    clones_.push_back(std::make_shared<FakeRecordset>(table_, source_, set_));
    return clones_.back();
  }
  RowWindow& Window() override { return window_; }
  void Close() override {}

 private:
  FakeTable& table_;
  std::string source_;
  std::uint64_t set_;
  FakeWindow window_;
  std::int64_t at_ = 0;
  bool noMatch_ = false;
  EditMode mode_ = EditMode::None;
  std::map<int, Value> buffer_;
  std::vector<std::shared_ptr<Recordset>> clones_;
};

class FakeDatabase final : public Database {
 public:
  explicit FakeDatabase(FakeTable& table) : table_(table) {}
  const std::string& Name() const override { return name_; }
  RecordsetRef OpenRecordset(std::string_view source, RecordsetType) override {
    sets_.push_back(std::make_shared<FakeRecordset>(table_, std::string(source), sets_.size() + 1));
    return sets_.back();
  }
  void Execute(std::string_view, int) override {}
  std::int32_t RecordsAffected() const override { return 0; }
  TableDef CreateTableDef(std::string_view) override { return {}; }
  int TableDefCount() override { return 0; }
  TableDef TableDefAt(int) override { return {}; }
  void AppendTableDef(const TableDef&) override {}
  int RecordsetCount() override { return 0; }
  RecordsetRef RecordsetAt(int) override { return {}; }
  void RefreshRecordsets() override {}
  void Close() override {}

 private:
  FakeTable& table_;
  std::string name_ = "fake";
  std::vector<std::shared_ptr<Recordset>> sets_;
};

}  // namespace

const std::vector<FieldInfo>& FakeFields() {
  static const std::vector<FieldInfo> fields = {
      {"Number", FieldType::Long, 0, "T", "Number", true},     {"Name", FieldType::Text, 30, "T", "Name", true},
      {"Amount", FieldType::Currency, 0, "T", "Amount", true}, {"Born", FieldType::Date, 0, "T", "Born", true},
      {"Member", FieldType::Boolean, 0, "T", "Member", true},  {"Grade", FieldType::Text, 1, "T", "Grade", true},
  };
  return fields;
}

Value FakeValue(const FakeTable& table, std::int64_t row, int field) {
  if (const auto edit = table.edits.find({row, field}); edit != table.edits.end()) return edit->second;
  constexpr double kFirstDay = 30000;
  switch (field) {
    case 0:
      return static_cast<std::int32_t>(row + 1);
    case 1:
      return "Name " + std::to_string(row + 1);
    case 2:
      return Currency{(row + 1) * 12500};
    case 3:
      return row % 7 == 6 ? Value(Null) : Value(Date{kFirstDay + static_cast<double>(row % 5000)});
    case 4:
      return row % 2 == 0;
    default:
      return row % 2 == 0 ? "A" : "B";
  }
}

std::shared_ptr<Recordset> MakeFakeRecordset(FakeTable& table, std::string source) {
  return std::make_shared<FakeRecordset>(table, std::move(source), 1);
}

FakeEngine::FakeEngine(FakeTable& table) : database_(std::make_shared<FakeDatabase>(table)) {}
FakeEngine::~FakeEngine() = default;
WorkspaceRef FakeEngine::CreateWorkspace(std::string_view, std::string_view, std::string_view, int) { return {}; }
WorkspaceRef FakeEngine::WorkspaceAt(int) { return {}; }
DatabaseRef FakeEngine::OpenControlDatabase(std::string_view) { return database_; }

}  // namespace desktop_test
