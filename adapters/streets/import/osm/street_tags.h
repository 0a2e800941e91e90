#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/services/map.h"
#include "streets/import/osm/extract_file.h"

namespace streets {

/// The kind of line that a value of the tag "highway" is drawn as; nothing for what is no street (yet).
std::optional<platform::MapLine> KindOfHighway(const std::string& highway);

/// A street's names, each once: its name, what else it is called, what it was called, its numbers as a highway ("I 95"). The first is
/// the one to be drawn.
std::vector<std::string> NamesOfStreet(const ExtractTags& tags);

/// The ZIPs that a street's tags tell, each once.
std::vector<std::string> ZipsOfStreet(const ExtractTags& tags);

}  // namespace streets
