#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace streets {

/// An extract of our own, written by the library that reads them. Nodes, ways and relations come in the order of the calls.
class MadeExtract {
 public:
  using Tags = std::vector<std::pair<std::string, std::string>>;

  MadeExtract();
  ~MadeExtract();
  MadeExtract(const MadeExtract&) = delete;
  MadeExtract& operator=(const MadeExtract&) = delete;

  void Node(std::int64_t id, double longitude, double latitude, const Tags& tags = {});
  void Way(std::int64_t id, const std::vector<std::int64_t>& nodes, const Tags& tags);
  struct Member {
    std::int64_t way;
    std::string role;
  };
  void Relation(std::int64_t id, const Tags& tags, const std::vector<Member>& members = {});
  /// `format`: as the library writes it.
  void Write(const std::string& path, const std::string& format = "pbf");

 private:
  struct Content;
  std::unique_ptr<Content> content_;
};

}  // namespace streets
