#pragma once

#include <functional>
#include <string>
#include <vector>

namespace streets {

/// The files that are meant by words of a command: shapefiles (.shp), ZIP archives and extracts of OpenStreetMap (.pbf) as they are, of a
/// folder all that lie in it, by their names. Raises FileError for what is none of them.
std::vector<std::string> FindInputs(const std::vector<std::string>& words);

/// Whether the input is an extract, by its ending.
bool IsExtract(const std::string& input);

/// Calls `use` with the path of every shapefile that an input holds and the name to show: a .shp itself, and each of a ZIP archive, which
/// is unpacked into a folder for temporary files meanwhile. Raises FileError for an archive that is damaged or holds none.
void EachShapeFile(const std::string& input, const std::function<void(const std::string& path, const std::string& shown)>& use);

}  // namespace streets
