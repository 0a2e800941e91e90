#include "suitefiles/company/pin_picture.h"

#include <cmath>
#include <cstdint>

namespace suitefiles {

namespace {

constexpr int kWidth = 40;
constexpr int kHeight = 56;
constexpr int kHeader = 14 + 108;
constexpr std::uint32_t kDotsAMetre = 7559;  // 192 an inch

/// Adds the number's bytes, the lowest first.
void Put(std::string& bytes, std::uint32_t number, int count) {
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xff);
}

/// Whether the pin covers the place: a disc, and the two lines from it down to the foot.
bool OnPin(double x, double y) {
  constexpr double kRadius = 18.5, kMiddle = kWidth / 2.0, kFoot = kHeight - 1.0;
  const double fromMiddle = std::abs(x - kMiddle), below = y - kMiddle;
  if (std::hypot(fromMiddle, below) <= kRadius) return true;
  // The lines touch the disc where the radius is square to them.
  const double length = kFoot - kMiddle;
  const double touch = kRadius * kRadius / length;
  return below >= touch && y <= kFoot && fromMiddle <= (kFoot - y) * kRadius / std::sqrt(length * length - kRadius * kRadius);
}

bool OnDot(double x, double y) { return std::hypot(x - kWidth / 2.0, y - kWidth / 2.0) <= 7; }

/// Blue, green, red and cover of a pixel, each from sixteen places in it.
std::uint32_t Pixel(int column, int row) {
  constexpr int kParts = 4;
  int covered = 0, white = 0;
  for (int i = 0; i < kParts * kParts; ++i) {
    const double x = column + (i % kParts + 0.5) / kParts, y = row + (i / kParts + 0.5) / kParts;
    covered += OnPin(x, y) ? 1 : 0;
    white += OnDot(x, y) ? 1 : 0;
  }
  if (covered == 0) return 0;
  const auto mixed = [&](int blue) { return static_cast<std::uint32_t>(blue + (255 - blue) * white / covered); };
  return mixed(0xae) | mixed(0x5f) << 8 | mixed(0x1f) << 16 | static_cast<std::uint32_t>(255 * covered / (kParts * kParts)) << 24;
}

}  // namespace

std::string PinPicture() {
  std::string bytes = "BM";
  Put(bytes, kHeader + 4 * kWidth * kHeight, 4);
  Put(bytes, 0, 4);
  Put(bytes, kHeader, 4);
  // The fourth version of the header is the first that knows transparency.
  Put(bytes, 108, 4);
  Put(bytes, kWidth, 4);
  Put(bytes, kHeight, 4);
  Put(bytes, 1, 2);
  Put(bytes, 32, 2);
  Put(bytes, 3, 4);  // colours by the masks below
  Put(bytes, 4 * kWidth * kHeight, 4);
  Put(bytes, kDotsAMetre, 4);
  Put(bytes, kDotsAMetre, 4);
  Put(bytes, 0, 4);
  Put(bytes, 0, 4);
  for (const std::uint32_t mask : {0x00ff0000u, 0x0000ff00u, 0x000000ffu, 0xff000000u}) Put(bytes, mask, 4);
  Put(bytes, 0x73524742, 4);  // the usual colour space
  bytes.append(36 + 12, '\0');
  for (int row = kHeight - 1; row >= 0; --row)
    for (int column = 0; column < kWidth; ++column) Put(bytes, Pixel(column, row), 4);
  return bytes;
}

}  // namespace suitefiles
