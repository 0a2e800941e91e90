// A list in index order by numbers: counts, the place of a number, the number of a place, pages for windows.
#include <algorithm>
#include <chrono>
#include <iterator>

#include "engine/lists/indexed_list.h"
#include "engine/rows/slices.h"

namespace engine {
namespace {

// Where other tables would be asked about each row, the rows to which one of them leads are looked at alone if they are clearly fewer.
std::optional<std::int64_t> CountDriven(RowSource& source) {
  constexpr std::int64_t kClearly = 8;
  constexpr std::int64_t kMostKeys = 500'000;  // 4 MiB
  constexpr std::int64_t kKeysBetweenPaints = 4096;
  if (!source.Plan().asksByRow) return {};
  const std::int64_t most = std::min(kMostKeys, SpanOf(source).Width() / kClearly);
  for (const PlanDriver& driver : source.Plan().drivers) {
    if (!driver.pieceKey.empty()) continue;
    std::vector<std::int64_t> keys;
    {
      Query reading(source.Store(), std::string_view(driver.keys));
      for (std::int64_t read = 1; std::ssize(keys) <= most && reading.Step(); ++read) {
        if (!reading.IsNull(0) && (keys.empty() || keys.back() != reading.Int(0))) keys.push_back(reading.Int(0));
        if (read % kKeysBetweenPaints == 0) source.Store().ServePainting();
      }
    }
    if (std::ssize(keys) > most) continue;
    if (!std::ranges::is_sorted(keys)) {
      std::ranges::sort(keys);
      keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    }
    std::int64_t count = 0;
    PiecewiseScan scan(source, "count(*)", driver.rest, keys);
    keys = {};
    ReadAll(source, scan, [&count](const Query& row) { count += row.Int(0); });
    return count;
  }
  return {};
}

// A driver that leads to all rows that its table names, where that isn't much longer than the list's own; one with conditions might pass
// over many rows before the windows can paint. nullptr: none.
const PlanDriver* CountingDriver(const RowSource& source) {
  constexpr std::int64_t kMuchLonger = 2;
  const auto counts = [&](const PlanDriver& driver) {
    return !driver.pieceKey.empty() && driver.keys.ends_with(" WHERE ") &&
           SpanOf(source.Store(), driver.pieceKey, driver.pieceTable).Width() <= kMuchLonger * SpanOf(source).Width();
  };
  const auto found = std::ranges::find_if(source.Plan().drivers, counts);
  return found == source.Plan().drivers.end() ? nullptr : &*found;
}

std::int64_t CountBy(const PlanDriver& driver, const RowSource& source) {
  constexpr std::int64_t kRowsBetweenPaints = 4096;
  const PlanTable& table = source.Plan().tables.front();
  const std::string keys = driver.keys + driver.pieceKey + " IS NOT NULL";
  const std::string text = "SELECT 1 FROM (SELECT DISTINCT k FROM (" + keys + ") AS a) AS s" + source.OwnDialect().joinInOrder +
                           source.Plan().from + " ON " + table.alias + '.' + table.table->rowKey + " = s.k" +
                           (driver.rest.empty() ? "" : " WHERE " + driver.rest);
  Query query(source.Store(), std::string_view(text));
  std::int64_t count = 0;
  while (query.Step())
    if (++count % kRowsBetweenPaints == 0) source.Store().ServePainting();
  return count;
}

}  // namespace

std::int64_t IndexedList::RowsReached() {
  if (!shape_.keepsPlaces || lastReached_) return CountNow();
  return AnyRow() ? std::max<std::int64_t>(1, reached_) : 0;
}

bool IndexedList::AnyRow() {
  DropStalePages();
  const Segment* start = SegmentAtEnd(true);
  if (start == nullptr) start = &ReadSegment(nullptr, true, Source().OwnDialect().rowsAtOnce);
  return start->page->Rows() != 0;
}

// A filter on a long table is asked piece by piece, so that the windows go on painting; or only of the rows to which a driver leads.
std::int64_t IndexedList::CountRows() {
  if (!shape_.bounded) return walker_->CountAll();
  if (const auto driven = CountDriven(Source())) return *driven;
  if (const PlanDriver* driver = CountingDriver(Source())) return CountBy(*driver, Source());
  std::int64_t count = 0;
  PiecewiseScan scan(Source(), "count(*)", Source().Plan().rowWhere);
  ReadAll(Source(), scan, [&count](const Query& row) { count += row.Int(0); });
  return count;
}

std::int64_t IndexedList::CountNow() {
  const std::uint64_t version = Source().Version();
  if (count_ && countVersion_ == version) return *count_;
  // One statement needs no unit.
  std::optional<Transaction> oneState;
  if (shape_.bounded || !pinned_.empty()) oneState.emplace(Source().Store(), Transaction::Kind::Read);
  std::int64_t count = CountRows();
  // A row that keeps its place counts, whatever the filter says of it now.
  for (const std::int64_t rowKey : PinnedRows()) {
    if (!walker_->PlaceOfRow(rowKey))
      pinned_.erase(rowKey);
    else if (!walker_->InFilter(rowKey))
      ++count;
  }
  if (oneState) oneState->Commit();
  const RowShape::Count counted{count, version, Source().OwnVersion(), std::chrono::steady_clock::now()};
  if (pinned_.empty()) Source().Shape().counted = counted;
  TakeCount(counted);
  return count;
}

std::int64_t IndexedList::Count() {
  if (count_) return *count_;
  return std::max(Estimate(), fences_.Rows());
}

bool IndexedList::CountIsExact() { return count_ && (fences_.Rest() || countVersion_ == Source().Version()); }

// Asked for at every painting until the rows have been counted.
std::int64_t IndexedList::Estimate() {
  if (likelyRows_ > 0) return likelyRows_;
  const std::uint64_t version = Source().RecentVersion();
  if (!width_ || widthVersion_ != version) width_ = SpanOf(Source()).Width();
  widthVersion_ = version;
  return *width_;
}

bool IndexedList::IdleSlice() {
  const std::uint64_t version = Source().Version();
  const bool counted = count_ && countVersion_ == version;
  // A table that the store counts within a slice; larger ones are counted by their fences.
  constexpr std::int64_t kQuicklyCounted = 200'000;
  if (!counted && Source().Plan().where.empty() && (OwnRowsMayBeMissing() || Estimate() <= kQuicklyCounted)) {
    CountNow();
    return true;
  }
  const CollectedPlaces* const before = fences_.Collected();
  const bool more = fences_.Slice(version);
  const CollectedPlaces* const places = fences_.Collected();
  const bool tells = places != nullptr && (places != before || places->version == version);
  if (!tells || counted) return more;
  if (pinned_.empty())
    TakeCountOfPlaces();
  else
    CountNow();
  return more;
}

// While the fences rest, what this desk has written itself is counted, now and then.
bool IndexedList::OwnRowsMayBeMissing() const {
  constexpr auto kNowAndThen = std::chrono::seconds(10);
  return fences_.Rest() && countOwnVersion_ != Source().OwnVersion() && std::chrono::steady_clock::now() - counted_ >= kNowAndThen;
}

void IndexedList::TakeCount(const RowShape::Count& count) {
  count_ = count.rows;
  countVersion_ = count.version;
  countOwnVersion_ = count.ownVersion;
  counted_ = count.at;
}

void IndexedList::TakeCountOfPlaces() {
  const CollectedPlaces& places = *fences_.Collected();
  const auto& counted = Source().Shape().counted;
  TakeCount(counted && counted->at > places.ended ? *counted : RowShape::Count{places.rows, places.version, places.ownVersion, places.ended});
}

// Rows of the table (not of the list) before a place.
std::int64_t IndexedList::RowsOffset(const OrderPlace& place) {
  if (const auto ordinal = fences_.OrdinalOf(place)) return *ordinal;
  const std::int64_t below = walker_->CountBelow(place);
  if (forward_ == Direction::Up) return below;
  const auto now = walker_->InFilter(place.rowKey) ? walker_->PlaceOfRow(place.rowKey) : std::nullopt;
  const bool there = now && walker_->Compare(*now, place) == 0;
  return CountRows() - below - (there ? 1 : 0);
}

std::optional<std::int64_t> IndexedList::OrdinalOf(const Place& place) {
  if (place.added > 0) {
    const auto behind = std::ranges::count_if(pinned_, [&](const auto& entry) { return entry.second.added > place.added; });
    return CountNow() - 1 - behind;
  }
  if (!IsPinned(place.keys[0]) && !walker_->InFilter(place.keys[0])) return {};
  const OrderPlace here = OrderOf(place);
  std::int64_t ordinal = RowsOffset(here);
  // Rows that keep their places are counted where they stand in the list, not where the table has them.
  const auto standsBefore = [&](const OrderPlace& other) {
    const int order = walker_->Compare(other, here);
    return forward_ == Direction::Up ? order < 0 : order > 0;
  };
  for (const auto& [rowKey, pinned] : pinned_) {
    const auto now = walker_->PlaceOfRow(rowKey);
    if (now && walker_->InFilter(rowKey) && standsBefore(*now)) --ordinal;
    if (now && pinned.added == 0 && rowKey != here.rowKey && standsBefore(pinned.place)) ++ordinal;
  }
  return ordinal;
}

bool IndexedList::At(std::int64_t ordinal, Place& place) {
  if (ordinal < 0) return false;
  std::optional<OrderPlace> raw = fences_.At(ordinal);
  if (!raw) {
    KeyWalker::Request request;
    const std::int64_t all = count_.value_or(INT64_MAX);
    const bool fromEnd = CountIsExact() && ordinal < all && all - ordinal < ordinal;
    request.direction = fromEnd ? Opposite(forward_) : forward_;
    request.skip = fromEnd ? all - 1 - ordinal : ordinal;
    request.keysOnly = true;
    walker_->Read(request, [&](const Query& row) {
      raw = walker_->PlaceAt(row, true);
      return true;
    });
  }
  if (pinned_.empty()) {
    if (!raw) return false;
    place = {};
    place.keys.assign(1, raw->rowKey);
    place.order = std::move(raw->values);
    return true;
  }
  // The number is that of the table's order: a few steps lead to the list's own.
  Place found;
  if (!(raw && PlaceByKey(raw->rowKey, found)) && !Last(found)) return false;
  for (auto at = OrdinalOf(found); at && *at != ordinal; at = OrdinalOf(found))
    if (!Step(found, *at < ordinal)) return false;
  place = found;
  place.ordinal = -1;
  return true;
}

std::vector<platform::ListRow> IndexedList::RowsOf(const Segment& segment) const {
  std::vector<platform::ListRow> rows;
  for (std::size_t i = 0; i < segment.page->Rows(); ++i) {
    Place at;
    SetPlace(at, segment, i);
    rows.push_back(ShownRow(at));
  }
  return rows;
}

// Where asking costs most, the way from the fence to the row and the page are one statement.
std::vector<platform::ListRow> IndexedList::RowsAt(std::int64_t ordinal, int count) {
  DropStalePages();
  const bool together = Source().OwnDialect().rowsAtOnce > 1 && pinned_.empty() && !shape_.bounded;
  const Fence* fence = together ? fences_.Before(ordinal) : nullptr;
  if (fence == nullptr) return RowList::RowsAt(ordinal, count);
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = &fence->place;
  if (!walker_->CanSkip(request)) return RowList::RowsAt(ordinal, count);
  Place from;
  from.keys.assign(1, fence->place.rowKey);
  from.order = fence->place.values;
  return RowsOf(ReadSegment(&from, true, count, ordinal - fence->rows));
}

std::vector<platform::ListRow> IndexedList::Rows(const Place* from, bool forward, int count) {
  DropStalePages();
  if (!pinned_.empty()) return RowList::Rows(from, forward, count);
  std::size_t row = 0;
  const Segment* known = from == nullptr ? SegmentAtEnd(forward) : SegmentOf(*from, row);
  if (known != nullptr) {
    const std::size_t rows = known->page->Rows();
    const std::size_t there = from == nullptr ? rows : forward ? rows - row - 1 : row;
    if (there >= static_cast<std::size_t>(count) || (forward ? known->reachesEnd : known->reachesStart))
      return RowList::Rows(from, forward, count);
  }
  // Where asking costs most, a page is kept, so that the next one needn't ask where it begins.
  if (Source().OwnDialect().rowsAtOnce > 1) return RowsOf(ReadSegment(from, forward, count));
  // A window's page goes straight into its rows.
  OrderPlace place;
  if (from != nullptr) place = OrderOf(*from);
  KeyWalker::Request request;
  request.direction = forward ? forward_ : Opposite(forward_);
  request.from = from != nullptr ? &place : nullptr;
  request.limit = count;
  std::vector<platform::ListRow> shown;
  shown.reserve(static_cast<std::size_t>(count));
  walker_->Read(request, [&](const Query& read) {
    Place at;
    at.keys.assign(1, read.Int(walker_->RowKeyAt(false)));
    shown.push_back({{Source().Set(), KeyOf(at)}, Source().ReadValues(read, 0)});
    return true;
  });
  if (!forward) std::ranges::reverse(shown);
  return shown;
}

}  // namespace engine
