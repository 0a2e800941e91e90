#include "engine/cursor/cursor.h"

#include <algorithm>
#include <utility>

#include "engine/errors.h"

namespace engine {

using platform::EditMode;
using platform::RecordsetType;

Cursor::Cursor(RecordsetOwner& owner, std::string name, RecordsetType type, std::shared_ptr<RowList> list)
    : owner_(owner), name_(std::move(name)), type_(type), list_(std::move(list)), editor_(list_->Source()) {}

bool Cursor::Updatable() const { return type_ != RecordsetType::Snapshot && list_->Source().Writable(); }

std::int32_t Cursor::RecordCount() { return static_cast<std::int32_t>(std::min<std::int64_t>(list_->RowsReached(), INT32_MAX)); }

// ---- where it stands

Cursor::Position& Cursor::Now() const {
  // What fails is asked for again by whoever looks next.
  switch (owed_) {
    case Owed::FirstRow:
      position_ = {};
      if (list_->First(position_.place))
        position_.standing = Standing::OnRow;
      else
        position_.bof = position_.eof = true;
      break;
    case Owed::Ends:
      position_.bof = position_.eof = !list_->AnyRow();
      break;
    case Owed::Nothing:
      break;
  }
  owed_ = Owed::Nothing;
  return position_;
}

void Cursor::StandOnFirst() {
  editor_.Drop();
  owed_ = Owed::FirstRow;
  const bool canWait = type_ == RecordsetType::Table && list_->Source().OwnDialect().rowsAtOnce > 1;
  if (!canWait) Now();
}

void Cursor::BeginNowhere() {
  position_.standing = Standing::Nowhere;
  owed_ = Owed::Ends;
  Now();
}

void Cursor::BecomeCurrent(Place place) {
  owed_ = Owed::Nothing;
  position_ = {std::move(place), Standing::OnRow};
}

void Cursor::StandNowhere() {
  if (owed_ == Owed::FirstRow) owed_ = Owed::Ends;
  position_.standing = Standing::Nowhere;
}

void Cursor::Reorder(std::shared_ptr<RowList> list) {
  list_ = std::move(list);
  window_.reset();
  StandOnFirst();
}

void Cursor::RequireRow() const {
  const Standing standing = Now().standing;
  if (standing == Standing::Nowhere) throw errors::NoCurrentRecord();
  if (standing == Standing::OnDeletedRow) throw errors::RecordDeleted();
}

// ---- moving

void Cursor::MoveFirst() {
  if (Now().bof && Now().eof) throw errors::NoCurrentRecord();
  StandOnFirst();
}

void Cursor::MoveLast() {
  Position& now = Now();
  if (now.bof && now.eof) throw errors::NoCurrentRecord();
  editor_.Drop();
  Place place;
  if (list_->Last(place)) return BecomeCurrent(std::move(place));
  now.standing = Standing::Nowhere;
  now.bof = now.eof = true;
}

void Cursor::Move(std::int32_t rows) {
  const Position& now = Now();
  const bool blocked = (now.bof && now.eof) || (now.bof && rows <= 0) || (now.eof && rows >= 0);
  if (blocked || (now.standing == Standing::Nowhere && !now.bof && !now.eof)) throw errors::NoCurrentRecord();
  editor_.Drop();
  if (rows == 0) {
    RequireRow();
    if (!list_->Fetch(Now().place)) throw errors::RecordDeleted();
    return;
  }
  const bool forward = rows > 0;
  for (std::int64_t left = rows > 0 ? std::int64_t{rows} : -std::int64_t{rows}; left > 0; --left) {
    Step(forward);
    if (forward ? now.eof : now.bof) return;
  }
}

// From an end the next row is the first (last) one; past an end there is none, and that end's flag tells so.
void Cursor::Step(bool forward) {
  Position& now = Now();
  Place& place = now.place;
  const bool fromEnd = now.standing == Standing::Nowhere;
  const bool moved = !fromEnd ? (forward ? list_->Next(place) : list_->Previous(place)) : (forward ? list_->First(place) : list_->Last(place));
  if (moved) {
    now.standing = Standing::OnRow;
    now.bof = now.eof = false;
    return;
  }
  now.standing = Standing::Nowhere;
  (forward ? now.eof : now.bof) = true;
}

// ---- searching

void Cursor::FindFirst(std::string_view criterion) { Find(criterion, false); }
void Cursor::FindNext(std::string_view criterion) { Find(criterion, true); }

void Cursor::Find(std::string_view criterion, bool next) {
  if (type_ == RecordsetType::Table) throw errors::NotSupported();
  // Behind the last row nothing follows; from before the first row, and from nowhere, the search begins at the first.
  const Position& now = Now();
  const bool nothingFollows = next && now.standing == Standing::Nowhere && now.eof && !now.bof;
  const Place* after = next && now.standing != Standing::Nowhere ? &now.place : nullptr;
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
  return Now().place.Cell(static_cast<std::size_t>(index));
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
  if (Place fresh = Now().place; !list_->StillSo(fresh)) {
    if (!list_->Fetch(fresh)) throw errors::RecordDeleted();
    Now().place = std::move(fresh);
  }
  editor_.BeginEdit(Now().place);
}

void Cursor::Update() {
  if (editor_.Mode() == EditMode::None) throw errors::UpdateWithoutEdit();
  list_->Settle();
  // Before a row is added: which one was the first, and whether there was any.
  Position& now = Now();
  if (editor_.Mode() == EditMode::Add) {
    const Place added = list_->Added(editor_.Insert());
    lastModified_ = BookmarkKey(added);
    // The first row of all: it can be moved to, but isn't current.
    if (now.bof && now.eof) now.bof = false;
    return;
  }
  const auto back = list_->Back();
  editor_.Write(back ? &*back : nullptr);
  list_->Changed(now.place);
  lastModified_ = BookmarkKey(now.place);
}

void Cursor::CancelUpdate() {
  if (editor_.Mode() == EditMode::None) throw errors::UpdateWithoutEdit();
  editor_.Drop();
}

void Cursor::Delete() {
  RequireWritable();
  RequireRow();
  editor_.Drop();
  Position& now = Now();
  editor_.Delete(now.place);
  list_->Deleted(now.place);
  now.standing = Standing::OnDeletedRow;
}

// ---- bookmarks

platform::Bookmark Cursor::Bookmark() const {
  RequireRow();
  return {list_->Source().Set(), BookmarkKey(Now().place)};
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
