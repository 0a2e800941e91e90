#pragma once

#include <string_view>
#include <vector>

#include "engine/store/channel.h"
#include "engine/store/store.h"

/// Links as rows of a store's own table.
namespace engine {

/// `select` gives name, path and source.
std::vector<StoredLink> ReadLinks(Channel& channel, std::string_view select);
/// `insert` takes name, path and source as its parameters. Raises 3012 when the name is taken.
void WriteLink(Channel& channel, std::string_view insert, const StoredLink& link);

}  // namespace engine
