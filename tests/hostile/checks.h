#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "hostile/books.h"
#include "maintenance/frmCustMain.h"

namespace hostile {

/// The account that the screen names; 0 for none.
std::int32_t NamedAccount(const orcussch::frmCustMain& screen);

/// What on the standing screen does not belong to the customer that it names, in sentences.
std::vector<std::string> Mismatches(const orcussch::frmCustMain& screen, const Books& books);

}  // namespace hostile
