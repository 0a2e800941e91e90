#pragma once

#include <cstdint>
#include <functional>
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

/// One pin on the map, by its key.
struct MapPin {
  std::string key;
  std::int32_t latitude = 0;
  std::int32_t longitude = 0;
  std::string text;
  std::int32_t style = 0;
  std::string picture;
};

/// The street map behind the map control. Positions are in its own unit.
class MapEngine {
 public:
  virtual ~MapEngine() = default;
  virtual GeocodeAnswer Geocode(const std::string& address) = 0;
  /// Distance between two positions, in the engine's unit.
  virtual std::int32_t Distance(std::int32_t fromLatitude, std::int32_t fromLongitude, std::int32_t toLatitude,
                                std::int32_t toLongitude) = 0;
  virtual void Prepare() = 0;
  virtual void AddPin(const MapPin& pin) = 0;
  virtual void RemovePins() = 0;
  virtual void Draw(std::int32_t latitude, std::int32_t longitude, std::int32_t width) = 0;

  /// The user has clicked the pin with that key.
  std::function<void(const std::string& key)> OnPinClicked;
};

}  // namespace platform
