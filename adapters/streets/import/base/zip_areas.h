#pragma once

#include <vector>

#include "streets/import/base/outlines.h"
#include "streets/import/base/zip_sources.h"

namespace streets {

/// Every ZIP of the sources, in their order, with the position to believe. The areas' own points come first; where a post office's lies more
/// than 50 km away, one of both is wrong, and the one is taken that lies in the state named, else in the county named, else nearer to
/// another ZIP with the same first three digits. An area that no office names has the names of the outlines that it lies in. An
/// office without an area that lies outside its state is put where the others of its town are.
std::vector<ZipArea> BelievedZips(const ZipPoints& points, const PostOffices& offices, const Outlines& outlines);

/// Towns: ZIPs with one name in one state that lie near one another, each at the one of its ZIPs that is nearest to their middle. In the order of
/// names; towns of the forces' post, which lies anywhere, are none.
std::vector<Place> PlacesOf(const std::vector<ZipArea>& zips);

/// Of the mean sphere.
double Kilometres(const Position& from, const Position& to);

}  // namespace streets
