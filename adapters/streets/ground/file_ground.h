#pragma once

#include <memory>
#include <vector>

#include "platform/services/map.h"
#include "streets/file/street_files.h"

namespace streets {

class DrawnFile;

/// The ground of the map, from files: only lines that can be seen at a resolution are read, and they come with as few points as
/// show there. A file that fails while it is read is drawn no more, and the complaint tells it.
class FileGround final : public platform::MapGround {
 public:
  /// The files must outlive this.
  explicit FileGround(StreetFiles& files);
  ~FileGround() override;

  void Lines(platform::MapLine kind, const platform::MapBox& box, double unitsPerPixel, const TakeLine& take) override;
  void Texts(const platform::MapBox& box, double unitsPerPixel, const TakeText& take) override;
  std::vector<std::string> Notices() const override;
  std::string Complaint() const override;

 private:
  template <typename Draw>
  void Each(const Draw& draw);

  StreetFiles& files_;
  std::vector<std::unique_ptr<DrawnFile>> drawn_;  ///< nullptr: has failed
  std::vector<std::string> notices_;
};

}  // namespace streets
