#include "platform/data/text_table.h"

#include <algorithm>
#include <utility>

#include "platform/values/error.h"
#include "platform/values/text.h"

namespace platform {

namespace {

/// A cursor on the rows, and the list's look at them.
class TextRows final : public Recordset, private RowWindow {
 public:
  explicit TextRows(std::shared_ptr<const TextTable::Cells> cells)
      : cells_(std::move(cells)), bof_(cells_->rows.empty()), eof_(cells_->rows.empty()) {}

  const std::string& Name() const override { return name_; }
  RecordsetType Type() const override { return RecordsetType::Snapshot; }
  bool Updatable() const override { return false; }
  bool Bof() const override { return bof_; }
  bool Eof() const override { return eof_; }
  bool NoMatch() const override { return false; }
  std::int32_t RecordCount() override { return Rows(); }

  void MoveFirst() override { StandOn(0); }
  void MoveLast() override { StandOn(Rows() - 1); }
  void MoveNext() override { Move(1); }
  void MovePrevious() override { Move(-1); }
  void Move(std::int32_t rows) override {
    if (bof_ || eof_) throw error::NoCurrentRecord();
    const std::int32_t to = row_ + rows;
    bof_ = to < 0;
    eof_ = to >= Rows();
    if (!bof_ && !eof_) row_ = to;
  }
  void FindFirst(std::string_view) override { throw error::NoSuchProperty(); }
  void FindNext(std::string_view) override { throw error::NoSuchProperty(); }

  std::string Index() const override { throw error::NoSuchProperty(); }
  void SetIndex(std::string_view) override { throw error::NoSuchProperty(); }
  void Seek(std::string_view, std::span<const Value>) override { throw error::NoSuchProperty(); }

  const std::vector<FieldInfo>& Fields() const override { return cells_->fields; }
  int FieldIndex(std::string_view name) const override {
    const auto found =
        std::find_if(Fields().begin(), Fields().end(), [&](const FieldInfo& field) { return EqualsNoCase(field.name, name); });
    if (found == Fields().end()) throw error::ItemNotFound();
    return static_cast<int>(found - Fields().begin());
  }
  Value Field(int index) const override {
    if (bof_ || eof_) throw error::NoCurrentRecord();
    return Value(cells_->rows[static_cast<std::size_t>(row_)].at(static_cast<std::size_t>(index)));
  }
  void SetField(int, const Value&) override { throw error::NoSuchProperty(); }

  EditMode Mode() const override { return EditMode::None; }
  void AddNew() override { throw error::NoSuchProperty(); }
  void Edit() override { throw error::NoSuchProperty(); }
  void Update() override { throw error::NoSuchProperty(); }
  void CancelUpdate() override { throw error::NoSuchProperty(); }
  void Delete() override { throw error::NoSuchProperty(); }

  platform::Bookmark Bookmark() const override {
    if (bof_ || eof_) throw error::NoCurrentRecord();
    return BookmarkOf(row_);
  }
  void SetBookmark(const platform::Bookmark& bookmark) override {
    const auto row = RowNamed(bookmark);
    if (!row) throw error::NoCurrentRecord();
    StandOn(*row);
  }
  platform::Bookmark LastModified() const override { throw error::NoCurrentRecord(); }
  RecordsetRef Clone() override { throw error::NoSuchProperty(); }
  RowWindow& Window() override { return *this; }
  void Close() override {}

 private:
  std::int64_t Count() override { return Rows(); }
  bool CountIsExact() override { return true; }
  std::vector<ListRow> RowsAt(std::int64_t ordinal, int count) override {
    std::vector<ListRow> found;
    const auto last = std::min<std::int64_t>(Rows(), ordinal + count);
    for (auto row = std::max<std::int64_t>(0, ordinal); row < last; ++row) found.push_back(Shown(static_cast<std::int32_t>(row)));
    return found;
  }
  std::vector<ListRow> RowsAfter(const platform::Bookmark& bookmark, int count) override {
    const auto row = RowNamed(bookmark);
    return row ? RowsAt(*row + 1, count) : std::vector<ListRow>{};
  }
  std::vector<ListRow> RowsBefore(const platform::Bookmark& bookmark, int count) override {
    const auto row = RowNamed(bookmark);
    if (!row) return {};
    const int before = std::min(count, *row);
    return RowsAt(*row - before, before);
  }
  std::vector<ListRow> LastRows(int count) override { return RowsAt(std::max(0, Rows() - count), count); }
  std::optional<ListRow> RowOf(const platform::Bookmark& bookmark) override {
    const auto row = RowNamed(bookmark);
    return row ? std::optional(Shown(*row)) : std::nullopt;
  }
  std::optional<RowsAround> Around(const platform::Bookmark& bookmark, int count) override {
    const auto row = RowNamed(bookmark);
    if (!row) return {};
    RowsAround around;
    const int before = std::min(count, *row);
    around.rows = RowsAt(*row - before, before + 1 + count);
    around.before = static_cast<std::size_t>(before);
    around.ordinal = *row;
    return around;
  }
  std::optional<std::int64_t> OrdinalOf(const platform::Bookmark& bookmark) override {
    const auto row = RowNamed(bookmark);
    return row ? std::optional<std::int64_t>(*row) : std::nullopt;
  }
  bool IdleSlice() override { return false; }

  std::int32_t Rows() const { return static_cast<std::int32_t>(cells_->rows.size()); }
  void StandOn(std::int32_t row) {
    if (row < 0 || row >= Rows()) throw error::NoCurrentRecord();
    row_ = row;
    bof_ = eof_ = false;
  }
  static platform::Bookmark BookmarkOf(std::int32_t row) { return {0, std::to_string(row)}; }
  std::optional<std::int32_t> RowNamed(const platform::Bookmark& bookmark) const {
    for (std::int32_t row = 0; row < Rows(); ++row)
      if (BookmarkOf(row) == bookmark) return row;
    return {};
  }
  ListRow Shown(std::int32_t row) const {
    const TextTable::Row& texts = cells_->rows[static_cast<std::size_t>(row)];
    return {BookmarkOf(row), {texts.begin(), texts.end()}};
  }

  std::shared_ptr<const TextTable::Cells> cells_;
  std::string name_;
  std::int32_t row_ = 0;
  bool bof_;
  bool eof_;
};

}  // namespace

TextTable::TextTable(std::vector<std::string> columns, std::vector<Row> rows) : cells_(std::make_shared<Cells>()) {
  constexpr int kWidth = 255;
  for (std::string& name : columns) {
    FieldInfo field;
    field.name = std::move(name);
    field.type = FieldType::Text;
    field.size = kWidth;
    cells_->fields.push_back(std::move(field));
  }
  for (Row& row : rows) row.resize(cells_->fields.size());
  cells_->rows = std::move(rows);
}

std::string& TextTable::Cell(int row, int column) const {
  if (row < 0 || row >= RowCount() || column < 0 || column >= static_cast<int>(cells_->fields.size())) throw error::SubscriptOutOfRange();
  return cells_->rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}

const std::string& TextTable::At(int row, int column) const { return Cell(row, column); }

void TextTable::Swap(int row, int other, int column) { Cell(row, column).swap(Cell(other, column)); }

std::shared_ptr<Recordset> TextTable::Open() const { return std::make_shared<TextRows>(cells_); }

}  // namespace platform
