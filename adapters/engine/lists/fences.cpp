#include "engine/lists/fences.h"

#include <algorithm>

#include "platform/values/error.h"

namespace engine {
namespace {

// To collect places that have taken less costs hardly anything.
constexpr auto kLong = std::chrono::milliseconds(50);

}  // namespace

Fences::Fences(RowSource& source, KeyWalker& walker, KeyWalker* bounded, Direction forward)
    : source_(source), walker_(walker), bounded_(bounded), forward_(forward) {
  if (!AskingIsDear()) return;
  TakeKnown();
  if (bounded_ != nullptr) return;
  if (auto going = source_.Shape().collecting.lock())
    building_ = std::move(going);
  else
    source_.Shape().collecting = building_;
}

// What another list of the statement has collected last. As long as they are quickly collected anew, no list begins with places that are off.
void Fences::TakeKnown() {
  const auto other = source_.Shape().places.lock();
  if (other && other->took < kLong && other->version != source_.KnownVersion()) return;
  if (other && other->ofBounded == (bounded_ != nullptr) && (!known_ || known_->ended < other->ended)) known_ = other;
}

bool Fences::Slice(std::uint64_t version) {
  if (AskingIsDear()) TakeKnown();
  if (Complete(version) || Rest()) return false;
  const auto begin = std::chrono::steady_clock::now();
  // Where asking costs most it isn't begun anew for each row that somebody writes meanwhile: it would never end.
  CollectedPlaces& places = building_->places;
  if (places.version != version && !(building_->begun && AskingIsDear())) {
    *building_ = {};
    places.ofBounded = bounded_ != nullptr;
    places.version = version;
    places.ownVersion = source_.OwnVersion();
  }
  building_->begun = true;
  bool more = false;
  try {
    more = bounded_ == nullptr ? ReadOn() : LookOn();
  } catch (const platform::Error&) {
    *building_ = {};  // half a slice is worth nothing
    throw;
  }
  const auto now = std::chrono::steady_clock::now();
  places.took += now - begin;
  if (more) return true;
  places.ended = now;
  known_ = std::make_shared<const CollectedPlaces>(std::move(places));
  *building_ = {};
  source_.Shape().places = known_;
  // Of a whole table, which its lists come back to: of one of its orders, as it may be long.
  if (bounded_ == nullptr && AskingIsDear()) source_.Context().Keep(known_);
  return false;
}

bool Fences::AskingIsDear() const { return source_.OwnDialect().rowsAtOnce > 1; }

// A hundred desks would keep a server at nothing else, each for its own long list, as long as one of them writes.
bool Fences::Rest() const {
  constexpr int kTimesAsLong = 200;
  return known_ && !building_->begun && AskingIsDear() && known_->took >= kLong &&
         std::chrono::steady_clock::now() - known_->ended < kTimesAsLong * known_->took;
}

// The list's rows are the index's.
bool Fences::ReadOn() {
  if (AskingIsDear() && walker_.Order().size() <= 1) return ReadFencesAlone();
  CollectedPlaces& places = building_->places;
  const OrderPlace from = building_->last;
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = places.rows == 0 ? nullptr : &from;
  request.limit = kSliceRows;
  request.keysOnly = true;
  std::int64_t number = 0;
  const std::int64_t read = walker_.Read(request, [&](const Query& row) {
    const bool isFence = places.rows % kSpacing == 0;
    ++places.rows;
    ++number;
    if (isFence || number == kSliceRows) building_->last = walker_.PlaceAt(row, true);
    if (isFence) places.fences.push_back({building_->last, places.rows});
    return true;
  });
  return read == kSliceRows;
}

// The same where each row would travel.
bool Fences::ReadFencesAlone() {
  CollectedPlaces& places = building_->places;
  const OrderPlace from = building_->last;
  std::int64_t read = 0;
  walker_.ReadEvery(forward_, places.rows == 0 ? nullptr : &from, kSliceRows, kSpacing, [&](const Query& row) {
    read = row.Int(walker_.FlagAt(true));
    building_->last = walker_.PlaceAt(row, true);
    if (read % kSpacing == 1) places.fences.push_back({building_->last, places.rows + read});
    return true;
  });
  places.rows += read;
  return read == kSliceRows;
}

// Which rows of the table pass the filter, in the order in which they lie: so each is looked at once, and where most are near.
bool Fences::ScanOn() {
  if (!building_->scan) {
    building_->places.passing.Expect(SpanOf(source_));
    building_->scan = std::make_unique<PiecewiseScan>(source_, source_.KeyList(), source_.Plan().rowWhere);
  }
  building_->scanned = !building_->scan->Next([this](const Query& row) { building_->places.passing.Add(row.Int(0)); });
  return true;
}

// Then the keys alone in the list's order: the fences are places of the table's rows, whether or not they belong to the list.
bool Fences::LookOn() {
  if (!building_->scanned) return ScanOn();
  CollectedPlaces& places = building_->places;
  const OrderPlace from = building_->last;
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = building_->looked == 0 ? nullptr : &from;
  request.limit = kSliceRows;
  request.keysOnly = true;
  std::int64_t number = 0;
  const std::int64_t read = bounded_->Read(request, [&](const Query& row) {
    if (places.passing.Has(row.Int(bounded_->RowKeyAt(true)))) ++places.rows;
    const bool isFence = ++building_->looked % kSpacing == 0;
    ++number;
    if (isFence || number == kSliceRows) building_->last = bounded_->PlaceAt(row, true);
    if (isFence) places.fences.push_back({building_->last, places.rows});
    return true;
  });
  return read == kSliceRows;
}

const Fence* Fences::Before(std::int64_t ordinal) const {
  const auto beyond = std::ranges::partition_point(InUse(), [&](const Fence& fence) { return fence.rows <= ordinal; });
  const bool known = beyond != InUse().begin() && (beyond != InUse().end() || known_ != nullptr || ordinal - (beyond - 1)->rows < kSpacing);
  return bounded_ == nullptr && known ? &*(beyond - 1) : nullptr;
}

std::optional<OrderPlace> Fences::At(std::int64_t ordinal) {
  // A fence of the list's own rows stands on the last that it counts; one of a filtered list may stand on a row that isn't in it.
  const bool onRows = bounded_ == nullptr;
  const auto beyond = std::ranges::partition_point(InUse(), [&](const Fence& fence) { return fence.rows <= ordinal + (onRows ? 1 : 0); });
  const Fence* fence = beyond == InUse().begin() ? nullptr : &*(beyond - 1);
  if (onRows && fence == nullptr) return {};
  const std::int64_t behind = ordinal + 1 - (fence == nullptr ? 0 : fence->rows);
  if (beyond == InUse().end() && known_ == nullptr && (!onRows || behind >= kSpacing)) return {};
  return behind == 0 ? fence->place : Behind(fence, behind);
}

// As long as nobody has written, it is known which rows pass the filter, and no row itself is looked at.
bool Fences::KnowsPassing() const { return bounded_ != nullptr && known_ != nullptr && known_->version == source_.RecentVersion(); }

// The place so many of the list's rows behind a fence, or behind the list's start.
std::optional<OrderPlace> Fences::Behind(const Fence* fence, std::int64_t rows) {
  const bool byBits = KnowsPassing();
  KeyWalker& walker = byBits ? *bounded_ : walker_;
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = fence == nullptr ? nullptr : &fence->place;
  request.limit = byBits ? kSpacing : rows;
  request.keysOnly = true;
  std::optional<OrderPlace> place;
  walker.Read(request, [&](const Query& row) {
    if ((byBits && !known_->passing.Has(row.Int(walker.RowKeyAt(true)))) || --rows > 0) return true;
    place = walker.PlaceAt(row, true);
    return false;
  });
  return place;
}

std::optional<std::int64_t> Fences::OrdinalOf(const OrderPlace& place) {
  const int sign = forward_ == Direction::Up ? 1 : -1;
  const auto behind =
      std::ranges::partition_point(InUse(), [&](const Fence& fence) { return sign * walker_.Compare(fence.place, place) < 0; });
  if ((behind == InUse().end() && known_ == nullptr) || (InUse().empty() && bounded_ == nullptr)) return {};
  const Fence* fence = behind == InUse().begin() ? nullptr : &*(behind - 1);
  std::int64_t number = fence == nullptr ? 0 : fence->rows;
  const auto countBefore = [&](const Query& row) {
    if (sign * walker_.Compare(walker_.PlaceAt(row, true), place) >= 0) return false;
    ++number;
    return true;
  };
  if (KnowsPassing()) {
    KeyWalker::Request request;
    request.direction = forward_;
    request.from = fence == nullptr ? nullptr : &fence->place;
    request.limit = kSpacing;
    request.keysOnly = true;
    bounded_->Read(request, [&](const Query& row) {
      if (sign * bounded_->Compare(bounded_->PlaceAt(row, true), place) >= 0) return false;
      if (known_->passing.Has(row.Int(bounded_->RowKeyAt(true)))) ++number;
      return true;
    });
    return number;
  }
  if (bounded_ != nullptr) {
    walker_.ReadUpTo(forward_, fence == nullptr ? nullptr : &fence->place, place, true, countBefore);
    return number;
  }
  // It stands a little further on while somebody writes. No more rows are asked for than it mostly takes: who gives them all gives them whole.
  std::optional<OrderPlace> from;
  if (fence != nullptr) from = fence->place;
  for (int stretch = 0; stretch < 4; ++stretch) {
    KeyWalker::Request request;
    request.direction = forward_;
    request.from = from ? &*from : nullptr;
    request.limit = kSpacing;
    request.keysOnly = true;
    bool before = true;
    OrderPlace last;
    const std::int64_t read = walker_.Read(request, [&](const Query& row) {
      last = walker_.PlaceAt(row, true);
      before = sign * walker_.Compare(last, place) < 0;
      if (before) ++number;
      return before;
    });
    if (!before || read < kSpacing) break;
    from = std::move(last);
  }
  return number;
}

void PassingRows::Expect(const KeySpan& span) {
  firstKey_ = span.first;
  bits_.assign(static_cast<std::size_t>(std::max<std::int64_t>(span.Width(), 0)), false);
}

void PassingRows::Add(std::int64_t rowKey) {
  const std::int64_t place = rowKey - firstKey_;
  if (place >= 0 && place < static_cast<std::int64_t>(bits_.size())) bits_[static_cast<std::size_t>(place)] = true;
}

bool PassingRows::Has(std::int64_t rowKey) const {
  const std::int64_t place = rowKey - firstKey_;
  return place >= 0 && place < static_cast<std::int64_t>(bits_.size()) && bits_[static_cast<std::size_t>(place)];
}

}  // namespace engine
