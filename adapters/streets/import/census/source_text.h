#pragma once

#include <string>
#include <string_view>

namespace streets {

/// A text of a source in UTF-8: what is no UTF-8 is taken for Latin-1, in which older files are written. Control characters go, and
/// blanks around it.
std::string SourceText(std::string_view bytes);

}  // namespace streets
