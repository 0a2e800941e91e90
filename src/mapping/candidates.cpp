#include "mapping/candidates.h"

#include <utility>

#include "platform/values/convert.h"

namespace orcussch {

MapMatch PositionIn(const std::string& line) {
  const int blank = platform::InStr(1, line, " ");
  MapMatch match;
  match.longitude = platform::CLng(platform::Val(platform::Left(line, blank)));
  match.latitude = platform::CLng(platform::Val(platform::Mid(line, blank, blank - 1)));
  return match;
}

/// By exchanges, which leaves equally near candidates in the order that offices know.
void SortByDistance(std::vector<MapMatch>& matches) {
  for (std::size_t i = 0; i + 1 < matches.size(); ++i)
    for (std::size_t j = i + 1; j < matches.size(); ++j)
      if (matches[j].distance < matches[i].distance) std::swap(matches[i], matches[j]);
}

}  // namespace orcussch
