// A list in index order: its rows by their keys, and the row that the next list is expected to go to.
#include <utility>

#include "engine/lists/indexed_list.h"

namespace engine {

bool IndexedList::ReadOne(const RowRead& read, Place& place) {
  auto page = NewPage();
  page->cells.Reserve(page->columns);
  read([&](const Query& row) {
    walker_->AppendRow(row, *page);
    return true;
  });
  if (page->Rows() == 0) return false;
  TakeSingle(std::move(page), place);
  return true;
}

void IndexedList::TakeSingle(std::shared_ptr<const RowPage> page, Place& place) {
  Segment single;
  single.page = std::move(page);
  SetPlace(place, single, 0);
  place.ordinal = -1;
}

// Who opens a list to go to one of its rows shows it and those behind it: where asking costs most, they come together.
bool IndexedList::PageFrom(std::int64_t rowKey, Place& place) {
  if (std::exchange(pageTried_, true) || !shape_.keepsPlaces || !pinned_.empty() || shape_.order.size() > 1) return false;
  const std::int64_t rows = Source().OwnDialect().rowsAtOnce;
  if (rows <= 1) return false;
  DropStalePages();
  const std::uint64_t version = segmentsVersion_;
  auto page = NewPage();
  page->cells.Reserve(static_cast<std::size_t>(rows) * page->columns);
  const std::int64_t read = walker_->ReadFrom(rowKey, forward_, rows, [&](const Query& row) {
    walker_->AppendRow(row, *page);
    return *page->KeysOf(0) == rowKey;
  });
  if (page->Rows() == 0 || *page->KeysOf(0) != rowKey) return false;
  segmentsVersion_ = version;
  Segment segment;
  segment.page = std::move(page);
  segment.reachesEnd = read < rows && forward_ == Direction::Up;
  SetPlace(place, Keep(std::move(segment)), 0);
  place.ordinal = -1;
  return true;
}

bool IndexedList::RowByKey(std::int64_t rowKey, Place& place) {
  if (!HeldRow(rowKey, place) && !PageFrom(rowKey, place)) {
    if (!ReadOne([&](const KeyWalker::Sink& sink) { walker_->ReadRow(rowKey, sink); }, place)) return false;
    sought_ = place.page;
    PutWherePinned(place);
  }
  WentTo(rowKey);
  return true;
}

void IndexedList::WentTo(std::int64_t rowKey) {
  goneTo_ = rowKey;
  if (expected_ == rowKey) expected_.reset();
}

// Who has just read a row, or those around it, reads it again in the same act.
bool IndexedList::HeldRow(std::int64_t rowKey, Place& place) {
  if (sought_ != nullptr && *sought_->KeysOf(0) == rowKey && Source().StillSo(*sought_)) {
    TakeSingle(sought_, place);
    PutWherePinned(place);
    return true;
  }
  if (segments_.empty() || !Source().HeardJustNow()) return false;
  DropStalePages();
  Place wanted;
  wanted.keys.assign(1, rowKey);
  std::size_t row = 0;
  const Segment* segment = SegmentOf(wanted, row);
  if (segment == nullptr || !Source().StillSo(*segment->page)) return false;
  SetPlace(place, *segment, row);
  place.ordinal = -1;
  return true;
}

void IndexedList::BeginAlsoAt(std::int64_t rowKey) {
  if (shape_.keepsPlaces && shape_.order.size() <= 1 && segments_.empty() && Source().OwnDialect().rowsAtOnce > 1) expected_ = rowKey;
}

// A list that was opened to go to a row which nobody went to then: the next one isn't.
std::optional<std::int64_t> IndexedList::RowGoneTo() const {
  return expected_ ? std::nullopt : goneTo_;
}

// The list's first row and, by the same statement, the one that is expected to be gone to next with those behind it.
void IndexedList::ReadBeginningWithExpected() {
  const std::uint64_t version = segmentsVersion_;
  const std::int64_t rowKey = *expected_;  // somebody may go there while it is waited for
  const std::int64_t rows = Source().OwnDialect().rowsAtOnce;
  auto first = NewPage();
  auto page = NewPage();
  page->cells.Reserve(static_cast<std::size_t>(rows) * page->columns);
  walker_->ReadFirstAndFrom(rowKey, forward_, rows, [&](const Query& row) {
    walker_->AppendRow(row, first->Rows() == 0 ? *first : *page);
    return true;
  });
  segmentsVersion_ = version;
  const bool found = page->Rows() > 0 && *page->KeysOf(0) == rowKey;
  const bool isFirst = found && *first->KeysOf(0) == rowKey;
  const bool ended = std::cmp_less(page->Rows(), rows) && forward_ == Direction::Up;
  if (found) Keep({.page = std::move(page), .added = {}, .reachesStart = isFirst, .reachesEnd = ended});
  if (isFirst) return;
  const bool none = first->Rows() == 0;
  Keep({.page = std::move(first), .added = {}, .reachesStart = true, .reachesEnd = none});
}

bool IndexedList::NextRow(const KeyWalker::Request& request, Place& place) {
  return ReadOne([&](const KeyWalker::Sink& sink) { walker_->Read(request, sink); }, place);
}

bool IndexedList::PlaceByKey(std::int64_t rowKey, Place& place) {
  auto now = walker_->PlaceOfRow(rowKey);
  if (!now) return false;
  const auto pinned = pinned_.find(rowKey);
  place = {};
  place.keys.assign(1, rowKey);
  place.order = pinned == pinned_.end() ? std::move(now->values) : pinned->second.place.values;
  place.added = pinned == pinned_.end() ? 0 : pinned->second.added;
  return true;
}

}  // namespace engine
