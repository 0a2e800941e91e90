#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Blocks of an extract of OpenStreetMap (PBF), byte by byte: for those that no library would write.
namespace made_blocks {

inline std::string Number(std::size_t value) {
  std::string bytes;
  for (; value > 0x7f; value >>= 7) bytes += static_cast<char>(value | 0x80);
  return bytes + static_cast<char>(value);
}

inline std::string NumberField(int number, std::size_t value) { return static_cast<char>(number << 3) + Number(value); }

inline std::string Field(int number, std::string_view content) {
  return static_cast<char>(number << 3 | 2) + Number(content.size()) + std::string(content);
}

/// A block with its head around what it says of its content.
inline std::string Framed(std::string_view kind, std::string_view blob) {
  const std::string head = Field(1, kind) + NumberField(3, blob.size());
  return std::string(3, '\0') + static_cast<char>(head.size()) + head + std::string(blob);
}

/// A block that is not packed.
inline std::string Block(std::string_view kind, std::string_view content) { return Framed(kind, Field(1, content)); }

/// The block that every extract begins with.
inline std::string Head() { return Block("OSMHeader", Field(4, "OsmSchema-V0.6") + Field(4, "DenseNodes")); }

}  // namespace made_blocks
