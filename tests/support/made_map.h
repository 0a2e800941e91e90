#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/services/map.h"

namespace made {

/// A believable town without a file: streets in a grid, every tenth a road, every fiftieth a main road, every two hundredth a highway,
/// in pieces from crossing to crossing; a state's border around it, counties in it, places and ZIP areas.
class Ground final : public platform::MapGround {
 public:
  /// So many streets to each side, a hundred units apart, from that corner to the north and east.
  explicit Ground(int streets, platform::MapPoint southWest = {4'670'000, -9'230'000});

  void Lines(platform::MapLine kind, const platform::MapBox& box, double unitsPerPixel, const TakeLine& take) override;
  void Texts(const platform::MapBox& box, double unitsPerPixel, const TakeText& take) override;
  std::vector<std::string> Notices() const override { return notices; }
  std::string Complaint() const override { return complaint; }

  static constexpr int kApart = 100;
  platform::MapPoint Crossing(int column, int row) const;
  long Edges() const { return 2L * streets_ * (streets_ - 1); }

  std::vector<std::string> notices{"Streets: the made-up town"};
  std::string complaint;
  std::string failure;  ///< raised by every reading when not empty
  long read = 0;        ///< lines given

 private:
  static platform::MapLine KindOf(int street);
  void Give(platform::MapLine kind, std::vector<platform::MapPoint> points, const std::string& name, const TakeLine& take);
  void Borders(platform::MapLine kind, const TakeLine& take);

  int streets_;
  platform::MapPoint southWest_;
};

/// A map engine with such a ground that knows the addresses it was told.
class Map final : public platform::MapEngine, public platform::MapScene {
 public:
  explicit Map(int streets) : ground(streets) {}

  platform::GeocodeAnswer Geocode(const std::string& address) override;
  std::int32_t Distance(std::int32_t, std::int32_t, std::int32_t, std::int32_t) override { return 0; }
  void Prepare() override {}
  void AddPin(const platform::MapPin& pin) override;
  void RemovePins() override;
  void Draw(std::int32_t latitude, std::int32_t longitude, std::int32_t width) override;
  platform::MapScene* Scene() override { return this; }

  const std::vector<platform::MapPin>& Pins() const override { return pins_; }
  const std::optional<platform::MapView>& View() const override { return view_; }
  platform::MapGround& Ground() override { return ground; }

  made::Ground ground;
  std::map<std::string, platform::MapPoint> addresses;
  std::vector<std::string> asked;

 private:
  void Changed() const;

  std::vector<platform::MapPin> pins_;
  std::optional<platform::MapView> view_;
};

}  // namespace made
