#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/controls/form/control.h"
#include "platform/services/map.h"

namespace platform {

class ListBox;

/// A screen's street map. Its properties are set one by one, then a number given to Action carries a command out. Positions, widths
/// and distances are in the map's own units: hundred-thousandths of a degree, and feet.
class MapControl final : public Control {
 public:
  /// The numbers of the commands.
  static constexpr int Draw = 0;        ///< around the position with the width MapWidth
  static constexpr int Geocode = 1;     ///< the candidates of Address to the list, the best position and Result
  static constexpr int AddPin = 3;      ///< PinKey, the position, Text, PinStyle, PinPicture
  static constexpr int SetOrigin = 23;  ///< the position is where Measure begins
  static constexpr int Measure = 24;    ///< Result is the way from there to the position
  static constexpr int Prepare = 25;    ///< before the first pin
  static constexpr int RemovePins = 37;

  using Control::Control;
  ~MapControl() override;

  std::string Address;
  std::int32_t Latitude = 0;
  std::int32_t Longitude = 0;
  std::int32_t MapWidth = 0;
  std::int32_t Result = 0;
  std::string Text;
  std::string PinKey;
  std::int32_t PinStyle = 0;
  std::string PinPicture;
  /// Where Geocode puts a line for each candidate, behind those that stand there; nullptr for nowhere.
  ListBox* ListHandle = nullptr;

  /// Carries the command out; without a map engine error 424. Other numbers mean nothing.
  void Action(int number);

  /// The user has clicked the pin with that key.
  Event<const std::string&> PinClick;

  bool TakesFocus() const override { return true; }
  /// What its window draws: nullptr without an engine, and where that has nothing to be seen.
  MapScene* Scene() const;
  /// The user clicks the pin with that key.
  void UserPinClick(const std::string& key);
  /// The user looks for an address: its position, nothing when it is unknown. The control's own properties stay as they are.
  std::optional<MapPoint> UserFind(const std::string& address);

 private:
  MapEngine& Engine();
  void Look(MapEngine& engine);

  MapEngine* engine_ = nullptr;  ///< once used
  std::int32_t originLatitude_ = 0;
  std::int32_t originLongitude_ = 0;
};

}  // namespace platform
