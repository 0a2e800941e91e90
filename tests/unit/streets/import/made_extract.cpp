#include "unit/streets/import/made_extract.h"

#include <osmium/builder/osm_object_builder.hpp>
#include <osmium/io/pbf_output.hpp>
#include <osmium/io/writer.hpp>
#include <osmium/memory/buffer.hpp>

namespace streets {

struct MadeExtract::Content {
  osmium::memory::Buffer buffer{std::size_t{1} << 20, osmium::memory::Buffer::auto_grow::yes};

  template <typename Builder>
  void AddTags(Builder& object, const Tags& tags) {
    osmium::builder::TagListBuilder list(object);
    for (const auto& tag : tags) list.add_tag(tag.first, tag.second);
  }
};

MadeExtract::MadeExtract() : content_(std::make_unique<Content>()) {}
MadeExtract::~MadeExtract() = default;

void MadeExtract::Node(std::int64_t id, double longitude, double latitude, const Tags& tags) {
  {
    osmium::builder::NodeBuilder node(content_->buffer);
    node.set_id(id).set_visible(true);
    // By its own units, so that a place off the earth can be written too.
    node.set_location(osmium::Location(static_cast<std::int32_t>(longitude * 1e7 + (longitude < 0 ? -0.5 : 0.5)),
                                       static_cast<std::int32_t>(latitude * 1e7 + (latitude < 0 ? -0.5 : 0.5))));
    content_->AddTags(node, tags);
  }
  content_->buffer.commit();
}

void MadeExtract::Way(std::int64_t id, const std::vector<std::int64_t>& nodes, const Tags& tags) {
  {
    osmium::builder::WayBuilder way(content_->buffer);
    way.set_id(id).set_visible(true);
    {
      osmium::builder::WayNodeListBuilder list(way);
      for (const std::int64_t node : nodes) list.add_node_ref(node);
    }
    content_->AddTags(way, tags);
  }
  content_->buffer.commit();
}

void MadeExtract::Relation(std::int64_t id, const Tags& tags, const std::vector<Member>& members) {
  {
    osmium::builder::RelationBuilder relation(content_->buffer);
    relation.set_id(id).set_visible(true);
    {
      osmium::builder::RelationMemberListBuilder list(relation);
      for (const Member& member : members) list.add_member(osmium::item_type::way, member.way, member.role);
    }
    content_->AddTags(relation, tags);
  }
  content_->buffer.commit();
}

void MadeExtract::Write(const std::string& path, const std::string& format) {
  osmium::io::Writer writer(osmium::io::File(path, format), osmium::io::overwrite::allow);
  writer(std::move(content_->buffer));
  writer.close();
}

}  // namespace streets
