#pragma once

#include <functional>

#include "platform/services/map.h"

namespace streets {

/// The ground of whatever files are open when it is asked, so that a window may keep it while they are opened anew.
class CurrentGround final : public platform::MapGround {
 public:
  using Find = std::function<platform::MapGround&()>;
  explicit CurrentGround(Find find) : find_(std::move(find)) {}

  void Lines(platform::MapLine kind, const platform::MapBox& box, double unitsPerPixel, const TakeLine& take) override {
    find_().Lines(kind, box, unitsPerPixel, take);
  }
  void Texts(const platform::MapBox& box, double unitsPerPixel, const TakeText& take) override { find_().Texts(box, unitsPerPixel, take); }
  std::vector<std::string> Notices() const override { return find_().Notices(); }
  std::string Complaint() const override { return find_().Complaint(); }

 private:
  Find find_;
};

}  // namespace streets
