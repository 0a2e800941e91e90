#include "engine/lists/fences.h"

#include <algorithm>

namespace engine {

bool Fences::Slice(std::uint64_t version) {
  if (Complete(version)) return false;
  // The first collection is used as it grows; a later one replaces the old when it is whole.
  std::vector<Fence>& places = done_ ? building_.places : fences_;
  if (buildingVersion_ != version) {
    building_ = {};
    places.clear();
    buildingVersion_ = version;
  }
  const bool more = bounded_ == nullptr ? ReadOn(places) : LookOn(places);
  if (!more || (!done_ && building_.rows > 0)) rows_ = building_.rows;
  if (!more) {
    if (done_) fences_ = std::move(building_.places);
    passing_ = std::move(building_.passing);
    building_ = {};
    done_ = true;
    version_ = version;
  }
  return more;
}

// The list's rows are the index's.
bool Fences::ReadOn(std::vector<Fence>& places) {
  const OrderPlace from = building_.last;
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = building_.rows == 0 ? nullptr : &from;
  request.limit = kSliceRows;
  request.keysOnly = true;
  std::int64_t number = 0;
  const std::int64_t read = walker_.Read(request, [&](const Query& row) {
    const bool isFence = building_.rows % kSpacing == 0;
    ++building_.rows;
    ++number;
    if (isFence || number == kSliceRows) building_.last = walker_.PlaceAt(row, true);
    if (isFence) places.push_back({building_.last, building_.rows});
    return true;
  });
  return read == kSliceRows;
}

// Which rows of the table pass the filter, in the order in which they lie: so each is looked at once, and where most are near.
bool Fences::ScanOn() {
  if (!building_.scan) {
    building_.passing.Expect(SpanOf(source_));
    building_.scan = std::make_unique<PiecewiseScan>(source_, source_.KeyList(), source_.Plan().rowWhere);
  }
  building_.scanned = !building_.scan->Next([this](const Query& row) { building_.passing.Add(row.Int(0)); });
  return true;
}

// Then the keys alone in the list's order: the fences are places of the table's rows, whether or not they belong to the list.
bool Fences::LookOn(std::vector<Fence>& places) {
  if (!building_.scanned) return ScanOn();
  const OrderPlace from = building_.last;
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = building_.looked == 0 ? nullptr : &from;
  request.limit = kSliceRows;
  request.keysOnly = true;
  std::int64_t number = 0;
  const std::int64_t read = bounded_->Read(request, [&](const Query& row) {
    if (building_.passing.Has(row.Int(bounded_->RowKeyAt(true)))) ++building_.rows;
    const bool isFence = ++building_.looked % kSpacing == 0;
    ++number;
    if (isFence || number == kSliceRows) building_.last = bounded_->PlaceAt(row, true);
    if (isFence) places.push_back({building_.last, building_.rows});
    return true;
  });
  return read == kSliceRows;
}

const Fences::Fence* Fences::Before(std::int64_t ordinal) const {
  const auto beyond = std::ranges::partition_point(fences_, [&](const Fence& fence) { return fence.rows <= ordinal; });
  const bool known = beyond != fences_.begin() && (beyond != fences_.end() || done_ || ordinal - (beyond - 1)->rows < kSpacing);
  return bounded_ == nullptr && known ? &*(beyond - 1) : nullptr;
}

std::optional<OrderPlace> Fences::At(std::int64_t ordinal) {
  // A fence of the list's own rows stands on the last that it counts; one of a filtered list may stand on a row that isn't in it.
  const bool onRows = bounded_ == nullptr;
  const auto beyond = std::ranges::partition_point(fences_, [&](const Fence& fence) { return fence.rows <= ordinal + (onRows ? 1 : 0); });
  const Fence* fence = beyond == fences_.begin() ? nullptr : &*(beyond - 1);
  if (onRows && fence == nullptr) return {};
  const std::int64_t behind = ordinal + 1 - (fence == nullptr ? 0 : fence->rows);
  if (beyond == fences_.end() && !done_ && (!onRows || behind >= kSpacing)) return {};
  return behind == 0 ? fence->place : Behind(fence, behind);
}

// As long as nobody has written, it is known which rows pass the filter, and no row itself is looked at.
bool Fences::KnowsPassing() const { return bounded_ != nullptr && done_ && version_ == source_.RecentVersion(); }

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
    if ((byBits && !passing_.Has(row.Int(walker.RowKeyAt(true)))) || --rows > 0) return true;
    place = walker.PlaceAt(row, true);
    return false;
  });
  return place;
}

std::optional<std::int64_t> Fences::OrdinalOf(const OrderPlace& place) {
  const int sign = forward_ == Direction::Up ? 1 : -1;
  const auto behind =
      std::ranges::partition_point(fences_, [&](const Fence& fence) { return sign * walker_.Compare(fence.place, place) < 0; });
  if ((behind == fences_.end() && !done_) || (fences_.empty() && bounded_ == nullptr)) return {};
  const Fence* fence = behind == fences_.begin() ? nullptr : &*(behind - 1);
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
      if (passing_.Has(row.Int(bounded_->RowKeyAt(true)))) ++number;
      return true;
    });
    return number;
  }
  if (bounded_ != nullptr) {
    walker_.ReadUpTo(forward_, fence == nullptr ? nullptr : &fence->place, place, true, countBefore);
    return number;
  }
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = fence == nullptr ? nullptr : &fence->place;
  request.limit = 4 * kSpacing;
  request.keysOnly = true;
  walker_.Read(request, countBefore);
  return number;
}

void Fences::Passing::Expect(const KeySpan& span) {
  firstKey_ = span.first;
  bits_.assign(static_cast<std::size_t>(std::max<std::int64_t>(span.Width(), 0)), false);
}

void Fences::Passing::Add(std::int64_t rowKey) {
  const std::int64_t place = rowKey - firstKey_;
  if (place >= 0 && place < static_cast<std::int64_t>(bits_.size())) bits_[static_cast<std::size_t>(place)] = true;
}

bool Fences::Passing::Has(std::int64_t rowKey) const {
  const std::int64_t place = rowKey - firstKey_;
  return place >= 0 && place < static_cast<std::int64_t>(bits_.size()) && bits_[static_cast<std::size_t>(place)];
}

}  // namespace engine
