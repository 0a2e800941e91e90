#include "desktop/map/pin_index.h"

#include <algorithm>
#include <cmath>

namespace desktop {

namespace {

constexpr int kLevels = 32;
constexpr double kCellsPerUnit = 64;
constexpr double kHalfRound = kTurn / 2;

std::uint32_t Cell(double at) {
  return static_cast<std::uint32_t>(std::clamp((at + kHalfRound) * kCellsPerUnit, 0.0, 4294967295.0));
}

std::uint64_t Spread(std::uint32_t bits) {
  std::uint64_t wide = bits;
  wide = (wide | (wide << 16)) & 0x0000FFFF0000FFFFU;
  wide = (wide | (wide << 8)) & 0x00FF00FF00FF00FFU;
  wide = (wide | (wide << 4)) & 0x0F0F0F0F0F0F0F0FU;
  wide = (wide | (wide << 2)) & 0x3333333333333333U;
  return (wide | (wide << 1)) & 0x5555555555555555U;
}

std::uint32_t Gathered(std::uint64_t wide) {
  wide &= 0x5555555555555555U;
  wide = (wide | (wide >> 1)) & 0x3333333333333333U;
  wide = (wide | (wide >> 2)) & 0x0F0F0F0F0F0F0F0FU;
  wide = (wide | (wide >> 4)) & 0x00FF00FF00FF00FFU;
  wide = (wide | (wide >> 8)) & 0x0000FFFF0000FFFFU;
  return static_cast<std::uint32_t>(wide | (wide >> 16));
}

/// The part of the code that says the cell at that level.
std::uint64_t CellOf(std::uint64_t code, int level) { return level >= kLevels ? 0 : code >> (2 * level); }

PlaneBox BoxOfCell(std::uint64_t code, int level) {
  const double side = std::exp2(level) / kCellsPerUnit;
  const auto low = [&](std::uint64_t bits) {
    return std::floor(static_cast<double>(Gathered(bits)) / std::exp2(level)) * side - kHalfRound;
  };
  return {low(code), low(code >> 1), side, side};
}

}  // namespace

struct PinIndex::Search {
  PlaneBox box;
  int level;
  const std::function<void(const Heap&)>& take;
};

void PinIndex::Build(const std::vector<platform::MapPin>& pins) {
  order_.clear();
  order_.reserve(pins.size());
  for (std::size_t i = 0; i < pins.size(); ++i) {
    PlanePoint at = ToPlane({pins[i].latitude, pins[i].longitude});
    if (at.x() >= kHalfRound) at.rx() -= kTurn;  // the antimeridian is the western edge of the earth
    order_.push_back({Spread(Cell(at.x())) | (Spread(Cell(at.y())) << 1), static_cast<std::uint32_t>(i), at});
  }
  std::sort(order_.begin(), order_.end(),
            [](const Entry& one, const Entry& other) { return one.code != other.code ? one.code < other.code : one.pin < other.pin; });
  sums_.assign(1, {});
  sums_.reserve(order_.size() + 1);
  for (const Entry& entry : order_) sums_.push_back(sums_.back() + entry.at);
  bounds_ = BoundsOf({0, order_.size(), {}});
  const PlaneBox over = order_.empty() ? bounds_ : BoundsOverSeam();
  if (over.width() < bounds_.width()) bounds_ = over;
}

PlaneBox PinIndex::BoundsOverSeam() const {
  double west = kTurn, east = 0;
  for (const Entry& entry : order_) {
    const double x = entry.at.x() < 0 ? entry.at.x() + kTurn : entry.at.x();
    west = std::min(west, x);
    east = std::max(east, x);
  }
  return {QPointF(west, bounds_.top()), QPointF(east, bounds_.bottom())};
}

PlaneBox PinIndex::BoundsOf(const Heap& heap) const {
  if (heap.count == 0) return {};
  PlanePoint low = order_[heap.first].at, high = low;
  for (std::size_t i = heap.first; i < heap.first + heap.count; ++i) {
    const PlanePoint& at = order_[i].at;
    low = {std::min(low.x(), at.x()), std::min(low.y(), at.y())};
    high = {std::max(high.x(), at.x()), std::max(high.y(), at.y())};
  }
  return {low, high};
}

void PinIndex::EachHeap(const PlaneBox& box, double side, const std::function<void(const Heap&)>& take) const {
  const int level = std::clamp(static_cast<int>(std::floor(std::log2(std::max(side, 1e-3) * kCellsPerUnit))), 0, kLevels);
  Visit({box, level, take}, 0, order_.size(), kLevels);
}

void PinIndex::Visit(const Search& search, std::size_t begin, std::size_t end, int level) const {
  if (begin == end) return;
  if (level < kLevels && !BoxOfCell(order_[begin].code, level).intersects(search.box)) return;
  if (level <= search.level) {
    const auto count = static_cast<double>(end - begin);
    return search.take({begin, end - begin, (sums_[end] - sums_[begin]) / count});
  }
  while (begin < end) {
    const std::uint64_t cell = CellOf(order_[begin].code, level - 1);
    const auto behind = std::partition_point(order_.begin() + static_cast<std::ptrdiff_t>(begin), order_.begin() + static_cast<std::ptrdiff_t>(end),
                                             [&](const Entry& entry) { return CellOf(entry.code, level - 1) <= cell; });
    const auto next = static_cast<std::size_t>(behind - order_.begin());
    Visit(search, begin, next, level - 1);
    begin = next;
  }
}

}  // namespace desktop
