#include "platform/controls/control_recordset.h"

#include "platform/controls/grid.h"
#include "platform/values/error.h"

namespace platform {

void ControlRecordset::SavePending() {
  Grid* grid = control_.grid_;
  if (grid && !grid->UserCloseCell()) throw error::ActionCancelled();
  if (grid && grid->DataChanged()) {
    grid->WritePendingRow();
  } else if (rows_->Mode() != EditMode::None) {
    Update();
  }
}

template <class Act>
void ControlRecordset::Moving(Act&& act) {
  SavePending();
  act();
  if (!rows_->Bof() && !rows_->Eof()) control_.RowBecameCurrent();
}

template <class Act>
void ControlRecordset::Finding(Act&& act) {
  SavePending();
  act();
  if (!rows_->NoMatch()) control_.RowBecameCurrent();
}

void ControlRecordset::MoveFirst() {
  Moving([&] { rows_->MoveFirst(); });
}
void ControlRecordset::MoveLast() {
  Moving([&] { rows_->MoveLast(); });
}
void ControlRecordset::MoveNext() {
  Moving([&] { rows_->MoveNext(); });
}
void ControlRecordset::MovePrevious() {
  Moving([&] { rows_->MovePrevious(); });
}
void ControlRecordset::Move(std::int32_t rows) {
  Moving([&] { rows_->Move(rows); });
}
void ControlRecordset::SetBookmark(const platform::Bookmark& bookmark) {
  Moving([&] { rows_->SetBookmark(bookmark); });
}
void ControlRecordset::FindFirst(std::string_view criterion) {
  Finding([&] { rows_->FindFirst(criterion); });
}
void ControlRecordset::FindNext(std::string_view criterion) {
  Finding([&] { rows_->FindNext(criterion); });
}
void ControlRecordset::Seek(std::string_view comparison, std::span<const Value> keys) {
  Finding([&] { rows_->Seek(comparison, keys); });
}

void ControlRecordset::AddNew() {
  SavePending();
  rows_->AddNew();
}

void ControlRecordset::Edit() {
  if (control_.grid_ && control_.grid_->DataChanged()) control_.grid_->WriteBegins();
  rows_->Edit();
}

void ControlRecordset::Update() {
  Grid* grid = control_.grid_;
  const bool pending = grid && grid->DataChanged() && rows_->Mode() == EditMode::Edit;
  if (pending) {
    bool cancel = false;
    grid->BeforeUpdate.Fire(cancel);
    if (cancel) throw error::ActionCancelled();
    for (const auto& [column, value] : grid->Pending()) rows_->SetField(grid->FieldIndexOf(column), value);
  }
  rows_->Update();
  control_.RowWritten();
  if (pending) grid->PendingWritten();
}

void ControlRecordset::Delete() {
  SavePending();
  rows_->Delete();
  control_.RowWritten();
}

}  // namespace platform
