#pragma once

#include "platform/controls/data_control.h"
#include "platform/data/data.h"

namespace platform {

/// A data control's recordset: the engine's, with what the control adds. An open cell is taken and a pending edit is saved by
/// every move instead of being dropped (a refused cell stops the move with error 3426), a row that became current fires
/// Reposition, and Update takes the grid's pending cells along.
class ControlRecordset final : public Recordset {
 public:
  ControlRecordset(DataControl& control, RecordsetRef rows) : control_(control), rows_(std::move(rows)) {}

  const std::string& Name() const override { return rows_->Name(); }
  RecordsetType Type() const override { return rows_->Type(); }
  bool Updatable() const override { return rows_->Updatable(); }
  bool Bof() const override { return rows_->Bof(); }
  bool Eof() const override { return rows_->Eof(); }
  bool NoMatch() const override { return rows_->NoMatch(); }
  std::int32_t RecordCount() override { return rows_->RecordCount(); }
  bool HasRows() override { return rows_->HasRows(); }

  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  void Move(std::int32_t rows) override;
  void FindFirst(std::string_view criterion) override;
  void FindNext(std::string_view criterion) override;

  std::string Index() const override { return rows_->Index(); }
  void SetIndex(std::string_view name) override { rows_->SetIndex(name); }
  void Seek(std::string_view comparison, std::span<const Value> keys) override;

  const std::vector<FieldInfo>& Fields() const override { return rows_->Fields(); }
  int FieldIndex(std::string_view name) const override { return rows_->FieldIndex(name); }
  Value Field(int index) const override { return rows_->Field(index); }
  void SetField(int index, const Value& value) override { rows_->SetField(index, value); }
  using Recordset::Field;
  using Recordset::Seek;
  using Recordset::SetField;

  EditMode Mode() const override { return rows_->Mode(); }
  void AddNew() override;
  void Edit() override;
  void Update() override;
  void CancelUpdate() override { rows_->CancelUpdate(); }
  void Delete() override;

  platform::Bookmark Bookmark() const override { return rows_->Bookmark(); }
  void SetBookmark(const platform::Bookmark& bookmark) override;
  platform::Bookmark LastModified() const override { return rows_->LastModified(); }
  RecordsetRef Clone() override { return rows_->Clone(); }
  RowWindow& Window() override { return rows_->Window(); }
  void Close() override { rows_->Close(); }

  /// Fetches the current row again; no move of the control, so nothing is saved and nothing fires.
  void FetchAgain() { rows_->Move(0); }
  /// Writes what is pending, as every move of a data control does.
  void SavePending();

 private:
  /// Saves, acts, and fires Reposition when a row is current then.
  template <class Act>
  void Moving(Act&& act);
  template <class Act>
  void Finding(Act&& act);

  DataControl& control_;
  RecordsetRef rows_;
};

}  // namespace platform
