#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "desktop/map/sight.h"

namespace desktop {

/// Where the pins are: those of any square cell are found without looking at the others, at every size of cell.
class PinIndex {
 public:
  void Build(const std::vector<platform::MapPin>& pins);
  std::size_t Count() const noexcept { return order_.size(); }
  /// Around all of them, over the antimeridian when that is nearer; null when there are none.
  PlaneBox Bounds() const noexcept { return bounds_; }

  /// The pins of one cell.
  struct Heap {
    std::size_t first = 0;  ///< in the index's own order
    std::size_t count = 0;
    PlanePoint middle;  ///< of all of them
  };
  /// The heaps of the cells that meet the box; a cell's side is at most `side` units of the plane, and more than half of it.
  void EachHeap(const PlaneBox& box, double side, const std::function<void(const Heap&)>& take) const;
  /// The number, in the list that it was built from, of a pin by its place in the index's own order.
  std::size_t PinAt(std::size_t place) const { return order_[place].pin; }
  /// Around the pins of the heap.
  PlaneBox BoundsOf(const Heap& heap) const;

 private:
  struct Entry {
    std::uint64_t code;  ///< the bits of x and y in turn, the highest first
    std::uint32_t pin;
    PlanePoint at;
  };
  struct Search;
  /// With what lies to the west of Greenwich a turn further to the east.
  PlaneBox BoundsOverSeam() const;
  void Visit(const Search& search, std::size_t begin, std::size_t end, int level) const;

  std::vector<Entry> order_;
  std::vector<PlanePoint> sums_;  ///< of the places before
  PlaneBox bounds_;
};

}  // namespace desktop
