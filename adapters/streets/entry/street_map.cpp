#include "streets/entry/street_map.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>

#include "streets/entry/current_ground.h"
#include "streets/entry/file_stamps.h"
#include "streets/entry/opened_map.h"
#include "streets/geocoder/geometry.h"

namespace streets {

namespace {

Position PositionOf(std::int32_t latitude, std::int32_t longitude) {
  // Positions come from rows and screens; what lies off the earth is brought to its edge.
  constexpr std::int32_t kPole = 9'000'000;
  constexpr std::int32_t kHalfTurn = 18'000'000;
  constexpr std::int32_t kMillionths = 10;
  return {std::clamp(longitude, -kHalfTurn, kHalfTurn) * kMillionths, std::clamp(latitude, -kPole, kPole) * kMillionths};
}

class StreetMap final : public platform::MapEngine, public platform::MapScene {
 public:
  explicit StreetMap(std::function<std::vector<std::string>()> files) : find_(std::move(files)) {}

  platform::GeocodeAnswer Geocode(const std::string& address) override {
    const auto known = answers_.find(address);
    if (known != answers_.end()) return known->second;
    // Many customers share an address, but the answers of a run need not all be kept.
    constexpr std::size_t kMostAnswers = 50'000;
    if (answers_.size() >= kMostAnswers) answers_.clear();
    return answers_.emplace(address, Opened().Addresses().Find(address)).first->second;
  }

  std::int32_t Distance(std::int32_t fromLatitude, std::int32_t fromLongitude, std::int32_t toLatitude, std::int32_t toLongitude) override {
    return static_cast<std::int32_t>(std::lround(Feet(PositionOf(fromLatitude, fromLongitude), PositionOf(toLatitude, toLongitude))));
  }

  void Prepare() override {
    answers_.clear();
    if (!opened_) return;
    const std::vector<std::string> files = find_();
    if (files != files_ || StampsOf(files) != stamps_) opened_.reset();
  }

  void AddPin(const platform::MapPin& pin) override {
    const auto [place, isNew] = placeOfPin_.emplace(pin.key, pins_.size());
    if (isNew) {
      pins_.push_back(pin);
    } else {
      pins_[place->second] = pin;
    }
    TellChange();
  }

  void RemovePins() override {
    pins_.clear();
    placeOfPin_.clear();
    TellChange();
  }

  void Draw(std::int32_t latitude, std::int32_t longitude, std::int32_t width) override {
    view_ = platform::MapView{{latitude, longitude}, width, view_ ? view_->drawing + 1 : 1};
    TellChange();
  }

  platform::MapScene* Scene() override { return this; }

  const std::vector<platform::MapPin>& Pins() const override { return pins_; }
  const std::optional<platform::MapView>& View() const override { return view_; }
  platform::MapGround& Ground() override { return ground_; }

 private:
  OpenedMap& Opened() {
    if (!opened_) {
      files_ = find_();
      stamps_ = StampsOf(files_);
      opened_.emplace(files_);
    }
    return *opened_;
  }

  void TellChange() const {
    if (OnChanged) OnChanged();
  }

  std::function<std::vector<std::string>()> find_;
  std::vector<std::string> files_;
  std::vector<FileStamp> stamps_;
  std::optional<OpenedMap> opened_;
  CurrentGround ground_{[this]() -> platform::MapGround& { return Opened().Ground(); }};
  std::unordered_map<std::string, platform::GeocodeAnswer> answers_;
  std::vector<platform::MapPin> pins_;
  std::unordered_map<std::string, std::size_t> placeOfPin_;
  std::optional<platform::MapView> view_;
};

}  // namespace

std::unique_ptr<platform::MapEngine> MakeStreetMap(std::function<std::vector<std::string>()> files) {
  return std::make_unique<StreetMap>(std::move(files));
}

}  // namespace streets
