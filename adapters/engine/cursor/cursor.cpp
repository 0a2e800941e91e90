#include "engine/cursor/cursor.h"

#include <algorithm>

#include "engine/errors.h"

namespace engine {

using platform::EditMode;
using platform::RecordsetType;

Cursor::Cursor(RecordsetOwner& owner, std::string name, RecordsetType type, std::shared_ptr<RowList> list)
    : owner_(owner), name_(std::move(name)), type_(type), list_(std::move(list)), editor_(list_->Source()) {}

bool Cursor::Updatable() const { return type_ != RecordsetType::Snapshot && list_->Source().Writable(); }

std::int32_t Cursor::RecordCount() { return static_cast<std::int32_t>(std::min<std::int64_t>(list_->RowsReached(), INT32_MAX)); }

// ---- where it stands

void Cursor::StandOnFirst() {
  editor_.Drop();
  Place place;
  if (list_->First(place)) return BecomeCurrent(std::move(place));
  standing_ = Standing::Nowhere;
  bof_ = eof_ = true;
}

void Cursor::BeginNowhere() {
  standing_ = Standing::Nowhere;
  bof_ = eof_ = !list_->AnyRow();
}

void Cursor::BecomeCurrent(Place place) {
  place_ = std::move(place);
  standing_ = Standing::OnRow;
  bof_ = eof_ = false;
}

void Cursor::StandNowhere() { standing_ = Standing::Nowhere; }

void Cursor::Reorder(std::shared_ptr<RowList> list) {
  editor_.Drop();
  list_ = std::move(list);
  window_.reset();
  StandOnFirst();
}

void Cursor::RequireRow() const {
  if (standing_ == Standing::Nowhere) throw errors::NoCurrentRecord();
  if (standing_ == Standing::OnDeletedRow) throw errors::RecordDeleted();
}

// ---- moving

void Cursor::MoveFirst() {
  if (bof_ && eof_) throw errors::NoCurrentRecord();
  editor_.Drop();
  StandOnFirst();
}

void Cursor::MoveLast() {
  if (bof_ && eof_) throw errors::NoCurrentRecord();
  editor_.Drop();
  Place place;
  if (list_->Last(place)) return BecomeCurrent(std::move(place));
  standing_ = Standing::Nowhere;
  bof_ = eof_ = true;
}

void Cursor::Move(std::int32_t rows) {
  const bool blocked = (bof_ && eof_) || (bof_ && rows <= 0) || (eof_ && rows >= 0);
  if (blocked || (standing_ == Standing::Nowhere && !bof_ && !eof_)) throw errors::NoCurrentRecord();
  editor_.Drop();
  if (rows == 0) {
    RequireRow();
    if (!list_->Fetch(place_)) throw errors::RecordDeleted();
    return;
  }
  const bool forward = rows > 0;
  for (std::int64_t left = rows > 0 ? std::int64_t{rows} : -std::int64_t{rows}; left > 0; --left) {
    Step(forward);
    if (forward ? eof_ : bof_) return;
  }
}

// From an end the next row is the first (last) one; past an end there is none, and that end's flag tells so.
void Cursor::Step(bool forward) {
  const bool fromEnd = standing_ == Standing::Nowhere;
  const bool moved =
      !fromEnd ? (forward ? list_->Next(place_) : list_->Previous(place_)) : (forward ? list_->First(place_) : list_->Last(place_));
  if (moved) {
    standing_ = Standing::OnRow;
    bof_ = eof_ = false;
    return;
  }
  standing_ = Standing::Nowhere;
  (forward ? eof_ : bof_) = true;
}

// ---- searching

void Cursor::FindFirst(std::string_view criterion) { Find(criterion, false); }
void Cursor::FindNext(std::string_view criterion) { Find(criterion, true); }

void Cursor::Find(std::string_view criterion, bool next) {
  if (type_ == RecordsetType::Table) throw errors::NotSupported();
  // Behind the last row nothing follows; from before the first row, and from nowhere, the search begins at the first.
  const bool nothingFollows = next && standing_ == Standing::Nowhere && eof_ && !bof_;
  const Place* after = next && standing_ != Standing::Nowhere ? &place_ : nullptr;
  Place found;
  const bool matched = list_->Find(criterion, after, found) && !nothingFollows;
  editor_.Drop();
  noMatch_ = !matched;
  if (matched) BecomeCurrent(std::move(found));
}

std::string Cursor::Index() const { throw errors::NotSupported(); }
void Cursor::SetIndex(std::string_view) { throw errors::NotSupported(); }
void Cursor::Seek(std::string_view, std::span<const platform::Value>) { throw errors::NotSupported(); }

// ---- fields

int Cursor::FieldIndex(std::string_view name) const {
  const int index = list_->Source().FieldIndex(name);
  if (index < 0) throw platform::error::ItemNotFound();
  return index;
}

platform::Value Cursor::Field(int index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= Fields().size()) throw platform::error::ItemNotFound();
  if (editor_.Mode() != EditMode::None) return editor_.Field(index);
  RequireRow();
  return place_.Cell(static_cast<std::size_t>(index));
}

void Cursor::SetField(int index, const platform::Value& value) {
  if (index < 0 || static_cast<std::size_t>(index) >= Fields().size()) throw platform::error::ItemNotFound();
  editor_.Set(index, value);
}

// ---- editing

void Cursor::RequireWritable() const {
  if (type_ == RecordsetType::Snapshot) throw errors::NotSupported();
  list_->Source().RequireWritable();
}

void Cursor::AddNew() {
  RequireWritable();
  editor_.BeginAdd();
}

void Cursor::Edit() {
  RequireWritable();
  RequireRow();
  editor_.Drop();
  Place fresh = place_;
  if (!list_->Fetch(fresh)) throw errors::RecordDeleted();
  place_ = std::move(fresh);
  editor_.BeginEdit(place_);
}

void Cursor::Update() {
  if (editor_.Mode() == EditMode::None) throw errors::UpdateWithoutEdit();
  list_->Settle();
  if (editor_.Mode() == EditMode::Add) {
    const Place added = list_->Added(editor_.Insert());
    lastModified_ = BookmarkKey(added);
    // The first row of all: it can be moved to, but isn't current.
    if (bof_ && eof_) bof_ = false;
    return;
  }
  editor_.Write();
  list_->Changed(place_);
  lastModified_ = BookmarkKey(place_);
}

void Cursor::CancelUpdate() {
  if (editor_.Mode() == EditMode::None) throw errors::UpdateWithoutEdit();
  editor_.Drop();
}

void Cursor::Delete() {
  RequireWritable();
  RequireRow();
  editor_.Drop();
  editor_.Delete(place_);
  list_->Deleted(place_);
  standing_ = Standing::OnDeletedRow;
}

// ---- bookmarks

platform::Bookmark Cursor::Bookmark() const {
  RequireRow();
  return {list_->Source().Set(), BookmarkKey(place_)};
}

void Cursor::SetBookmark(const platform::Bookmark& bookmark) {
  if (bookmark.set != list_->Source().Set()) throw errors::BadBookmark();
  Place place = list_->PlaceOf(bookmark.key);
  editor_.Drop();
  BecomeCurrent(std::move(place));
}

platform::Bookmark Cursor::LastModified() const {
  if (!lastModified_) throw errors::NoCurrentRecord();
  return {list_->Source().Set(), *lastModified_};
}

platform::RecordsetRef Cursor::Clone() {
  auto clone = MakeClone();
  clone->BeginNowhere();
  return owner_.Adopt(std::move(clone));
}

platform::RowWindow& Cursor::Window() {
  if (!window_) window_ = std::make_unique<ListWindow>(*list_);
  return *window_;
}

void Cursor::Close() {
  editor_.Drop();
  owner_.Release(*this);
}

}  // namespace engine
