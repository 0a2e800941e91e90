#pragma once

#include <string>
#include <vector>

#include "streets/geocoder/house_match.h"
#include "streets/geocoder/known_areas.h"

namespace streets {

/// A place that an address may mean.
struct Candidate {
  int penalty = 0;
  bool matches = false;  ///< number, street and ZIP or town are as the text says
  Spot spot;
  std::string street;   ///< as its source writes it
  std::string towards;  ///< the direction in that name, in front or behind
  double fromTown = 0;  ///< feet to the town that the address names; 0 where it names none
};

/// The candidates best first, each place once: streets with two names, ranges that a tighter one near by overrules, and all that is much
/// worse than the best fall away. The order depends on nothing but the candidates.
std::vector<Candidate> Ranked(std::vector<Candidate> candidates);

/// "-11090123 4654321 498 E Washington St, White Sulphur Springs, MT 59645".
std::string LineOf(const Candidate& candidate, KnownAreas& areas);

}  // namespace streets
