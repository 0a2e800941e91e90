#include "engine/rows/ascending_keys.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace engine {
namespace {

std::vector<std::int64_t> Read(AscendingKeys keys) {
  std::vector<std::int64_t> read;
  while (!keys.AtEnd()) read.push_back(keys.Take());
  return read;
}

TEST(AscendingKeys, ComeBackInTheirOrder) {
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  constexpr auto kMost = std::numeric_limits<std::int64_t>::max();
  for (const std::vector<std::int64_t>& keys :
       {std::vector<std::int64_t>{}, {0}, {1}, {-1}, {127, 128, 255, 16'511, 16'512}, {1, 128, 129, 16'513, 5'000'000, 1LL << 40}, {7, 7, 8},
        {kLeast, -5, 0, 5, kMost}, {kMost}, {kLeast, kMost}})
    EXPECT_EQ(Read(AscendingKeys(keys)), keys);
}

TEST(AscendingKeys, NoneAreAtTheirEnd) { EXPECT_TRUE(AscendingKeys().AtEnd()); }

}  // namespace
}  // namespace engine
