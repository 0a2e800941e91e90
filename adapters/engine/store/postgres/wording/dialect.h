#pragma once

#include "engine/store/dialect.h"

namespace engine::postgres {

/// The server's own way of writing statements.
const Dialect& ServerDialect();

}  // namespace engine::postgres
