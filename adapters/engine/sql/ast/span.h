#pragma once

#include <cstddef>

namespace engine::sql {

/// Where something stands in a statement's text, in bytes.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

}  // namespace engine::sql
