#include "engine/lists/indexed_list.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "engine/errors.h"

namespace engine {
namespace {

constexpr std::size_t kKeptSegments = 6;
constexpr std::int64_t kLongestPage = 128;

std::int64_t RowKeyIn(const std::string& bookmark) {
  std::int64_t rowKey = 0;
  if (bookmark.size() != sizeof(rowKey)) throw errors::BadBookmark();
  std::memcpy(&rowKey, bookmark.data(), sizeof(rowKey));
  return rowKey;
}

}  // namespace

IndexedList::IndexedList(std::shared_ptr<RowSource> source, Shape shape)
    : RowList(std::move(source)),
      shape_(std::move(shape)),
      forward_(shape_.descending ? Direction::Down : Direction::Up),
      walker_(shape_.rows ? shape_.rows : Source().Shape().Walker(Source().Store(), shape_.order, shape_.index)),
      fences_(Source(), *walker_, shape_.bounded.get(), forward_),
      search_(Source(), *walker_, forward_, *this) {
  if (fences_.Collected() != nullptr) TakeCountOfPlaces();
}

IndexedList::IndexedList(std::shared_ptr<RowSource> source, Shape shape, FirstRows first)
    : IndexedList(std::move(source), std::move(shape)) {
  if (!first.page) return;
  likelyRows_ = first.likelyRows;
  Segment segment;
  segment.page = std::move(first.page);
  segment.reachesStart = true;
  segment.reachesEnd = first.all;
  segments_.push_front(std::move(segment));
  segmentsVersion_ = first.version;
}

std::shared_ptr<RowList> IndexedList::OpenAgain(const std::shared_ptr<RowSource>& source) {
  if (!shape_.bounded || !pinned_.empty() || SegmentAtEnd(true) == nullptr || segmentsVersion_ != source->Version()) return nullptr;
  auto again = std::make_shared<IndexedList>(source, shape_);
  again->segments_ = segments_;
  again->segmentsVersion_ = segmentsVersion_;
  again->likelyRows_ = likelyRows_;
  return again;
}

// ---- walking

bool IndexedList::First(Place& place) {
  lastReached_ = lastReached_ && count_.has_value();
  if (!TakeEnd(place, true)) return false;
  place.ordinal = 0;
  reached_ = std::max<std::int64_t>(reached_, 1);
  return true;
}

bool IndexedList::Last(Place& place) {
  if (!TakeEnd(place, false)) return false;
  place.ordinal = -1;
  lastReached_ = true;
  return true;
}

bool IndexedList::Next(Place& place) {
  if (!Step(place, true)) {
    lastReached_ = true;
    return false;
  }
  if (place.ordinal >= 0) reached_ = std::max(reached_, ++place.ordinal + 1);
  return true;
}

bool IndexedList::Previous(Place& place) {
  if (!Step(place, false)) return false;
  if (place.ordinal > 0) --place.ordinal;
  return true;
}

bool IndexedList::TakeEnd(Place& place, bool forward) {
  DropStalePages();
  const Segment* segment = SegmentAtEnd(forward);
  if (segment == nullptr) {
    run_ = 0;
    if (forward && expected_ && pinned_.empty()) ReadBeginningWithExpected();
    segment = SegmentAtEnd(forward);
  }
  if (segment == nullptr) {
    // A table is mostly opened to look for one row.
    segment = &ReadSegment(nullptr, forward, shape_.keepsPlaces ? Source().OwnDialect().rowsAtOnce : 1);
  }
  if (segment->page->Rows() == 0) return false;
  SetPlace(place, *segment, forward ? 0 : segment->page->Rows() - 1);
  return true;
}

bool IndexedList::Step(Place& place, bool forward) {
  DropStalePages();
  std::size_t row = 0;
  if (const Segment* segment = SegmentOf(place, row)) {
    if (forward ? row + 1 < segment->page->Rows() : row > 0) {
      SetPlace(place, *segment, forward ? row + 1 : row - 1);
      return true;
    }
    if (forward ? segment->reachesEnd : segment->reachesStart) return false;
  }
  run_ = runForward_ == forward ? run_ + 1 : 0;
  runForward_ = forward;
  const std::int64_t limit = std::min<std::int64_t>(kLongestPage, std::int64_t{16} << std::min(run_, 3));
  const Segment& read = ReadSegment(&place, forward, std::max<std::int64_t>(limit, Source().OwnDialect().rowsAtOnce));
  if (read.page->Rows() == 0) return false;
  SetPlace(place, read, forward ? 0 : read.page->Rows() - 1);
  return true;
}

void IndexedList::SetPlace(Place& place, const Segment& segment, std::size_t row) const {
  const RowPage& page = *segment.page;
  place.keys.assign(1, *page.KeysOf(row));
  place.order.clear();
  for (std::size_t i = 0; i < shape_.order.size(); ++i) place.order.push_back(page.Cell(row, Source().Fields().size() + i));
  place.added = segment.added.empty() ? 0 : segment.added[row];
  place.page = segment.page;
  place.row = row;
}

const IndexedList::Segment* IndexedList::SegmentOf(const Place& place, std::size_t& row) {
  for (auto segment = segments_.begin(); segment != segments_.end(); ++segment) {
    const RowPage& page = *segment->page;
    std::size_t found = page.Rows();
    if (segment->page == place.page) {
      found = place.row;
    } else {
      for (std::size_t i = 0; i < page.Rows() && found == page.Rows(); ++i)
        if (*page.KeysOf(i) == place.keys[0]) found = i;
    }
    if (found == page.Rows()) continue;
    row = found;
    segments_.splice(segments_.begin(), segments_, segment);
    return &segments_.front();
  }
  return nullptr;
}

const IndexedList::Segment* IndexedList::SegmentAtEnd(bool atStart) {
  for (const Segment& segment : segments_)
    if (atStart ? segment.reachesStart : segment.reachesEnd) return &segment;
  return nullptr;
}

void IndexedList::DropStalePages() {
  const std::uint64_t version = Source().RecentVersion();
  if (version == segmentsVersion_) return;
  segments_.clear();
  segmentsVersion_ = version;
}

// ---- reading pages

std::shared_ptr<RowPage> IndexedList::NewPage() const { return Source().NewPage(shape_.order.size()); }

OrderPlace IndexedList::OrderOf(const Place& place) const { return {place.order, place.keys[0]}; }

OrderPlace IndexedList::OrderInPage(const RowPage& page, std::size_t row) const {
  OrderPlace place;
  for (std::size_t i = 0; i < shape_.order.size(); ++i) place.values.push_back(page.Cell(row, Source().Fields().size() + i));
  place.rowKey = *page.KeysOf(row);
  return place;
}

const IndexedList::Segment& IndexedList::ReadSegment(const Place* from, bool forward, std::int64_t limit, std::int64_t skip) {
  // Whoever paints while this is waited for may have found the list changed: what is read here may be older then, and isn't kept for long.
  const std::uint64_t version = segmentsVersion_;
  // Rows alone are read in one state anyway. Where asking costs most, a row that keeps its place may be newer than the others.
  std::optional<Transaction> oneState;
  if (!pinned_.empty() && Source().OwnDialect().rowsAtOnce == 1) oneState.emplace(Source().Store(), Transaction::Kind::Read);
  Segment segment;
  auto page = NewPage();
  bool ended = false;
  ReadTableRows(from, forward, limit, skip, *page, ended);
  segment.page = std::move(page);
  if (!pinned_.empty()) MergePinned(from, forward, ended, segment);
  segment.reachesEnd = forward && ended;
  segment.reachesStart = !forward && ended;
  if (from == nullptr) (forward ? segment.reachesStart : segment.reachesEnd) = true;
  if (oneState) oneState->Commit();
  segmentsVersion_ = version;
  if (from != nullptr && segment.page->Rows() == 0) return NothingBeyond(*from, forward, skip == 0);
  return Keep(std::move(segment));
}

const IndexedList::Segment& IndexedList::Keep(Segment segment) {
  segments_.push_front(std::move(segment));
  if (segments_.size() > kKeptSegments) segments_.pop_back();
  return segments_.front();
}

// A read that has found nothing isn't an end of the list that others could begin at: the row before it is.
const IndexedList::Segment& IndexedList::NothingBeyond(const Place& place, bool forward, bool isLast) {
  static const Segment nothing{std::make_shared<RowPage>(0, 1), {}, true, true};
  std::size_t row = 0;
  if (!isLast || SegmentOf(place, row) == nullptr) return nothing;
  Segment& holding = segments_.front();
  if (forward && row + 1 == holding.page->Rows()) holding.reachesEnd = true;
  if (!forward && row == 0) holding.reachesStart = true;
  return nothing;
}

// The rows as the table has them, without those that the list holds elsewhere; in list order.
void IndexedList::ReadTableRows(const Place* from, bool forward, std::int64_t limit, std::int64_t skip, RowPage& page, bool& ended) {
  if (from != nullptr && from->added > 0) {
    if (forward) {
      ended = true;
      return;
    }
    from = nullptr;  // before the rows at the end stands the table's last row
  }
  OrderPlace place;
  if (from != nullptr) place = OrderOf(*from);
  KeyWalker::Request request;
  request.direction = forward ? forward_ : Opposite(forward_);
  request.from = from != nullptr ? &place : nullptr;
  request.limit = limit + static_cast<std::int64_t>(pinned_.size());
  request.skip = skip;
  std::vector<std::size_t> dropped;
  page.cells.Reserve(static_cast<std::size_t>(limit) * page.columns);
  page.keys.reserve(static_cast<std::size_t>(limit));
  const std::int64_t read = walker_->Read(request, [&](const Query& row) {
    if (pinned_.empty() || !pinned_.contains(row.Int(walker_->RowKeyAt(false)))) walker_->AppendRow(row, page);
    return true;
  });
  ended = read < request.limit;
  if (forward) return;
  // Read against the list's direction: turned round.
  const std::size_t rows = page.Rows();
  for (std::size_t i = 0; i < rows / 2; ++i) {
    page.cells.Swap(i * page.columns, (rows - 1 - i) * page.columns, page.columns);
    std::swap(page.keys[i], page.keys[rows - 1 - i]);
  }
}

// ---- bookmarks

std::string IndexedList::KeyOf(const Place& place) const {
  std::string key(sizeof(std::int64_t), '\0');
  std::memcpy(key.data(), place.keys.data(), sizeof(std::int64_t));
  return key;
}

// Whoever has changed a row mostly goes there, with the row that was read behind the change.
Place IndexedList::PlaceOf(const std::string& key) {
  Place place;
  if (foundLast_.page != nullptr && foundLast_.keys[0] == RowKeyIn(key) && foundVersion_ == Source().RecentVersion()) {
    place = foundLast_;
    place.ordinal = -1;
    return place;
  }
  if (!RowByKey(RowKeyIn(key), place)) throw errors::RecordDeleted();
  return place;
}

// Windows begin at the row that was just found, more often than not.
bool IndexedList::WindowPlace(const std::string& key, Place& place) {
  const std::int64_t rowKey = RowKeyIn(key);
  if (!foundLast_.keys.empty() && foundLast_.keys[0] == rowKey && foundVersion_ == Source().RecentVersion()) {
    place = foundLast_;
    return true;
  }
  DropStalePages();
  place = {};
  place.keys.assign(1, rowKey);
  std::size_t row = 0;
  if (const Segment* segment = SegmentOf(place, row)) {
    SetPlace(place, *segment, row);
    return true;
  }
  return PlaceByKey(rowKey, place);
}

bool IndexedList::Find(std::string_view criterion, const Place* after, Place& found) {
  foundLast_ = {};
  const std::uint64_t version = Source().KnownVersion();
  if (!search_.Find(criterion, after, found)) return false;
  foundLast_.keys = found.keys;
  foundLast_.order = found.order;
  foundLast_.added = found.added;
  foundVersion_ = version;
  WentTo(found.keys[0]);
  return true;
}

}  // namespace engine
