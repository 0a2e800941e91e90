#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "streets/address/place_key.h"
#include "streets/address/street_name.h"
#include "streets/index/street_index.h"

/// Streets made up in memory.
class MadeIndex final : public streets::StreetIndex {
 public:
  struct Numbers {
    std::int64_t from;
    std::int64_t to;
    streets::Parity parity;
    std::string zip;
    std::string prefix = "";
  };

  void AddZip(const std::string& zip, const std::string& city, const std::string& state, const std::string& county, streets::Position at) {
    zips_[zip] = {zip, at, city, state, county};
    const auto same =
        std::find_if(places_.begin(), places_.end(), [&](const auto& place) { return place.name == city && place.state == state; });
    if (same == places_.end()) {
      places_.push_back({city, state, at, {zip}});
    } else {
      same->zips.push_back(zip);
    }
  }

  /// An edge with its names (all but the first are aliases) and the numbers of its sides; returns its number.
  std::int64_t AddEdge(const std::vector<std::string>& names, streets::Line line, const std::optional<Numbers>& left,
                       const std::optional<Numbers>& right) {
    const std::int64_t edge = ++lastEdge_;
    shapes_[edge] = std::move(line);
    for (const std::string& name : names) {
      const std::int64_t street = StreetOf(name);
      edges_.push_back({street, edge, left ? left->zip : right ? right->zip : ""});
      if (right && right->zip != edges_.back().zip) edges_.push_back({street, edge, right->zip});
      if (left) ranges_.push_back({edge, street, false, left->prefix, left->from, left->to, left->parity, left->zip});
      if (right) ranges_.push_back({edge, street, true, right->prefix, right->from, right->to, right->parity, right->zip});
    }
    return edge;
  }

  void AddPoint(const std::string& name, const streets::HouseNumber& number, streets::Position at, const std::string& zip) {
    points_.push_back({StreetOf(name), number, at, zip});
  }

  std::vector<streets::StreetName> Named(const std::string& key, std::span<const std::string> zips) override {
    ++questions;
    return Matching(zips, [&](const auto& name) { return name.key == key; });
  }
  std::vector<streets::StreetName> Beginning(char letter, std::span<const std::string> zips) override {
    ++questions;
    return Matching(zips, [&](const auto& name) { return name.key.front() == letter; });
  }
  std::vector<streets::StreetName> Sounding(const std::string& code) override {
    ++questions;
    return Matching({}, [&](const auto& name) { return streets::Soundex(name.key) == code; });
  }
  std::vector<streets::HouseRange> Ranges(std::int64_t street, std::span<const std::string> zips) override {
    return Of(ranges_, street, zips);
  }
  std::vector<streets::AddressPoint> Points(std::int64_t street, std::span<const std::string> zips) override {
    return Of(points_, street, zips);
  }
  streets::Line Shape(std::int64_t edge) override { return shapes_.at(edge); }
  std::vector<std::int64_t> Edges(std::int64_t street, std::span<const std::string> zips) override {
    std::vector<std::int64_t> edges;
    for (const StreetEdge& one : Of(edges_, street, zips)) edges.push_back(one.edge);
    return edges;
  }
  std::optional<streets::ZipArea> Zip(const std::string& zip) override {
    ++questions;
    const auto found = zips_.find(zip);
    return found == zips_.end() ? std::nullopt : std::optional(found->second);
  }
  std::vector<streets::Place> Places(const std::string& name, const std::string& state) override {
    std::vector<streets::Place> found;
    for (const auto& place : places_)
      if (streets::PlaceKey(place.name) == name && (state.empty() || place.state == state)) found.push_back(place);
    return found;
  }
  std::vector<std::string> ZipsOfCounty(const std::string& state, const std::string& county) override {
    std::vector<std::string> found;
    for (const auto& [zip, area] : zips_)
      if (area.state == state && area.county == county) found.push_back(zip);
    return found;
  }

  int questions = 0;

 private:
  struct StreetEdge {
    std::int64_t street;
    std::int64_t edge;
    std::string zip;
  };

  std::int64_t StreetOf(const std::string& name) {
    const auto found = std::find_if(names_.begin(), names_.end(), [&](const auto& one) { return one.shown == name; });
    if (found != names_.end()) return found->id;
    names_.push_back(streets::NormalStreet(name));
    names_.back().id = static_cast<std::int64_t>(names_.size());
    return names_.back().id;
  }

  static bool IsIn(const std::string& zip, std::span<const std::string> zips) {
    return zips.empty() || std::find(zips.begin(), zips.end(), zip) != zips.end();
  }

  template <typename Row>
  std::vector<Row> Of(const std::vector<Row>& rows, std::int64_t street, std::span<const std::string> zips) {
    ++questions;
    std::vector<Row> found;
    for (const Row& row : rows)
      if (row.street == street && IsIn(row.zip, zips)) found.push_back(row);
    return found;
  }

  template <typename Fits>
  std::vector<streets::StreetName> Matching(std::span<const std::string> zips, const Fits& fits) {
    std::vector<streets::StreetName> found;
    for (const auto& name : names_) {
      const auto hasNumbers = [&](const auto& row) { return row.street == name.id && IsIn(row.zip, zips); };
      const bool is = zips.empty() || std::any_of(ranges_.begin(), ranges_.end(), hasNumbers) ||
                      std::any_of(points_.begin(), points_.end(), hasNumbers);
      if (is && fits(name)) found.push_back(name);
    }
    return found;
  }

  std::vector<streets::StreetName> names_;
  std::vector<streets::HouseRange> ranges_;
  std::vector<streets::AddressPoint> points_;
  std::vector<StreetEdge> edges_;
  std::map<std::int64_t, streets::Line> shapes_;
  std::map<std::string, streets::ZipArea> zips_;
  std::vector<streets::Place> places_;
  std::int64_t lastEdge_ = 0;
};
