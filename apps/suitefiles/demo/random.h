#pragma once

#include <cstdint>
#include <span>

namespace suitefiles::demo {

/// What a stream of random numbers is for, so that each part of a customer has one of its own and can be made again
/// without the others.
enum class Stream : std::uint64_t {
  Kind = 1,
  Person,
  Address,
  Account,
  Money,
  Phones,
  Addresses,
  Cards,
  Rates,
  Types,
  Words,
  Parents,
  Transactions
};

/// A small generator whose numbers depend on seed, customer and stream alone, the same on every machine.
class Random {
 public:
  Random(std::uint64_t seed, std::uint64_t customer, Stream stream)
      : state_(Mix(Mix(Mix(seed + kStep) + customer) + static_cast<std::uint64_t>(stream) * kStep)) {}

  std::uint64_t Next() {
    state_ += kStep;
    return Mix(state_);
  }
  /// 0 to `count` - 1, which is above 0.
  std::uint32_t Below(std::uint32_t count) { return static_cast<std::uint32_t>(((Next() >> 32U) * count) >> 32U); }
  /// From `low` to `high`, both included.
  int Between(int low, int high) { return low + static_cast<int>(Below(static_cast<std::uint32_t>(high - low + 1))); }
  /// True so many times in a thousand.
  bool PerMille(int share) { return Below(1000) < static_cast<std::uint32_t>(share); }
  template <class T>
  const T& Pick(std::span<const T> list) {
    return list[Below(static_cast<std::uint32_t>(list.size()))];
  }
  /// Mostly small amounts, few large ones: a product of three even draws, up to `greatest`.
  std::int64_t Skewed(std::int64_t greatest) {
    std::int64_t product = Below(1U << 16U);
    for (int i = 0; i < 2; ++i) product = product * static_cast<std::int64_t>(Below(1U << 16U)) >> 16U;
    return greatest * product >> 16U;
  }

 private:
  static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15ULL;
  static std::uint64_t Mix(std::uint64_t x) {
    x = (x ^ (x >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    x = (x ^ (x >> 27U)) * 0x94D049BB133111EBULL;
    return x ^ (x >> 31U);
  }
  std::uint64_t state_;
};

}  // namespace suitefiles::demo
