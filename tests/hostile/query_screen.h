#pragma once

#include <string>
#include <vector>

#include "maintenance/frmCustMain.h"
#include "queries/frmCustQueries.h"

namespace hostile {

/// What on the query screen does not go together, in sentences.
std::vector<std::string> Mismatches(const orcussch::frmCustQueries& screen);

/// What the main screen tells of the query in force against the query itself, in sentences.
std::vector<std::string> QueryMismatches(const orcussch::frmCustMain& screen);

}  // namespace hostile
