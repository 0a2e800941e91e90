#include "robot/recorders/doubles.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace robot {
namespace {

class RecordingReports final : public platform::ReportEngine {
 public:
  RecordingReports(ReportRecorder& recorder, ReportsMaker makeReal) : recorder_(recorder), makeReal_(std::move(makeReal)) {
    recorder_.useReal = [this] { return UseReal(); };
  }
  ~RecordingReports() override {
    recorder_.real = nullptr;
    recorder_.useReal = nullptr;
  }

  int PrintReport(const platform::ReportJob& job) override {
    ++recorder_.runs[&job];
    if (recorder_.answers.empty()) return real_ ? real_->PrintReport(job) : 0;
    const int answer = recorder_.answers.front();
    recorder_.answers.pop_front();
    return answer;
  }

  void CloseAll() override {
    if (real_) real_->CloseAll();
  }

 private:
  bool UseReal() {
    if (!real_ && makeReal_) real_ = makeReal_();
    recorder_.real = real_.get();
    return real_ != nullptr;
  }

  ReportRecorder& recorder_;
  ReportsMaker makeReal_;
  std::unique_ptr<platform::ReadableReports> real_;
};

class RecordingMap final : public platform::MapEngine {
 public:
  explicit RecordingMap(MapRecorder& recorder) : recorder_(recorder) { recorder_.engine = this; }
  ~RecordingMap() override { recorder_.engine = nullptr; }

  platform::GeocodeAnswer Geocode(const std::string& address) override {
    recorder_.actions.push_back(map_action::Geocode);
    recorder_.addresses.push_back(address);
    const auto found = recorder_.answers.find(address);
    return found == recorder_.answers.end() ? platform::GeocodeAnswer{} : found->second;
  }

  std::int32_t Distance(std::int32_t fromLatitude, std::int32_t fromLongitude, std::int32_t toLatitude, std::int32_t toLongitude) override {
    recorder_.actions.push_back(map_action::SetOrigin);
    recorder_.actions.push_back(map_action::Measure);
    return std::abs(toLatitude - fromLatitude) + std::abs(toLongitude - fromLongitude);
  }

  void Prepare() override { recorder_.actions.push_back(map_action::Prepare); }

  void AddPin(const platform::MapPin& pin) override {
    recorder_.actions.push_back(map_action::AddPin);
    std::erase_if(recorder_.pins, [&](const platform::MapPin& old) { return old.key == pin.key; });
    recorder_.pins.push_back(pin);
  }

  void RemovePins() override {
    recorder_.actions.push_back(map_action::RemovePins);
    recorder_.pins.clear();
  }

  void Draw(std::int32_t latitude, std::int32_t longitude, std::int32_t width) override {
    recorder_.actions.push_back(map_action::Draw);
    recorder_.drawn = MapRecorder::Drawing{latitude, longitude, width};
  }

 private:
  MapRecorder& recorder_;
};

class ScriptedAccounts final : public platform::AccountsLookup {
 public:
  explicit ScriptedAccounts(AccountsRecorder& recorder) : recorder_(recorder) {}

  platform::ChosenAccount Run(const platform::AccountsLookupInput& input) override {
    recorder_.lastInput = input;
    if (recorder_.answers.empty()) {
      if (recorder_.onMissingAnswer) recorder_.onMissingAnswer("the accounts look-up with no answer");
      return {};
    }
    const std::optional<platform::ChosenAccount> answer = recorder_.answers.front();
    recorder_.answers.pop_front();
    return answer ? *answer : recorder_.list(input);
  }

 private:
  AccountsRecorder& recorder_;
};

}  // namespace

std::unique_ptr<platform::ReportEngine> MakeRecordingReports(ReportRecorder& recorder, ReportsMaker makeReal) {
  return std::make_unique<RecordingReports>(recorder, std::move(makeReal));
}

std::unique_ptr<platform::MapEngine> MakeRecordingMap(MapRecorder& recorder) { return std::make_unique<RecordingMap>(recorder); }

std::unique_ptr<platform::AccountsLookup> MakeScriptedAccounts(AccountsRecorder& recorder) {
  return std::make_unique<ScriptedAccounts>(recorder);
}

}  // namespace robot
