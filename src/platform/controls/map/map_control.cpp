#include "platform/controls/map/map_control.h"

#include "platform/controls/form/form.h"
#include "platform/controls/form/form_host.h"
#include "platform/controls/lists.h"
#include "platform/values/error.h"

namespace platform {

MapControl::~MapControl() {
  if (engine_ != nullptr) engine_->OnPinClicked = nullptr;
}

MapEngine& MapControl::Engine() {
  if (engine_ == nullptr) {
    engine_ = Owner().Host().Map();
    if (engine_ == nullptr) throw error::ObjectRequired();
    engine_->OnPinClicked = [this](const std::string& key) { UserPinClick(key); };
  }
  return *engine_;
}

MapScene* MapControl::Scene() const {
  MapEngine* engine = Owner().Host().Map();
  return engine != nullptr ? engine->Scene() : nullptr;
}

void MapControl::UserPinClick(const std::string& key) {
  UserCommand([this, key] { PinClick.Fire(key); });
}

std::optional<MapPoint> MapControl::UserFind(const std::string& address) {
  std::optional<MapPoint> found;
  Act([&] {
    const GeocodeAnswer answer = Engine().Geocode(address);
    if (answer.positionFound) found = MapPoint{answer.latitude, answer.longitude};
  });
  return found;
}

void MapControl::Look(MapEngine& engine) {
  const GeocodeAnswer answer = engine.Geocode(Address);
  if (ListHandle != nullptr)
    for (const std::string& line : answer.candidates) ListHandle->AddItem(line);
  Result = answer.result;
  if (!answer.positionFound) return;
  Latitude = answer.latitude;
  Longitude = answer.longitude;
}

void MapControl::Action(int number) {
  MapEngine& engine = Engine();
  switch (number) {
    case Draw:
      return engine.Draw(Latitude, Longitude, MapWidth);
    case Geocode:
      return Look(engine);
    case AddPin:
      return engine.AddPin({PinKey, Latitude, Longitude, Text, PinStyle, PinPicture});
    case SetOrigin:
      originLatitude_ = Latitude;
      originLongitude_ = Longitude;
      return;
    case Measure:
      Result = engine.Distance(originLatitude_, originLongitude_, Latitude, Longitude);
      return;
    case Prepare:
      return engine.Prepare();
    case RemovePins:
      return engine.RemovePins();
    default:
      return;
  }
}

}  // namespace platform
