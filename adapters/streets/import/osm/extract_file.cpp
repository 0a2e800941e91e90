#include "streets/import/osm/extract_file.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <osmium/io/pbf_input.hpp>
#include <osmium/osm/node.hpp>
#include <osmium/osm/relation.hpp>
#include <osmium/osm/way.hpp>
#include <stdexcept>

#include "streets/file/file_error.h"
#include "streets/import/census/source_text.h"
#include "streets/import/osm/block_content.h"
#include "streets/import/osm/block_file.h"

namespace streets {
namespace {

constexpr double kFiner = 10;  // the extract's units in one of ours

// What the format allows; that of the head, which is read again with every block, is more than anyone has to say.
constexpr std::size_t kLargestContent = std::size_t{32} << 20;
constexpr std::size_t kLargestHead = std::size_t{64} << 10;
// Of memory for what a block holds. Programs put 8,000 objects into one, which take some MiB.
constexpr std::size_t kMostUnfolded = std::size_t{64} << 20;

std::optional<Position> PositionOf(const osmium::Location& location) {
  if (!location.valid()) return {};
  return Position{static_cast<std::int32_t>(std::lround(location.x() / kFiner)), static_cast<std::int32_t>(std::lround(location.y() / kFiner))};
}

// The library finds the end of a list of tags by its zero bytes, two to a tag; a text with one inside would lead it past the end.
bool HangsTogether(const osmium::TagList& tags) {
  const unsigned char* end = tags.data() + tags.byte_size();
  return std::count(tags.cbegin()->data(), end, '\0') % 2 == 0;
}

osmium::osm_entity_bits::type Asked(const ExtractReader& reader) {
  using namespace osmium::osm_entity_bits;
  return (reader.onNode ? node : nothing) | (reader.onWay ? way : nothing) | (reader.onRelation ? relation : nothing);
}

BlockWish WishOf(const ExtractReader& reader) { return {static_cast<bool>(reader.onNode), static_cast<bool>(reader.onWay), static_cast<bool>(reader.onRelation)}; }

// Gives on what blocks hold, one at a time.
class BlockReading {
 public:
  BlockReading(const BlockFile& file, const ExtractReader& reader) : file_(file), reader_(reader) {}

  /// The head comes first, then data.
  void Read(const BlockFile::Block& block) {
    const bool isHead = block.kind == "OSMHeader";
    try {
      Check(block.Content(), isHead);
    } catch (const std::exception& problem) {
      file_.Raise(block.at, SourceText(problem.what()));
    }
    if (isHead) head_ = block.bytes;
    // A whole small file: the extract's own head and one block.
    Give(isHead ? head_ : head_ + block.bytes, block.at);
  }

 private:
  /// Before the library sees the block, which takes what memory it asks for.
  void Check(std::string_view content, bool isHead) const {
    const std::string data = Unpacked(content, isHead ? kLargestHead : kLargestContent);
    if (!isHead && UnfoldedBytes(data, WishOf(reader_), kMostUnfolded) > kMostUnfolded) throw std::runtime_error("a block unfolds into more than is read at once");
  }

  /// `at`: where the block lies in the extract.
  void Give(const std::string& bytes, std::int64_t at) {
    std::optional<osmium::io::Reader> blocks;
    osmium::memory::Buffer buffer;
    bool isHistory = false;
    const auto next = [&] {
      // What the library raises is damage of the file; what those raise who are called below is their own.
      try {
        if (!blocks) blocks.emplace(osmium::io::File(bytes.data(), bytes.size(), "pbf"), Asked(reader_), osmium::io::read_meta::no);
        isHistory = blocks->header().has_multiple_object_versions();
        buffer = blocks->read();
      } catch (const std::exception& problem) {
        file_.Raise(at, SourceText(problem.what()));
      }
      return static_cast<bool>(buffer);
    };
    while (next() && !isHistory)
      for (const osmium::OSMObject& object : buffer.select<osmium::OSMObject>()) {
        if (!HangsTogether(object.tags())) file_.Raise(at, "a tag holds a zero byte");
        Give(object);
      }
    if (isHistory) file_.Raise(at, "it holds what once was beside what is");
  }

  void Give(const osmium::OSMObject& object) {
    const ExtractTags tags(object.tags());
    if (object.type() == osmium::item_type::node && reader_.onNode) {
      reader_.onNode({object.id(), tags, PositionOf(static_cast<const osmium::Node&>(object).location())});
    } else if (object.type() == osmium::item_type::way && reader_.onWay) {
      nodes_.clear();
      for (const osmium::NodeRef& node : static_cast<const osmium::Way&>(object).nodes()) nodes_.push_back(node.ref());
      reader_.onWay({object.id(), tags, nodes_});
    } else if (object.type() == osmium::item_type::relation && reader_.onRelation) {
      members_.clear();
      for (const osmium::RelationMember& member : static_cast<const osmium::Relation&>(object).members())
        members_.push_back({member.type() == osmium::item_type::way, member.ref(), member.role()});
      reader_.onRelation({object.id(), tags, members_});
    }
  }

  const BlockFile& file_;
  const ExtractReader& reader_;
  std::string head_;  ///< of the extract
  std::vector<std::int64_t> nodes_;
  std::vector<ExtractMember> members_;
};

}  // namespace

bool ExtractTags::Has(const char* key) const { return tags_.get_value_by_key(key) != nullptr; }

std::string ExtractTags::operator[](const char* key) const {
  const char* value = tags_.get_value_by_key(key);
  return value ? SourceText(value) : "";
}

ExtractFile::ExtractFile(std::string path, std::string shown) : path_(std::move(path)), shown_(std::move(shown)) {
  std::error_code problem;
  if (!std::filesystem::is_regular_file(path_, problem)) throw FileError(shown_ + " is not there.");
  size_ = static_cast<std::int64_t>(std::filesystem::file_size(path_, problem));
}

void ExtractFile::Read(const ExtractReader& reader) const {
  BlockFile file(path_, shown_);
  BlockReading reading(file, reader);
  BlockFile::Block block;
  while (file.Next(block)) {
    if (reader.onProgress) reader.onProgress(block.at);
    if (block.kind == "OSMHeader" || block.kind == "OSMData") reading.Read(block);
  }
}

}  // namespace streets
