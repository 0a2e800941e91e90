#include "streets/import/osm/block_content.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <protozero/pbf_reader.hpp>
#include <protozero/varint.hpp>
#include <stdexcept>
#include <vector>

namespace streets {
namespace {

using protozero::data_view;
using protozero::pbf_reader;
using protozero::pbf_wire_type;

// The numbers of fields, as the format gives them.
namespace blob {
constexpr protozero::pbf_tag_type kRaw = 1, kRawSize = 2, kZlib = 3;
}
namespace block {
constexpr protozero::pbf_tag_type kTexts = 1, kGroup = 2;
}
namespace group {
constexpr protozero::pbf_tag_type kNode = 1, kDense = 2, kWay = 3, kRelation = 4;
}
namespace dense {
constexpr protozero::pbf_tag_type kIds = 1, kTags = 10;
}
namespace object {
constexpr protozero::pbf_tag_type kKeys = 2, kValues = 3, kNodes = 8, kRoles = 8;
}

// What the library lays down, in bytes.
constexpr std::size_t kObject = 64;
constexpr std::size_t kNodeOfWay = 16;
constexpr std::size_t kMember = 32;
constexpr std::size_t kText = 40;  // of the block's table, while it grows

bool IsBytes(const pbf_reader& fields, protozero::pbf_tag_type tag) {
  return fields.tag() == tag && fields.has_wire_type(pbf_wire_type::length_delimited);
}

std::string Inflated(data_view packed, std::size_t size) {
  std::string bytes(size, '\0');
  uLongf got = size;
  const int result = ::uncompress(reinterpret_cast<Bytef*>(bytes.data()), &got, reinterpret_cast<const Bytef*>(packed.data()), packed.size());
  if (result != Z_OK || got != size) throw std::runtime_error("failed to uncompress data");
  return bytes;
}

/// Whole numbers that lie one behind the other, without their values.
std::size_t CountOf(data_view numbers) {
  constexpr unsigned char kGoesOn = 0x80;
  return static_cast<std::size_t>(std::count_if(numbers.data(), numbers.data() + numbers.size(), [](char byte) { return (static_cast<unsigned char>(byte) & kGoesOn) == 0; }));
}

/// Adds up what a block's objects need.
class Unfolding {
 public:
  Unfolding(const BlockWish& wish, std::size_t enough) : wish_(wish), enough_(enough) {}

  std::size_t Of(data_view data) {
    for (pbf_reader fields(data); fields.next() && !IsEnough();) {
      if (IsBytes(fields, block::kTexts)) {
        TakeTexts(fields.get_view());
      } else {
        fields.skip();
      }
    }
    for (pbf_reader fields(data); fields.next() && !IsEnough();) {
      if (IsBytes(fields, block::kGroup)) {
        TakeGroup(fields.get_view());
      } else {
        fields.skip();
      }
    }
    return bytes_;
  }

 private:
  bool IsEnough() const { return bytes_ > enough_; }

  void TakeTexts(data_view table) {
    for (pbf_reader fields(table); fields.next() && !IsEnough();) {
      if (!IsBytes(fields, 1)) {
        fields.skip();
        continue;
      }
      bytes_ += kText;
      sizes_.push_back(static_cast<std::uint32_t>(fields.get_view().size()));
    }
  }

  void TakeGroup(data_view objects) {
    for (pbf_reader fields(objects); fields.next() && !IsEnough();) {
      if (wish_.nodes && IsBytes(fields, group::kNode)) {
        TakeObject(fields.get_view(), 0);
      } else if (wish_.nodes && IsBytes(fields, group::kDense)) {
        TakeDense(fields.get_view());
      } else if (wish_.ways && IsBytes(fields, group::kWay)) {
        TakeObject(fields.get_view(), object::kNodes);
      } else if (wish_.relations && IsBytes(fields, group::kRelation)) {
        TakeRelation(fields.get_view());
      } else {
        fields.skip();
      }
    }
  }

  void TakeDense(data_view nodes) {
    for (pbf_reader fields(nodes); fields.next();) {
      if (IsBytes(fields, dense::kIds)) {
        bytes_ += CountOf(fields.get_view()) * kObject;
      } else if (IsBytes(fields, dense::kTags)) {
        TakeTexts(fields.get_view(), 1);
      } else {
        fields.skip();
      }
    }
  }

  /// `nodes`: the field of a way's nodes; 0 for none.
  void TakeObject(data_view fieldsOf, protozero::pbf_tag_type nodes) {
    bytes_ += kObject;
    for (pbf_reader fields(fieldsOf); fields.next();) {
      if (IsBytes(fields, object::kKeys) || IsBytes(fields, object::kValues)) {
        TakeTexts(fields.get_view(), 1);
      } else if (nodes != 0 && IsBytes(fields, nodes)) {
        bytes_ += CountOf(fields.get_view()) * kNodeOfWay;
      } else {
        fields.skip();
      }
    }
  }

  void TakeRelation(data_view relation) {
    bytes_ += kObject;
    for (pbf_reader fields(relation); fields.next();) {
      if (IsBytes(fields, object::kKeys) || IsBytes(fields, object::kValues)) {
        TakeTexts(fields.get_view(), 1);
      } else if (IsBytes(fields, object::kRoles)) {
        TakeTexts(fields.get_view(), kMember);
      } else {
        fields.skip();
      }
    }
  }

  /// Texts of the table by their numbers, each with so much around it.
  void TakeTexts(data_view numbers, std::size_t around) {
    const char* at = numbers.data();
    const char* const end = at + numbers.size();
    while (at != end && !IsEnough()) {
      const auto number = static_cast<std::uint32_t>(protozero::decode_varint(&at, end));
      bytes_ += around + (number < sizes_.size() ? sizes_[number] : 0);
    }
  }

  BlockWish wish_;
  std::size_t enough_;
  std::vector<std::uint32_t> sizes_;  ///< of the texts
  std::size_t bytes_ = 0;
};

}  // namespace

std::string Unpacked(std::string_view content, std::size_t most) {
  data_view raw;
  data_view packed;
  std::uint64_t size = 0;
  for (pbf_reader fields(content.data(), content.size()); fields.next();) {
    if (IsBytes(fields, blob::kRaw)) {
      raw = fields.get_view();
      size = raw.size();
    } else if (IsBytes(fields, blob::kZlib)) {
      packed = fields.get_view();
    } else if (fields.tag() == blob::kRawSize && fields.has_wire_type(pbf_wire_type::varint)) {
      size = fields.get_uint64();
    } else {
      throw std::runtime_error("a block is packed in a way that can't be read");
    }
  }
  if (size == 0 || size > most) throw std::runtime_error("a block has no size that could be");
  return packed.empty() ? raw.to_string() : Inflated(packed, size);
}

std::size_t UnfoldedBytes(std::string_view data, const BlockWish& wish, std::size_t enough) {
  return Unfolding(wish, enough).Of({data.data(), data.size()});
}

}  // namespace streets
