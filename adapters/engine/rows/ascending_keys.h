#pragma once

#include <cstdint>
#include <vector>

namespace engine {

/// Row keys in their order, to be read once from the first to the last. Each is kept as its distance from the one before, seven bits
/// in a byte: where they lie close that is a byte or two, and hundreds of thousands are kept while the rows are read to which they lead.
class AscendingKeys {
 public:
  AscendingKeys() = default;
  explicit AscendingKeys(const std::vector<std::int64_t>& keys) {
    std::uint64_t before = 0;
    for (const std::int64_t key : keys) {
      std::uint64_t distance = static_cast<std::uint64_t>(key) - before;
      before = static_cast<std::uint64_t>(key);
      for (; distance > kBits; distance >>= 7) bytes_.push_back(static_cast<std::uint8_t>((distance & kBits) | kMore));
      bytes_.push_back(static_cast<std::uint8_t>(distance));
    }
  }

  bool AtEnd() const noexcept { return next_ == bytes_.size(); }
  /// The next one; not to be called at the end.
  std::int64_t Take() {
    std::uint64_t distance = 0;
    for (int shift = 0;; shift += 7) {
      const std::uint8_t byte = bytes_[next_++];
      distance |= std::uint64_t{byte & kBits} << shift;
      if ((byte & kMore) == 0) break;
    }
    before_ += distance;
    return static_cast<std::int64_t>(before_);
  }

 private:
  static constexpr unsigned kBits = 0x7f;
  static constexpr unsigned kMore = 0x80;

  std::vector<std::uint8_t> bytes_;
  std::size_t next_ = 0;
  std::uint64_t before_ = 0;
};

}  // namespace engine
