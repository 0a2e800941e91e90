#include "streets/index/shape.h"

#include <cstdint>

namespace streets {
namespace {

constexpr std::int64_t kEast = 180'000'000;
constexpr std::int64_t kNorth = 90'000'000;

void Put(std::int64_t value, std::vector<std::byte>& bytes) {
  auto rest = (static_cast<std::uint64_t>(value) << 1) ^ static_cast<std::uint64_t>(value >> 63);
  for (; rest > 0x7f; rest >>= 7) bytes.push_back(static_cast<std::byte>(rest | 0x80));
  bytes.push_back(static_cast<std::byte>(rest));
}

bool Take(std::span<const std::byte>& bytes, std::int64_t& value) {
  std::uint64_t whole = 0;
  for (unsigned shift = 0, used = 0; used < bytes.size() && shift < 35; shift += 7) {
    const auto byte = static_cast<std::uint64_t>(bytes[used++]);
    whole |= (byte & 0x7f) << shift;
    if (byte & 0x80) continue;
    value = static_cast<std::int64_t>(whole >> 1) ^ -static_cast<std::int64_t>(whole & 1);
    bytes = bytes.subspan(used);
    return true;
  }
  return false;
}

}  // namespace

std::vector<std::byte> PackShape(std::span<const Position> line) {
  std::vector<std::byte> bytes;
  bytes.reserve(line.size() * 4 + 8);
  Position before;
  for (const Position& at : line) {
    Put(std::int64_t{at.longitude} - before.longitude, bytes);
    Put(std::int64_t{at.latitude} - before.latitude, bytes);
    before = at;
  }
  return bytes;
}

void UnpackShape(std::span<const std::byte> bytes, Line& line) {
  line.clear();
  std::int64_t longitude = 0;
  std::int64_t latitude = 0;
  std::int64_t east = 0;
  std::int64_t north = 0;
  while (Take(bytes, east) && Take(bytes, north)) {
    longitude += east;
    latitude += north;
    if (longitude < -kEast || longitude > kEast || latitude < -kNorth || latitude > kNorth) return;
    line.push_back({static_cast<std::int32_t>(longitude), static_cast<std::int32_t>(latitude)});
  }
}

}  // namespace streets
