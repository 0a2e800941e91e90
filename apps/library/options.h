#pragma once

#include "library/default_application.h"
#include "library/orcussch.h"

namespace library {

/// A host's options read and checked. Raises OptionError, FolderError.
DefaultApplicationOptions ReadOptions(const orcussch_options& options);

}  // namespace library
