#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "streets/index/street_index.h"

namespace streets {

/// A ZIP with the key of its town.
struct KnownArea {
  ZipArea area;
  std::string townKey;
};

/// The ZIPs that were asked for lately: every address asks for its own, and most share a few.
class KnownAreas {
 public:
  explicit KnownAreas(StreetIndex& index) : index_(index) {}

  /// Nullptr for a ZIP that is not known; good until the next call of Clear.
  const KnownArea* Find(const std::string& zip);
  void Clear() { areas_.clear(); }

 private:
  StreetIndex& index_;
  std::unordered_map<std::string, std::optional<KnownArea>> areas_;
};

}  // namespace streets
