#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace streets {

/// What of a block is asked for.
struct BlockWish {
  bool nodes = false;
  bool ways = false;
  bool relations = false;
};

/// What a block holds, unpacked. What is damaged, packed in another way than by zlib, or has more than `most` bytes then raises
/// std::runtime_error or one of protozero's exceptions.
std::string Unpacked(std::string_view content, std::size_t most);

/// About how many bytes the library needs for what is wished of a block of data, unpacked. A few bytes of a file can stand for thousands:
/// packing folds what repeats, and each tag of a block names texts that are written once. Raises protozero's exceptions. It
/// stops counting where it is more than `enough`.
std::size_t UnfoldedBytes(std::string_view data, const BlockWish& wish, std::size_t enough);

}  // namespace streets
