#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "streets/index/street_index.h"

namespace osmium {
class TagList;
}

namespace streets {

/// The tags of what is being read.
class ExtractTags {
 public:
  explicit ExtractTags(const osmium::TagList& tags) : tags_(tags) {}

  bool Has(const char* key) const;
  /// The value without control characters and blanks around it; "" where the tag is not there.
  std::string operator[](const char* key) const;

 private:
  const osmium::TagList& tags_;
};

struct ExtractNode {
  std::int64_t id;
  ExtractTags tags;
  std::optional<Position> at;  ///< nothing for a place that is not on the earth
};

struct ExtractWay {
  std::int64_t id;
  ExtractTags tags;
  std::span<const std::int64_t> nodes;
};

struct ExtractMember {
  bool isWay;
  std::int64_t id;
  std::string_view role;
};

struct ExtractRelation {
  std::int64_t id;
  ExtractTags tags;
  std::span<const ExtractMember> members;
};

/// Who is given what an extract holds, in its order. What nobody asks for is not looked at.
struct ExtractReader {
  std::function<void(const ExtractNode&)> onNode;
  std::function<void(const ExtractWay&)> onWay;
  std::function<void(const ExtractRelation&)> onRelation;
  std::function<void(std::int64_t bytes)> onProgress;  ///< so many bytes have been read
};

/// An extract of OpenStreetMap in its PBF form, which can be read again and again. One block is in memory at a time. What is missing,
/// empty, cut short, damaged or of another kind raises FileError with the file's name and the place.
class ExtractFile {
 public:
  /// `shown`: its name in messages.
  ExtractFile(std::string path, std::string shown);

  const std::string& Shown() const noexcept { return shown_; }
  std::int64_t Size() const noexcept { return size_; }
  void Read(const ExtractReader& reader) const;

 private:
  std::string path_;
  std::string shown_;
  std::int64_t size_ = 0;
};

}  // namespace streets
