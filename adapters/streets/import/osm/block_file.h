#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

namespace streets {

/// The blocks that a PBF file consists of, one after the other: each has a small head, which tells its kind and size, and its content.
/// Raises FileError as ExtractFile tells.
class BlockFile {
 public:
  BlockFile(const std::string& path, const std::string& shown);

  struct Block {
    std::string kind;      ///< "OSMHeader", "OSMData"; others are to be passed over
    std::string bytes;     ///< as it lies in the file, its head included
    std::size_t head = 0;  ///< bytes of it
    std::int64_t at = 0;

    std::string_view Content() const { return std::string_view(bytes).substr(head); }
  };
  /// False at the end of the file.
  bool Next(Block& block);

  [[noreturn]] void Raise(std::int64_t at, const std::string& why) const;

 private:
  bool IsFirst() const noexcept { return at_ == 0; }
  /// Appends so many bytes of the file.
  void Take(std::size_t size, std::string& to);

  std::ifstream file_;
  std::string shown_;
  std::int64_t at_ = 0;
};

}  // namespace streets
