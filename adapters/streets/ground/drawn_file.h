#pragma once

#include <string>
#include <vector>

#include "platform/services/map.h"
#include "streets/file/layers.h"
#include "streets/file/statement.h"
#include "streets/index/street_index.h"

namespace streets {

/// What one file draws, by prepared statements.
class DrawnFile {
 public:
  struct Text {
    platform::MapText kind;
    std::int64_t weight;  ///< the greater the more important
    platform::MapPoint at;
    std::string text;
  };

  explicit DrawnFile(Database& file);

  void Lines(platform::MapLine kind, const platform::MapBox& box, double unitsPerPixel, const platform::MapGround::TakeLine& take);
  void Texts(const platform::MapBox& box, double unitsPerPixel, std::vector<Text>& texts);
  /// Adds those that are not there yet.
  void Notices(std::vector<std::string>& notices);

 private:
  void Draw(Statement& rows, platform::MapLine kind, double unitsPerPixel, const platform::MapGround::TakeLine& take);

  bool hasEdges_;
  bool hasBorders_;
  bool hasZips_;
  std::vector<Statement> edges_;  ///< in the order of the layers
  Statement borders_;
  Statement places_;
  Statement zips_;
  Statement notices_;
  Line line_;
  std::vector<platform::MapPoint> points_;
};

}  // namespace streets
