#include <algorithm>
#include <optional>

#include "platform/values/text.h"
#include "robot/expectations/expectations.h"
#include "robot/language/failure.h"
#include "robot/language/value_text.h"
#include "robot/runner/runner.h"

// What the map and the accounts look-up were given.
namespace robot {
namespace {

using namespace platform;

void DemandMap(const Arguments& words, const std::vector<std::string>& was) {
  const std::vector<Word> wanted = words.From(1);
  if (!std::equal(was.begin(), was.end(), wanted.begin(), wanted.end(), MeetsText))
    throw Unmet("map " + words.Text(0) + " " + WantedList(wanted), ShownList(was));
}

void DemandMapValue(const Arguments& words, const std::optional<Value>& was) {
  if (words.Count() != 2) throw ActionFailed("no value for map " + words.Text(0));
  const bool met = was ? Meets(*was, words.At(1)) : words.Is(1, "none");
  if (!met) throw Unmet("map " + words.Text(0) + " " + Wanted(words.At(1)), was ? Shown(*was) : "none");
}

std::optional<Value> PinValue(const MapRecorder& map, const std::string& key, const std::string& property) {
  const auto is = [&](std::string_view name) { return EqualsNoCase(property, name); };
  for (const MapPin& pin : map.pins) {
    if (pin.key != key) continue;
    if (is("Latitude")) return Value(pin.latitude);
    if (is("Longitude")) return Value(pin.longitude);
    if (is("Text")) return Value(pin.text);
    if (is("PinStyle") || is("Style")) return Value(pin.style);
    if (is("PinPicture") || is("Picture")) return Value(pin.picture);
    throw ActionFailed("no pin property " + property);
  }
  return std::nullopt;
}

std::optional<Value> DrawnValue(const MapRecorder& map, const std::string& property) {
  if (!map.drawn) return std::nullopt;
  if (EqualsNoCase(property, "Latitude")) return Value(map.drawn->latitude);
  if (EqualsNoCase(property, "Longitude")) return Value(map.drawn->longitude);
  if (EqualsNoCase(property, "MapWidth") || EqualsNoCase(property, "Width")) return Value(map.drawn->width);
  throw ActionFailed("no drawing property " + property);
}

/// "Pin(KEY).PROPERTY": the key may be any text without a closing bracket.
bool IsPin(const std::string& text, std::string& key, std::string& property) {
  constexpr std::string_view kStart = "Pin(";
  const std::size_t close = text.find(").");
  if (text.size() < kStart.size() || !EqualsNoCase(text.substr(0, kStart.size()), kStart) || close == std::string::npos) return false;
  key = text.substr(kStart.size(), close - kStart.size());
  property = text.substr(close + 2);
  return true;
}

void Map(Runner& run, const Arguments& words) {
  const MapRecorder& map = run.Map();
  std::string key;
  std::string property;
  if (words.Is(0, "Actions")) {
    std::vector<std::string> was;
    for (const int action : map.actions) was.push_back(std::to_string(action));
    DemandMap(words, was);
  } else if (words.Is(0, "Addresses")) {
    DemandMap(words, map.addresses);
  } else if (words.Is(0, "Pins")) {
    std::vector<std::string> was;
    for (const MapPin& pin : map.pins) was.push_back(pin.key);
    DemandMap(words, was);
  } else if (IsPin(words.Text(0), key, property)) {
    DemandMapValue(words, PinValue(map, key, property));
  } else if (words.Is(0, "Drawn")) {
    DemandMapValue(words, map.drawn ? std::optional<Value>(Value("drawn")) : std::nullopt);
  } else if (constexpr std::string_view kDrawn = "Drawn."; EqualsNoCase(words.Text(0).substr(0, kDrawn.size()), kDrawn)) {
    DemandMapValue(words, DrawnValue(map, words.Text(0).substr(kDrawn.size())));
  } else {
    throw ActionFailed("nothing called map " + words.Text(0));
  }
}

void Lookup(Runner& run, const Arguments& words) {
  const auto& input = run.Accounts().lastInput;
  const int number = words.Number(0);
  const std::string expected = "lookup " + words.Text(0) + " " + Wanted(words.At(1));
  if (!input) throw Unmet(expected, "no look-up");
  if (number < 1 || number > static_cast<int>(input->size())) throw ActionFailed("no input " + words.Text(0));
  const Value& value = (*input)[static_cast<std::size_t>(number - 1)];
  if (!Meets(value, words.At(1))) throw Unmet(expected, Shown(value));
}

}  // namespace

ExpectationList DoubleExpectations() {
  return {
      {"map", 1, kAnyNumber, Map},
      {"lookup", 2, 2, Lookup},
  };
}

}  // namespace robot
