#include "streets/import/osm/block_file.h"

#include <exception>
#include <protozero/pbf_reader.hpp>

#include "streets/file/file_error.h"

namespace streets {
namespace {

// What the format allows.
constexpr std::size_t kLargestHead = 64 * 1024;
constexpr std::int64_t kLargestContent = 32 * 1024 * 1024;
constexpr std::size_t kSizeBytes = 4;

std::size_t SizeOf(const std::string& bytes) {
  std::size_t size = 0;
  for (std::size_t i = 0; i < kSizeBytes; ++i) size = size << 8 | static_cast<unsigned char>(bytes[i]);
  return size;
}

struct Head {
  std::string kind;
  std::int64_t size = -1;
};

Head ReadHead(const char* bytes, std::size_t size) {
  constexpr protozero::pbf_tag_type kKind = 1;
  constexpr protozero::pbf_tag_type kSize = 3;
  Head head;
  for (protozero::pbf_reader fields(bytes, size); fields.next();) {
    if (fields.tag() == kKind && fields.has_wire_type(protozero::pbf_wire_type::length_delimited)) {
      head.kind = fields.get_string();
    } else if (fields.tag() == kSize && fields.has_wire_type(protozero::pbf_wire_type::varint)) {
      head.size = fields.get_int32();
    } else {
      fields.skip();
    }
  }
  return head;
}

}  // namespace

BlockFile::BlockFile(const std::string& path, const std::string& shown) : file_(path, std::ios::binary), shown_(shown) {
  if (!file_) throw FileError(shown_ + " can't be opened.");
}

bool BlockFile::Next(Block& block) {
  if (file_.peek() == std::ifstream::traits_type::eof()) {
    if (file_.bad()) Raise(at_, "the disk or the network failed");
    if (IsFirst()) throw FileError(shown_ + " is empty.");
    return false;
  }
  const std::int64_t begin = at_;
  block.at = begin;
  block.bytes.clear();
  Head head;
  try {
    Take(kSizeBytes, block.bytes);
    const std::size_t size = SizeOf(block.bytes);
    if (size == 0 || size > kLargestHead) Raise(begin, "no block begins there");
    Take(size, block.bytes);
    head = ReadHead(block.bytes.data() + kSizeBytes, size);
  } catch (const protozero::exception& problem) {
    Raise(begin, problem.what());
  } catch (const FileError&) {
    if (begin == 0) throw FileError(shown_ + " is no extract of OpenStreetMap (PBF).");
    throw;
  }
  if (begin == 0 && head.kind != "OSMHeader") throw FileError(shown_ + " is no extract of OpenStreetMap (PBF).");
  if (head.size < 0 || head.size > kLargestContent) Raise(begin, "a block has no size that could be");
  block.head = block.bytes.size();
  Take(static_cast<std::size_t>(head.size), block.bytes);
  block.kind = std::move(head.kind);
  return true;
}

void BlockFile::Take(std::size_t size, std::string& to) {
  const std::size_t before = to.size();
  to.resize(before + size);
  file_.read(to.data() + before, static_cast<std::streamsize>(size));
  if (static_cast<std::size_t>(file_.gcount()) != size) {
    throw FileError(shown_ + " is cut short: its last block, at byte " + std::to_string(at_) + ", is not whole.");
  }
  at_ += static_cast<std::int64_t>(size);
}

void BlockFile::Raise(std::int64_t at, const std::string& why) const {
  throw FileError(shown_ + " is damaged at byte " + std::to_string(at) + ": " + why + ".");
}

}  // namespace streets
