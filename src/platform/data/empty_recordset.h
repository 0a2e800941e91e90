#pragma once

#include <string>
#include <vector>

#include "platform/data/data.h"
#include "platform/values/error.h"

namespace platform {

/// A list without rows: what stands where a statement could not be opened and the rows of before must not stay. A search finds
/// nothing; every use of a row or column raises 3021.
class EmptyRecordset final : public Recordset, private RowWindow {
 public:
  explicit EmptyRecordset(std::string name) : name_(std::move(name)) {}

  const std::string& Name() const override { return name_; }
  RecordsetType Type() const override { return RecordsetType::Dynaset; }
  bool Updatable() const override { return false; }
  bool Bof() const override { return true; }
  bool Eof() const override { return true; }
  bool NoMatch() const override { return noMatch_; }
  std::int32_t RecordCount() override { return 0; }

  void MoveFirst() override { throw error::NoCurrentRecord(); }
  void MoveLast() override { throw error::NoCurrentRecord(); }
  void MoveNext() override { throw error::NoCurrentRecord(); }
  void MovePrevious() override { throw error::NoCurrentRecord(); }
  void Move(std::int32_t) override { throw error::NoCurrentRecord(); }
  void FindFirst(std::string_view) override { noMatch_ = true; }
  void FindNext(std::string_view) override { noMatch_ = true; }

  std::string Index() const override { throw error::NoCurrentRecord(); }
  void SetIndex(std::string_view) override { throw error::NoCurrentRecord(); }
  void Seek(std::string_view, std::span<const Value>) override { throw error::NoCurrentRecord(); }

  const std::vector<FieldInfo>& Fields() const override { return fields_; }
  int FieldIndex(std::string_view) const override { throw error::NoCurrentRecord(); }
  Value Field(int) const override { throw error::NoCurrentRecord(); }
  void SetField(int, const Value&) override { throw error::NoCurrentRecord(); }

  EditMode Mode() const override { return EditMode::None; }
  void AddNew() override { throw error::NoCurrentRecord(); }
  void Edit() override { throw error::NoCurrentRecord(); }
  void Update() override { throw error::NoCurrentRecord(); }
  void CancelUpdate() override { throw error::NoCurrentRecord(); }
  void Delete() override { throw error::NoCurrentRecord(); }

  platform::Bookmark Bookmark() const override { throw error::NoCurrentRecord(); }
  void SetBookmark(const platform::Bookmark&) override { throw error::NoCurrentRecord(); }
  platform::Bookmark LastModified() const override { throw error::NoCurrentRecord(); }
  RecordsetRef Clone() override { throw error::NoCurrentRecord(); }
  RowWindow& Window() override { return *this; }
  void Close() override {}

 private:
  std::int64_t Count() override { return 0; }
  bool CountIsExact() override { return true; }
  std::vector<ListRow> RowsAt(std::int64_t, int) override { return {}; }
  std::vector<ListRow> RowsAfter(const platform::Bookmark&, int) override { return {}; }
  std::vector<ListRow> RowsBefore(const platform::Bookmark&, int) override { return {}; }
  std::vector<ListRow> LastRows(int) override { return {}; }
  std::optional<ListRow> RowOf(const platform::Bookmark&) override { return {}; }
  std::optional<RowsAround> Around(const platform::Bookmark&, int) override { return {}; }
  std::optional<std::int64_t> OrdinalOf(const platform::Bookmark&) override { return {}; }
  bool IdleSlice() override { return false; }

  std::string name_;
  std::vector<FieldInfo> fields_;
  bool noMatch_ = false;
};

}  // namespace platform
