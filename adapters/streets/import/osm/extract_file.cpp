#include "streets/import/osm/extract_file.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <osmium/io/pbf_input.hpp>
#include <osmium/osm/node.hpp>
#include <osmium/osm/relation.hpp>
#include <osmium/osm/way.hpp>

#include "streets/file/file_error.h"
#include "streets/import/census/source_text.h"
#include "streets/import/osm/block_file.h"

namespace streets {
namespace {

constexpr double kFiner = 10;  // the extract's units in one of ours

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

// Gives on what one block holds.
class BlockReading {
 public:
  BlockReading(const BlockFile& file, const ExtractReader& reader) : file_(file), reader_(reader) {}

  /// The bytes are a whole small file: the extract's own head and one block, which lies at that byte of the extract.
  void Read(const std::string& bytes, std::int64_t at) {
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

 private:
  void Give(const osmium::OSMObject& object) {
    const ExtractTags tags(object.tags());
    if (object.type() == osmium::item_type::node && reader_.onNode) {
      reader_.onNode({object.id(), tags, PositionOf(static_cast<const osmium::Node&>(object).location())});
    } else if (object.type() == osmium::item_type::way && reader_.onWay) {
      nodes_.clear();
      for (const osmium::NodeRef& node : static_cast<const osmium::Way&>(object).nodes()) nodes_.push_back(node.ref());
      reader_.onWay({object.id(), tags, nodes_});
    } else if (object.type() == osmium::item_type::relation && reader_.onRelation) {
      reader_.onRelation({object.id(), tags});
    }
  }

  const BlockFile& file_;
  const ExtractReader& reader_;
  std::vector<std::int64_t> nodes_;
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
  std::string head;
  while (file.Next(block)) {
    if (reader.onProgress) reader.onProgress(block.at);
    if (block.kind != "OSMHeader" && block.kind != "OSMData") continue;
    const bool isHead = block.kind == "OSMHeader";
    if (isHead) head = block.bytes;
    reading.Read(isHead ? head : head + block.bytes, block.at);
  }
}

}  // namespace streets
