#pragma once

#include <string>
#include <string_view>

namespace streets {

/// The two letters of a state, district, territory or of the forces' post.
bool IsStateCode(std::string_view word);

/// The two letters for a code or a name in capitals ("MT", "MONTANA", "N DAKOTA", "D C"); "" for what is none.
std::string StateCode(std::string_view name);

}  // namespace streets
