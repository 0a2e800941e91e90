#include "platform/controls/data_control.h"

#include <cassert>

#include "platform/controls/combo.h"
#include "platform/controls/control_recordset.h"
#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/controls/grid.h"
#include "platform/controls/label.h"
#include "platform/data/empty_recordset.h"
#include "platform/data/text_table.h"
#include "platform/values/convert.h"
#include "platform/values/error.h"

namespace platform {

DataControl::DataControl(Form& form, std::string name) : Control(form, std::move(name)) {}
DataControl::DataControl(Form& form, std::string name, int index) : Control(form, std::move(name), index) {}

DataControl::~DataControl() {
  CloseList();
  try {
    if (!database_.IsNothing()) database_->Close();
  } catch (const Error&) {
    // Closed before by the shutdown of the session: nothing is left to close.
  }
}

void DataControl::RecordSource(std::string source) { recordSource_ = std::move(source); }

void DataControl::Refresh() {
  assert(!inReposition_ && "a list must not be refreshed by its own Reposition");
  if (recordSource_.empty()) return;
  try {
    Open();
  } catch (const Error&) {
    if (emptyAfterFailure_) ShowNoRows();
    throw;
  }
  ++refreshCount_;
  ShowOpened();
}

void DataControl::ShowOpened() {
  if (grid_) grid_->ListOpened();
  for (ComboBox* combo : combos_) combo->SourceRefreshed();
  Owner().Host().Refreshed(*this);
  RowBecameCurrent();
}

void DataControl::Open() {
  FormHost& host = Owner().Host();
  // The new list is opened before the old one goes, so that a failure can leave the old one in use.
  DatabaseRef database = database_;
  const bool otherFile = database_.IsNothing() || openName_ != databaseName_;
  if (otherFile) database = host.Engine().OpenControlDatabase(databaseName_);
  RecordsetRef rows;
  RecordsetRef listRows;
  try {
    rows = database->OpenRecordset(recordSource_, RecordsetType::Dynaset);
    listRows = rows->Clone();
  } catch (const Error&) {
    if (otherFile) database->Close();
    throw;
  }
  if (otherFile) {
    CloseList();
    if (!database_.IsNothing()) database_->Close();
    database_ = database;
    openName_ = databaseName_;
  }
  Take(rows, listRows);
}

void DataControl::Take(const RecordsetRef& rows, const RecordsetRef& listRows) {
  if (grid_) grid_->DropPending();
  CloseList();
  recordset_ = std::make_shared<ControlRecordset>(*this, rows);
  listRows_ = listRows;
}

void DataControl::ShowNoRows() {
  const auto none = std::make_shared<EmptyRecordset>(recordSource_);
  TakeOwn(none, none);
  ShowOpened();
}

void DataControl::Show(const TextTable& table) {
  TakeOwn(table.Open(), table.Open());
  ++refreshCount_;
  ShowOpened();
}

void DataControl::TakeOwn(std::shared_ptr<platform::Recordset> rows, std::shared_ptr<platform::Recordset> listRows) {
  Take(RecordsetRef(rows), RecordsetRef(listRows));
  ownRows_ = {std::move(rows), std::move(listRows)};
}

void DataControl::CloseList() noexcept {
  try {
    if (!listRows_.IsNothing()) listRows_->Close();
    if (recordset_) recordset_->Close();
  } catch (const Error&) {
    // A recordset that the shutdown has closed already is as closed as it can be.
  }
  listRows_.Reset();
  recordset_.reset();
}

void DataControl::ReadAnew() {
  if (!OnRecord() || recordset_->Mode() != EditMode::None || (grid_ && grid_->DataChanged())) return;
  try {
    recordset_->FetchAgain();
  } catch (const Error& failure) {
    if (failure.Number() != error::number::RecordDeleted) throw;
    return;
  }
  RowWritten();
}

void DataControl::UpdateControls() {
  if (grid_) grid_->DropPending();
  ShowBoundLabels();
  Changed(Aspect::CurrentRow);
}

RecordsetRef DataControl::Recordset() const { return RecordsetRef(std::shared_ptr<platform::Recordset>(recordset_)); }

bool DataControl::OnRecord() const {
  if (!recordset_) return false;
  try {
    return !recordset_->Bof() && !recordset_->Eof() && recordset_->HasRows();
  } catch (const Error&) {
    return false;
  }
}

bool DataControl::RowHasGone() const {
  if (!OnRecord()) return true;
  try {
    listRows_->SetBookmark(recordset_->Bookmark());
    return false;
  } catch (const Error& failure) {
    return failure.Number() == error::number::RecordDeleted;
  }
}

RowWindow* DataControl::Window() const {
  if (listRows_.IsNothing()) return nullptr;
  try {
    return &listRows_->Window();
  } catch (const Error&) {
    return nullptr;
  }
}

void DataControl::RowBecameCurrent() {
  if (grid_) grid_->RowBecameCurrent();
  ShowBoundLabels();
  Changed(Aspect::CurrentRow);
  struct Inside {
    bool& flag;
    explicit Inside(bool& inside) : flag(inside) { flag = true; }
    ~Inside() { flag = false; }
  } inside(inReposition_);
  Reposition.Fire();
}

void DataControl::RowWritten() {
  ShowBoundLabels();
  if (grid_) grid_->RefreshRow();
}

void DataControl::Bind(Label& label, std::string field) { labels_.push_back({&label, std::move(field)}); }

void DataControl::ShowBoundLabels() {
  for (const BoundLabel& bound : labels_) {
    std::string text;
    try {
      if (OnRecord()) text = CStr(Concat(recordset_->Field(bound.field), ""));
    } catch (const Error&) {
      // A row that can't be read shows empty.
    }
    bound.label->Caption(text);
  }
}

}  // namespace platform
