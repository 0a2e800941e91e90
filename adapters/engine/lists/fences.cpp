#include "engine/lists/fences.h"

#include <algorithm>

namespace engine {

bool Fences::Slice(std::uint64_t version) {
  if (Complete(version)) return false;
  // The first collection is used as it grows; a later one replaces the old when it is whole.
  std::vector<OrderPlace>& places = done_ ? building_.places : fences_;
  if (buildingVersion_ != version) {
    building_ = {};
    places.clear();
    buildingVersion_ = version;
  }
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = building_.rows == 0 ? nullptr : &building_.last;
  request.limit = kSliceRows;
  request.keysOnly = true;
  const OrderPlace from = building_.last;
  if (request.from != nullptr) request.from = &from;
  std::int64_t number = 0;
  const std::int64_t read = walker_.Read(request, [&](const Query& row) {
    const bool isFence = building_.rows % kSpacing == 0;
    ++building_.rows;
    ++number;
    if (isFence || number == kSliceRows) building_.last = walker_.PlaceAt(row, true);
    if (isFence) places.push_back(building_.last);
    return true;
  });
  const bool ended = read < kSliceRows;
  if (ended || !done_) rows_ = building_.rows;
  if (ended) {
    if (done_) fences_ = std::move(building_.places);
    building_ = {};
    done_ = true;
    version_ = version;
  }
  return !ended;
}

std::optional<OrderPlace> Fences::At(std::int64_t ordinal) {
  const auto fence = static_cast<std::size_t>(ordinal / kSpacing);
  if (fence >= fences_.size()) return {};
  const std::int64_t behind = ordinal % kSpacing;
  if (behind == 0) return fences_[fence];
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = &fences_[fence];
  request.limit = behind;
  request.keysOnly = true;
  std::int64_t number = 0;
  OrderPlace place;
  walker_.Read(request, [&](const Query& row) {
    if (++number == behind) place = walker_.PlaceAt(row, true);
    return true;
  });
  if (number < behind) return {};
  return place;
}

std::optional<std::int64_t> Fences::OrdinalOf(const OrderPlace& place) {
  const int sign = forward_ == Direction::Up ? 1 : -1;
  const auto behind =
      std::ranges::partition_point(fences_, [&](const OrderPlace& fence) { return sign * walker_.Compare(fence, place) <= 0; });
  if (behind == fences_.begin()) return fences_.empty() ? std::nullopt : std::optional<std::int64_t>(0);
  if (behind == fences_.end() && !done_) return {};
  const auto fence = static_cast<std::int64_t>(behind - fences_.begin()) - 1;
  KeyWalker::Request request;
  request.direction = forward_;
  request.from = &fences_[static_cast<std::size_t>(fence)];
  request.limit = 4 * kSpacing;
  request.keysOnly = true;
  std::int64_t number = fence * kSpacing;
  if (walker_.Compare(*request.from, place) == 0) return number;
  walker_.Read(request, [&](const Query& row) {
    ++number;
    return sign * walker_.Compare(walker_.PlaceAt(row, true), place) < 0;
  });
  return number;
}

}  // namespace engine
