#pragma once

#include <cstdint>
#include <functional>

namespace printing {

/// Asked between pages (or some rows) of a long output with how many are done; false stops it (ReportError::Stopped).
using Progress = std::function<bool(std::int64_t done)>;

/// Raises Stopped where `progress` wants no more.
void Ask(const Progress& progress, std::int64_t done);

}  // namespace printing
