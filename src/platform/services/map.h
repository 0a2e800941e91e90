#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace platform {

/// What an address look-up gives: a line for each candidate (longitude, blank, latitude, text), the best position, and the
/// engine's result bits (32: the position matches the text given).
struct GeocodeAnswer {
  std::vector<std::string> candidates;
  bool positionFound = false;
  std::int32_t latitude = 0;
  std::int32_t longitude = 0;
  std::int32_t result = 0;
};

/// One pin on the map, by its key. Its picture is a file.
struct MapPin {
  std::string key;
  std::int32_t latitude = 0;
  std::int32_t longitude = 0;
  std::string text;
  std::int32_t style = 0;
  std::string picture;
};

/// A position, in hundred-thousandths of a degree.
struct MapPoint {
  std::int32_t latitude = 0;
  std::int32_t longitude = 0;
  bool operator==(const MapPoint&) const = default;
};

struct MapBox {
  std::int32_t south = 0;
  std::int32_t west = 0;
  std::int32_t north = 0;
  std::int32_t east = 0;
};

/// What is drawn around which middle; the width in feet.
struct MapView {
  MapPoint middle;
  std::int32_t width = 0;
  /// Counts the times that something was asked to be drawn: the same view asked for again is one to go back to.
  std::int32_t drawing = 0;
  bool operator==(const MapView&) const = default;
};

/// Lines of the ground, the least to be seen from afar last.
enum class MapLine { State, County, Highway, MainRoad, Road, Street, Path };

/// Texts of the ground.
enum class MapText { Place, Zip };

/// What lies on the ground: borders and streets, places and ZIP areas. Reads as it is asked and keeps little.
class MapGround {
 public:
  virtual ~MapGround() = default;
  using TakeLine = std::function<void(MapLine kind, std::span<const MapPoint> points, const std::string& name)>;
  using TakeText = std::function<void(MapText kind, MapPoint at, const std::string& text)>;

  /// Every line of that kind that meets the box, as fine as can be told apart where a pixel is that many units wide.
  virtual void Lines(MapLine kind, const MapBox& box, double unitsPerPixel, const TakeLine& take) = 0;
  /// Names that belong into the box at that resolution, the most important first.
  virtual void Texts(const MapBox& box, double unitsPerPixel, const TakeText& take) = 0;
  /// Whose data is shown, as its makers ask for it; a line each.
  virtual std::vector<std::string> Notices() const = 0;
  /// What the user should know of the data, such as a file that can't be read; "" for nothing.
  virtual std::string Complaint() const { return ""; }
};

/// What stands on the map now, for the window that draws it.
class MapScene {
 public:
  virtual ~MapScene() = default;
  virtual const std::vector<MapPin>& Pins() const = 0;
  /// What was last asked to be drawn; nothing before the first time.
  virtual const std::optional<MapView>& View() const = 0;
  virtual MapGround& Ground() = 0;

  /// Pins or view have changed. One window at a time listens.
  std::function<void()> OnChanged;
};

/// The street map behind the map control.
class MapEngine {
 public:
  virtual ~MapEngine() = default;
  /// The candidates of "Addr1,City,State,Zip", parts of which may be missing.
  virtual GeocodeAnswer Geocode(const std::string& address) = 0;
  /// The way between two positions, in feet.
  virtual std::int32_t Distance(std::int32_t fromLatitude, std::int32_t fromLongitude, std::int32_t toLatitude,
                                std::int32_t toLongitude) = 0;
  virtual void Prepare() = 0;
  virtual void AddPin(const MapPin& pin) = 0;
  virtual void RemovePins() = 0;
  virtual void Draw(std::int32_t latitude, std::int32_t longitude, std::int32_t width) = 0;
  /// What a window can draw; nullptr when there is nothing to be seen.
  virtual MapScene* Scene() { return nullptr; }

  /// The user has clicked the pin with that key.
  std::function<void(const std::string& key)> OnPinClicked;
};

}  // namespace platform
